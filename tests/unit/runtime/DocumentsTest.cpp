// Documents, their transactions, and the working database.

#include "Documents.h"
#include "KelRuntime.h"
#include "RuntimeTest.h"

#include "engine/DatabaseAccess.h"

class DocumentsTest : public RuntimeTest {
  protected:
    runtime::Document& open(const wchar_t* name) {
        return runtime::openDocument(std::make_unique<KelDbDatabase>(true, false), name);
    }
};

TEST_F(DocumentsTest, WithoutADocumentThereIsNoWorkingDatabase) {
    EXPECT_EQ(kelDocManagerPtr()->currentDocument(), nullptr);
    EXPECT_EQ(keldbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentsTest, TheDocumentOpenedLastIsTheCurrentOne) {
    runtime::Document& first = open(L"first.zdr");
    runtime::Document& second = open(L"second.zdr");
    EXPECT_EQ(kelDocManagerPtr()->currentDocument(), &second);
    EXPECT_EQ(keldbHostApplicationServices()->workingDatabase(), second.database());
    runtime::setCurrentDocument(first);
    EXPECT_EQ(keldbHostApplicationServices()->workingDatabase(), first.database());
    EXPECT_STREQ(kelDocManagerPtr()->currentDocument()->fileName(), L"first.zdr");
}

TEST_F(DocumentsTest, ClosingTheCurrentDocumentGoesBackToTheOneBefore) {
    runtime::Document& first = open(L"first.zdr");
    runtime::Document& second = open(L"second.zdr");
    runtime::closeDocument(second);
    EXPECT_EQ(runtime::currentDocument(), &first);
    EXPECT_EQ(runtime::documentCount(), 1u);
    runtime::closeDocument(first);
    EXPECT_EQ(runtime::currentDocument(), nullptr);
    EXPECT_EQ(keldbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentsTest, TransactionsNestAndStandInTheLedger) {
    KelTransactionManager* manager = open(L"").transactionManager();
    ASSERT_NE(manager, nullptr);
    EXPECT_NE(manager->startTransaction(), nullptr);
    EXPECT_NE(manager->startTransaction(), nullptr);
    EXPECT_THAT(instruments::ledger(), testing::ElementsAre("transaction", "transaction"));
    EXPECT_EQ(manager->endTransaction(), Vorn::eOk);
    EXPECT_EQ(manager->endTransaction(), Vorn::eOk);
    EXPECT_EQ(manager->endTransaction(), Vorn::eNotApplicable);
}

TEST_F(DocumentsTest, ATransactionThatCantBeOpenedIsNull) {
    KelTransactionManager* manager = open(L"").transactionManager();
    instruments::failCall("startTransaction", 1);
    EXPECT_EQ(manager->startTransaction(), nullptr);
    EXPECT_EQ(manager->endTransaction(), Vorn::eNotApplicable);
}

TEST_F(DocumentsTest, AFailedEndHasEndedTheTransactionAllTheSame) {
    KelTransactionManager* manager = open(L"").transactionManager();
    manager->startTransaction();
    instruments::failCall("endTransaction", 1, Vorn::eNotApplicable);
    EXPECT_EQ(manager->endTransaction(), Vorn::eNotApplicable);
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
}

TEST_F(DocumentsTest, EveryStepToATransactionCanFail) {
    open(L"");
    instruments::failCall("transactionManager", 1);
    EXPECT_EQ(kelDocManagerPtr()->currentDocument()->transactionManager(), nullptr);
    instruments::failCall("currentDocument", 1);
    EXPECT_EQ(kelDocManagerPtr()->currentDocument(), nullptr);
    instruments::failCall("workingDatabase", 1);
    EXPECT_EQ(keldbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentsTest, TellsWhoTheHostIs) {
    EXPECT_STREQ(keldbHostApplicationServices()->productName(), L"Kel Workbench");
    EXPECT_STREQ(keldbHostApplicationServices()->userRegistryProductRootKey(), L"Software\\KelWorkbench");
}

TEST_F(DocumentsTest, EverythingInTheOutermostTransactionIsOneStepOfUndo) {
    runtime::Document& document = open(L"");
    KelTransactionManager* manager = document.transactionManager();
    const std::size_t before = engine::drawingOf(document.data()).layers.size();
    manager->startTransaction();
    EXPECT_EQ(engine::addLayer(document.data(), L"A"), Vorn::eOk);
    manager->startTransaction();
    EXPECT_EQ(engine::addLayer(document.data(), L"B"), Vorn::eOk);
    manager->endTransaction();
    EXPECT_FALSE(engine::undo(document.data())) << "not within a transaction";
    manager->endTransaction();
    EXPECT_EQ(engine::addLayer(document.data(), L"C"), Vorn::eOk);
    EXPECT_TRUE(engine::undo(document.data()));
    EXPECT_EQ(engine::drawingOf(document.data()).layers.size(), before + 2);
    EXPECT_TRUE(engine::undo(document.data()));
    EXPECT_EQ(engine::drawingOf(document.data()).layers.size(), before);
}

TEST_F(DocumentsTest, ATransactionLeftOpenEndsWithItsDocument) {
    runtime::Document& document = open(L"");
    document.transactionManager()->startTransaction();
    runtime::closeDocument(document);
    EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
}
