// The message in which the user is told how many states came from older stores.

#include "MigrationTest.h"
#include "RegistryKeys.h"

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

class MigrationMessage : public MigrationTest {
  protected:
    MigrationMessage() {
        EXPECT_TRUE(m_mainWindow.CreateEx(0, AfxRegisterWndClass(0), L"Kel Workbench", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                          CRect(0, 0, 900, 700), nullptr, 0));
        AfxGetApp()->m_pMainWnd = &m_mainWindow;
    }
    ~MigrationMessage() override {
        AfxGetApp()->m_pMainWnd = nullptr;
        m_mainWindow.DestroyWindow();
    }
    CWnd m_mainWindow;
};

TEST_F(MigrationMessage, SaysHowManyStatesCame) {
    for (const int count : {1, 2, 12}) {
        openWithLegacyStates(count);
        EXPECT_TRUE(runLayerState(confirm(messageOf(count)).then(closeManager()))) << count;
        EXPECT_EQ(stateNames().size(), static_cast<std::size_t>(count));
        EXPECT_THAT(legacyNames(), IsEmpty());
        releaseKeptChains();
    }
}

TEST_F(MigrationMessage, HasATitleTheInformationIconOneButtonAndTheMainWindowBehindIt) {
    openWithLegacyStates(1);
    EXPECT_TRUE(runLayerState(Script()
                                  .waitForText(messageOf(1))
                                  .look("the message",
                                        [this](const View& view) {
                                            EXPECT_EQ(view.title(), L"Layer States Converted");
                                            EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_INFORMATION));
                                            EXPECT_EQ(GetWindow(view.window(), GW_OWNER), m_mainWindow.m_hWnd);
                                            EXPECT_FALSE(m_mainWindow.IsWindowEnabled());
                                            EXPECT_THAT(view.texts(),
                                                        testing::UnorderedElementsAre(messageOf(1), L"OK"));
                                        })
                                  .click(IDOK)
                                  .then(closeManager())));
}

TEST_F(MigrationMessage, StandsBeforeTheManagerWhichThenShowsTheStates) {
    openWithLegacyStates(2);
    EXPECT_TRUE(
        runLayerState(Script()
                          .waitForText(messageOf(2))
                          .look("no manager yet", [](const View& view) { EXPECT_FALSE(view.has(IDC_LSTATE_RES_LIST)); })
                          .press(VK_ESCAPE)
                          .waitForControl(IDC_LSTATE_RES_LIST)
                          .look("the states",
                                [](const View& view) {
                                    EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAre(L"PLAN1", L"PLAN2"));
                                })
                          .click(IDC_LSTATE_RES_CLOSE)));
}

TEST_F(MigrationMessage, IsntShownTheSecondTime) {
    openWithLegacyStates(2);
    EXPECT_TRUE(runLayerState(confirm(messageOf(2)).then(closeManager())));
    EXPECT_TRUE(runLayerState(closeManager()));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1", L"PLAN2"));
}

TEST_F(MigrationMessage, CountsWhatWasSavedBeforeTheConversionStopped) {
    openWithLegacyStates(3);
    instruments::failCall("saveLayerState", 3); // the first is the one that keeps the layers
    EXPECT_TRUE(runLayerState(confirm(messageOf(1)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1"));
    EXPECT_THAT(legacyNames(), ElementsAre(L"PLAN2", L"PLAN3"));
    EXPECT_EQ(wallsColor(), 7);
    EXPECT_TRUE(runLayerState(confirm(messageOf(2)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1", L"QSET_PLAN2", L"QSET_PLAN3"));
}

TEST_F(MigrationMessage, IsntShownWhenNothingCouldBeSaved) {
    openWithLegacyStates(1);
    instruments::failCall("saveLayerState", 2);
    EXPECT_TRUE(runLayerState(closeManager()));
    EXPECT_THAT(legacyNames(), ElementsAre(L"PLAN1"));
}

TEST_F(MigrationMessage, BeginsWithTheNameOfTheProductThatTheRegistryHas) {
    RegistryKeys keys;
    keys.setText(HKEY_LOCAL_MACHINE, L"Software\\KelWorkbench", L"ProductName", L"House & Site 100%");
    openWithLegacyStates(1);
    std::wstring text = messageOf(1);
    text.replace(0, std::wstring(L"Kel Workbench").size(), L"House & Site 100%");
    EXPECT_TRUE(runLayerState(confirm(text).then(closeManager())));
}

} // namespace
