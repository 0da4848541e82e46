// Exporting a state: the file it goes to, on this computer or on a server, and what fails.

#include "TransferTest.h"

#include "FileDialogSteps.h"
#include "OrvUiInternet.h"
#include "engine/DatabaseAccess.h"

#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using ui::Script;
using ui::TestDrawing;
using ui::View;

constexpr int kList = IDC_LSTATE_RES_LIST;
constexpr const wchar_t* kAddress = L"http://server.example/plans/one.las";

/// The drawing that is open has the states "One", which is selected, and "Two".
class Export : public TransferTest {
  protected:
    void SetUp() override {
        TransferTest::SetUp();
        open(TestDrawing().state(L"One", MaskColor, L"as described").state(L"Two", MaskOn));
    }
    /// Until the export has been asked for; a message would stand in front then.
    static Script untilExported() {
        Script script;
        return script.waitUntil("it is exported", [](const View&) { return !ui::callsOf("exportLayerState").empty(); });
    }
    static Script unchanged() { return backInManager({L"One", L"Two"}, L"One"); }
    Calls callsOfDialog(const std::wstring& path) const {
        return joined(
            {callsOfService(),
             {"keledGetFileNavDialog(" + instruments::describe(resourceText(107)) +
                  ", \"One\", \"las\", \"LayerStatesFileDialog\", 1) = 5100, path=" + instruments::describe(path),
              "kelutNewRb(5005) = object", "kelutRelRb(object)", "CProxyInet.GetProxyInet() = object"}});
    }
    static std::string transfer(const std::string& local, int mode, int status) {
        return "CProxyInet.TransferFile(" + instruments::describe(kAddress) + ", " + local + ", " +
               std::to_string(mode) + ", 1) = " + std::to_string(status);
    }
    /// The transfers answer these, and nothing is sent. 0 is for a call that doesn't come.
    static Script transfersAnswer(int first, int second) {
        Script script;
        return script.look("what the transfers answer", [first, second](const View&) {
            instruments::failCall("CProxyInet.TransferFile", 1, static_cast<Vorn::ErrorStatus>(first));
            if (second)
                instruments::failCall("CProxyInet.TransferFile", 2, static_cast<Vorn::ErrorStatus>(second));
        });
    }
    /// The path that the host was asked to write to.
    static std::string written() {
        const Calls calls = ui::callsOf("exportLayerState");
        return calls.size() == 1 ? calls.front() : std::string();
    }
};

TEST_F(Export, ToAFileAsksTheHostInThisOrder) {
    manage(exportTo(L"out.las").then(untilExported()).then(unchanged()));
    const std::string path = instruments::describe(file(L"out.las"));
    EXPECT_THAT(instruments::trace(),
                ElementsAreArray(
                    joined({callsOfDialog(file(L"out.las")),
                            {"CProxyInet.TransferFile(" + path + ", \"\", 1, 1) = 20001, localName=\"\"",
                             "DoWaitCursor(1)", "DoWaitCursor(-1)", "exportLayerState(\"One\", " + path + ") = 0"}})));
}

TEST_F(Export, WhatItWritesCanBeImportedAgain) {
    manage(exportTo(L"out.las").then(untilExported()).then(unchanged()));
    open(TestDrawing());
    manage(import(L"out.las").then(leaveTaskDialog(kImported)).then(backInManager({L"One"}, L"One")));
    EXPECT_EQ(stateOf(L"One")->description, L"as described");
}

TEST_F(Export, TakesTheSelectedState) {
    Script script;
    script.clickCellOf(kList, L"Two")
        .then(exportTo(L"out.las"))
        .then(untilExported())
        .then(backInManager({L"One", L"Two"}, L"Two"));
    manage(script);
    EXPECT_EQ(written(), "exportLayerState(\"Two\", " + instruments::describe(file(L"out.las")) + ") = 0");
}

TEST_F(Export, BeginsWithTheStatesName) {
    Script script = countCalls();
    script.click(IDC_LSTATE_RES_EXPORT)
        .waitForControl(ui::kFileNameBox)
        .look("the name and the title",
              [](const View& view) {
                  EXPECT_THAT(view.text(ui::kFileNameBox), StartsWith(L"One"));
                  EXPECT_EQ(view.title(), resourceText(107));
              })
        .press(VK_ESCAPE)
        .then(unchanged());
    manage(script);
    EXPECT_THAT(ui::callsOf("CProxyInet.GetProxyInet"), IsEmpty());
    EXPECT_THAT(ui::callsOf("exportLayerState"), IsEmpty());
}

TEST_F(Export, GivesTheFocusBackToTheManager) {
    Script script = exportTo(L"out.las");
    manage(script.then(untilExported())
               .waitForControl(kManagersOwn)
               .look("the focus", [](const View& view) { EXPECT_NE(view.focusedControl(), 0); })
               .then(unchanged()));
}

TEST_F(Export, TheListCanBeUsedAfterwardsAlsoWhereItCouldNotBefore) {
    manage(disableList().then(exportTo(L"out.las")).then(untilExported()).then(backInManager([](const View& view) {
        EXPECT_TRUE(view.isEnabled(kList));
    })));
}

