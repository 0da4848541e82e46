// The host's task dialogs as the module shows them.
#include "HostPrompts.h"

#include "Driver.h"
#include "HostTest.h"
#include "OrvUiServices.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::StartsWith;
using ui::Script;

namespace {

class HostPrompts : public ui::HostTest {
  protected:
    /// Shows a task dialog and has it answered.
    static std::optional<int> ask(Script answer, const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs = nullptr,
                                  int count = 0) {
        std::optional<int> number;
        ui::perform(std::move(answer), [&] { number = showTaskDialog(key, pairs, count); });
        return number;
    }
};

} // namespace

TEST_F(HostPrompts, ATaskDialogComesOutOfTheHostsFileAndAnswersItsButton) {
    EXPECT_EQ(ask(Script().waitForControl(IDCLOSE).click(IDCLOSE), L"KelLayerApps.LayerStateNoneSelected"), IDCLOSE);
    EXPECT_THAT(instruments::trace(),
                ElementsAre("taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                            "\"KelLayerApps.LayerStateNoneSelected\", null, 0) = true",
                            StartsWith("taskDialog.ShowDialog(null) = ")));
}

TEST_F(HostPrompts, TheFirstCommandOfATaskDialogAnswersItsNumberAndItsTextsAreFilledIn) {
    const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\states.las"}};
    EXPECT_EQ(ask(Script().waitForText(L"C:\\states.las").click(kTaskDialogFirstCommand),
                  L"KelLayerApps.LayerStateSuccessfulImport", pairs, 1),
              kTaskDialogFirstCommand);
}

TEST_F(HostPrompts, ATaskDialogThatCantBeLoadedIsntShown) {
    instruments::failCall("taskDialog.LoadFromFile", 1);
    EXPECT_EQ(ask({}, L"KelLayerApps.LayerStateNoneSelected"), std::nullopt);
    EXPECT_EQ(ui::callsOf("taskDialog.ShowDialog").size(), 0u);
}

TEST_F(HostPrompts, StandOverTheMainWindowOfTheThread) {
    EXPECT_EQ(threadMainWindow(), nullptr);
    CWnd mainWindow;
    ASSERT_TRUE(mainWindow.CreateEx(0, AfxRegisterWndClass(0), L"Main window", WS_OVERLAPPEDWINDOW,
                                    CRect(0, 0, 600, 400), nullptr, 0));
    AfxGetThread()->m_pMainWnd = &mainWindow;
    EXPECT_EQ(threadMainWindow(), &mainWindow);
    const auto seeOwner = [&mainWindow](const ui::View& view) {
        EXPECT_EQ(GetWindow(view.window(), GW_OWNER), mainWindow.m_hWnd);
    };
    ask(Script().waitForControl(IDCLOSE).look("its owner", seeOwner).click(IDCLOSE),
        L"KelLayerApps.LayerStateNoneSelected");
    AfxGetThread()->m_pMainWnd = nullptr;
    mainWindow.DestroyWindow();
}
