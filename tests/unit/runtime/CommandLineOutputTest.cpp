// Printing to the command line, and giving up.

#include "../files/TemporaryFolder.h"

#include "CommandLineOutput.h"
#include "KelDbDatabase.h"
#include "KelDbLayerStateManager.h"
#include "KelRuntime.h"
#include "ResultBuffer.h"
#include "RuntimeTest.h"
#include "VornStatus.h"
#include "files/TextCoding.h"

#include <stdexcept>

class CommandLineOutputTest : public RuntimeTest {
  protected:
    CommandLineOutputTest() {
        runtime::setOutputSink([this](const std::wstring& text) { printed += text; });
    }
    std::wstring printed;
};

TEST_F(CommandLineOutputTest, FormatsAsTheMicrosoftRuntimeDoes) {
    EXPECT_EQ(kelutPrintf(L"%s, %d, %S, %ls, %c%%\n", L"wide", 7, "narrow", L"long", L'x'), kResultNormal);
    EXPECT_EQ(printed, L"wide, 7, narrow, long, x%\n");
}

TEST_F(CommandLineOutputTest, KeepsWidthAndPrecision) {
    kelutPrintf(L"[%5s][%-4d][%.2s][%02X]", L"ab", 3, L"long", 10);
    EXPECT_EQ(printed, L"[   ab][3   ][lo][0A]");
}

TEST_F(CommandLineOutputTest, PrintsTextOfAnyLength) {
    const std::wstring text(5000, L'x');
    kelutPrintf(L"%s", text.c_str());
    EXPECT_EQ(printed, text);
}

TEST_F(CommandLineOutputTest, TellsWhyAFileCannotBeReadOrWritten) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.las"), missing = folder.file(L"missing.zdr"),
                       nowhere = folder.file(L"no such folder/b.las");
    writeBytes(path, std::vector<std::byte>());
    KelDbDatabase database(true, true);
    KelDbLayerStateManager& states = *database.getLayerStateManager();
    KelString name;
    EXPECT_NE(states.importLayerState(path.c_str(), name), Vorn::eOk);
    EXPECT_EQ(printed, L"The file \"" + path + L"\" is empty.\n");
    printed.clear();
    EXPECT_NE(database.readZdrFile(missing.c_str(), 64, false, nullptr), Vorn::eOk);
    EXPECT_TRUE(printed.starts_with(L"The file \"" + missing + L"\" ")) << zdr::toUtf8(printed);
    printed.clear();
    EXPECT_EQ(states.saveLayerState(L"Plan", MaskOn), Vorn::eOk);
    EXPECT_NE(states.exportLayerState(L"Plan", nowhere.c_str()), Vorn::eOk);
    EXPECT_TRUE(printed.starts_with(L"The file \"" + nowhere + L"\" ")) << zdr::toUtf8(printed);
}

TEST_F(CommandLineOutputTest, TellsNothingOfFilesThatAreReadAndWrittenNorOfATakenName) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.las");
    KelDbDatabase database(true, true);
    KelDbLayerStateManager& states = *database.getLayerStateManager();
    EXPECT_EQ(states.saveLayerState(L"Plan", MaskOn), Vorn::eOk);
    EXPECT_EQ(states.exportLayerState(L"Plan", path.c_str()), Vorn::eOk);
    KelString name;
    EXPECT_EQ(states.importLayerState(path.c_str(), name), Vorn::eDuplicateRecordName);
    EXPECT_EQ(states.deleteLayerState(L"Plan"), Vorn::eOk);
    EXPECT_EQ(states.importLayerState(path.c_str(), name), Vorn::eOk);
    EXPECT_EQ(printed, L"");
}

TEST_F(CommandLineOutputTest, TheHostsOwnTextIsPrintedAsItIsAndIsNoCall) {
    runtime::print(L"100 %s\n");
    EXPECT_EQ(printed, L"100 %s\n");
    EXPECT_THAT(instruments::trace(), testing::IsEmpty());
}

TEST_F(CommandLineOutputTest, DropsTextWithoutASink) {
    runtime::setOutputSink({});
    runtime::print(L"lost");
    EXPECT_EQ(kelutPrintf(L"lost"), kResultNormal);
    EXPECT_EQ(printed, L"");
}

TEST_F(CommandLineOutputTest, PrintsNothingWhenItFails) {
    instruments::failCall("kelutPrintf", 1);
    EXPECT_EQ(kelutPrintf(L"text"), kResultError);
    EXPECT_EQ(printed, L"");
}

TEST_F(CommandLineOutputTest, AnAbortTellsItsTextBeforeTheEnd) {
    runtime::setAbortHandler(
        [](const std::wstring& text) { throw std::runtime_error(text == L"!a@66: b" ? "told" : "wrong"); });
    try {
        kelrt_abort(L"!%s@%d: %s", L"a", 66, L"b");
        FAIL();
    } catch (const std::runtime_error& told) {
        EXPECT_STREQ(told.what(), "told");
    }
    EXPECT_THAT(instruments::trace(), testing::Contains("kelrt_abort(\"!a@66: b\")"));
}

TEST_F(CommandLineOutputTest, AnAbortOverAFailedCloseNamesPlaceAndReason) {
    std::wstring told;
    runtime::setAbortHandler([&told](const std::wstring& text) { throw std::runtime_error((told = text, "aborted")); });
    EXPECT_THROW(kelrt_abort(L"!%s@%d: %s", L"Utility", 66, vornErrorStatusText(Vorn::eWasOpenForRead)),
                 std::runtime_error);
    EXPECT_EQ(told, L"!Utility@66: The object is open for reading");
}

TEST_F(CommandLineOutputTest, AnAbortWithoutAHandlerEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(kelrt_abort(L"!%s@%d", L"a", 66), "!a@66");
}