TEST_F(Export, WithoutAServiceNothingIsAsked) {
    Script script;
    script.look("no service", [](const View&) {
        instruments::clearTrace();
        instruments::failCall("getLayerStateManager", 1);
    });
    manage(script.click(IDC_LSTATE_RES_EXPORT).then(unchanged()));
    EXPECT_THAT(instruments::trace(), ElementsAre("keldbHostApplicationServices()", "workingDatabase() = object",
                                                  "getLayerStateManager() = null"));
}

TEST_F(Export, ThatTheHostRefusesIsTold) {
    Script script;
    script.look("it is to fail",
                [](const View&) { instruments::failCall("exportLayerState", 1, Vorn::eFileWriteFailed); });
    manage(script.then(exportTo(L"out.las"))
               .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
               .then(unchanged()));
    EXPECT_FALSE(std::filesystem::exists(file(L"out.las")));
}

TEST_F(Export, OverAFileThatMayNotBeWrittenIsTold) {
    saveStateFile(L"out.las", house(), L"Bare");
    const std::vector<std::byte> before = bytesOf(file(L"out.las"));
    const HANDLE held =
        CreateFileW(file(L"out.las").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    manage(exportTo(L"out.las")
               .waitUntil("the question of the file dialog", [](const View& view) { return view.has(IDYES); })
               .click(IDYES)
               .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
               .then(unchanged()));
    CloseHandle(held);
    EXPECT_EQ(bytesOf(file(L"out.las")), before);
}

TEST_F(Export, ToAServerGoesThroughATemporaryFile) {
    manage(transfersAnswer(eInetTargetAbsent, eInetOk)
               .then(choose(IDC_LSTATE_RES_EXPORT, kAddress))
               .waitUntil("it is sent", [](const View&) { return ui::callsOf("CProxyInet.TransferFile").size() == 2; })
               .then(unchanged()));
    const Calls made = ui::callsOf("CProxyInet.CreateInternetTempFile");
    ASSERT_THAT(made, SizeIs(1));
    const std::string local = made.front().substr(made.front().find("localName=") + 10);
    EXPECT_THAT(instruments::trace(), ElementsAreArray(joined({callsOfDialog(kAddress),
                                                               {transfer("\"\"", 1, eInetTargetAbsent), made.front(),
                                                                "exportLayerState(\"One\", " + local + ") = 0",
                                                                transfer(local, 4, eInetOk)}})));
}

TEST_F(Export, ThatCannotBeSentIsTold) {
    for (const int status : {int{eInetRefused}, 0x7FFF, int{eInetTargetAbsent}}) {
        manage(transfersAnswer(eInetTargetAbsent, status)
                   .then(choose(IDC_LSTATE_RES_EXPORT, kAddress))
                   .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
                   .then(unchanged()));
        EXPECT_THAT(ui::callsOf("CProxyInet.TransferFile"), SizeIs(2)) << status;
    }
}

TEST_F(Export, ThatCannotBeWrittenToTheTemporaryFileIsNotSent) {
    Script script = transfersAnswer(eInetTargetAbsent, eInetOk);
    script.look("the export is to fail", [](const View&) { instruments::failCall("exportLayerState", 1); });
    manage(script.then(choose(IDC_LSTATE_RES_EXPORT, kAddress))
               .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
               .then(unchanged()));
    EXPECT_THAT(ui::callsOf("CProxyInet.TransferFile"), SizeIs(1));
}

TEST_F(Export, WithoutATemporaryFileIsTold) {
    Script script = transfersAnswer(eInetTargetAbsent, eInetOk);
    script.look("no temporary file",
                [](const View&) { instruments::failCall("CProxyInet.CreateInternetTempFile", 1); });
    manage(script.then(choose(IDC_LSTATE_RES_EXPORT, kAddress))
               .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
               .then(unchanged()));
}

TEST_F(Export, WhereTheServerHasAnswersOfAnyOtherKindTheAddressIsWrittenTo) {
    for (const int status : {eInetOk, eInetRefused, eInetHostNotFound}) {
        manage(transfersAnswer(status, 0)
                   .then(choose(IDC_LSTATE_RES_EXPORT, kAddress))
                   .then(answerMessage(resourceText(IDS_LSTATE_EXPORT_FAILED)))
                   .then(unchanged()));
        EXPECT_THAT(written(), StartsWith("exportLayerState(\"One\", " + instruments::describe(kAddress) + ")"));
        EXPECT_THAT(ui::callsOf("CProxyInet.TransferFile"), SizeIs(1));
    }
}

TEST_F(Export, WithoutTheRemoteServiceFilesAreWrittenAllTheSame) {
    Script script;
    script.look("no service", [](const View&) { instruments::failCall("CProxyInet.GetProxyInet", 1); });
    manage(script.then(exportTo(L"out.las")).then(untilExported()).then(unchanged()));
    EXPECT_TRUE(std::filesystem::exists(file(L"out.las")));
}

} // namespace
