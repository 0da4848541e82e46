// The guard around changes that are undone as one: begun and ended once, by the document that is current at the time.

#include "DocumentTransaction.h"

#include "Documents.h"
#include "Runtime.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

class DocumentTransactionTest : public testing::Test {
  protected:
    DocumentTransactionTest() {
        runtime::reset();
        m_document = &open();
        instruments::watch(true);
    }
    ~DocumentTransactionTest() override {
        EXPECT_THAT(instruments::ledger(), IsEmpty());
        instruments::watch(false);
        runtime::reset();
    }
    static runtime::Document& open() {
        return runtime::openDocument(std::make_unique<KelDbDatabase>(true, false), L"");
    }

    runtime::Document* m_document;
};

TEST_F(DocumentTransactionTest, LastsAsLongAsTheGuard) {
    {
        const DocumentTransaction guard;
        EXPECT_TRUE(guard.isStarted());
        EXPECT_THAT(instruments::ledger(), ElementsAre("transaction"));
    }
    EXPECT_THAT(instruments::trace(),
                ElementsAre("kelDocManagerPtr()", "currentDocument() = object", "transactionManager() = object",
                            "startTransaction() = object", "kelDocManagerPtr()", "currentDocument() = object",
                            "transactionManager() = object", "endTransaction() = 0"));
}

TEST_F(DocumentTransactionTest, AnExceptionEndsItAsAReturnDoes) {
    const auto fail = [] {
        const DocumentTransaction guard;
        throw std::runtime_error("the change gave up");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    EXPECT_EQ(instruments::trace().back(), "endTransaction() = 0");
}

TEST_F(DocumentTransactionTest, IsNotStartedAndNotEndedWithoutADocumentOrAgainstTheHostsWill) {
    for (const char* refusing : {"currentDocument", "transactionManager", "startTransaction"}) {
        instruments::failCall(refusing, 1);
        instruments::clearTrace();
        EXPECT_FALSE(DocumentTransaction().isStarted()) << refusing;
        EXPECT_EQ(instruments::trace().back(), refusing + std::string("() = null"));
    }
}

TEST_F(DocumentTransactionTest, LeavesTheEndToTheHostWhenTheDocumentIsLost) {
    {
        const DocumentTransaction guard;
        instruments::failCall("currentDocument", 1);
    }
    EXPECT_THAT(instruments::ledger(), ElementsAre("transaction"));
    EXPECT_EQ(m_document->transactionManager()->endTransaction(), Vorn::eOk);
}

TEST_F(DocumentTransactionTest, IsEndedByTheDocumentThatIsCurrentThen) {
    runtime::Document& other = open();
    runtime::setCurrentDocument(*m_document);
    ASSERT_NE(other.transactionManager()->startTransaction(), nullptr);
    {
        const DocumentTransaction guard;
        runtime::setCurrentDocument(other);
    }
    EXPECT_EQ(m_document->transactionManager()->endTransaction(), Vorn::eOk);
    EXPECT_EQ(other.transactionManager()->endTransaction(), Vorn::eNotApplicable);
}
