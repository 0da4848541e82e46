// The recent files in the File menu, and how they are kept.

#include "SavedRecentFiles.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

constexpr const wchar_t* kKey = workbench::kRecentFilesKey;
constexpr const wchar_t* kValue = L"Recent";

HMENU fileMenu(const View& view) {
    return GetSubMenu(GetMenu(view.window()), 0);
}

/// The recent files in the menu, as they were filled in when it opened last.
std::vector<std::wstring> listed(const View& view) {
    std::vector<std::wstring> texts;
    for (UINT item = ID_MENU_RECENT_FIRST; item < ID_MENU_RECENT_FIRST + workbench::RecentFiles::kMost; ++item) {
        wchar_t text[256] = L"";
        if (GetMenuStringW(fileMenu(view), item, text, 256, MF_BYCOMMAND) > 0)
            texts.emplace_back(text);
    }
    return texts;
}

class RecentFilesMenuTest : public WorkbenchTest {
  protected:
    RecentFilesMenuTest() {
        forget();
        writeSample("one.zdr");
        writeSample("two.zdr");
    }
    ~RecentFilesMenuTest() override { forget(); }

    static void forget() { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
    static void keep(DWORD type, const void* bytes, std::size_t size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, type, bytes, static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }
    static void keep(const std::wstring& list) { keep(REG_MULTI_SZ, list.c_str(), list.size() * sizeof(wchar_t)); }
    Script open(const char* name) { return command(L"OPEN " + path(name)).then(said(L"Opened " + path(name))); }
    std::wstring item(int number, const char* name) const {
        return workbench::recentFileText(static_cast<std::size_t>(number), path(name));
    }
    /// Steps that open the File menu, wait until it lists these files, and press a key there.
    static Script inMenu(const std::vector<std::wstring>& files, WORD key) {
        Script script;
        script.pressAlt(L'f')
            .waitUntil("the menu is open", [](const View&) { return isMenuOpen(); })
            .waitUntil("the files that were expected", [files](const View& view) { return listed(view) == files; })
            .press(key);
        if (key == VK_ESCAPE)
            script.press(VK_ESCAPE);
        return script;
    }

  private:
    static bool isMenuOpen() {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE);
    }
};

} // namespace

TEST_F(RecentFilesMenuTest, AFileThatWasOpenedOrSavedIsOpenedAgainByItsNumber) {
    Script script;
    script.then(inMenu({}, VK_ESCAPE))
        .then(open("one.zdr"))
        .then(open("two.zdr"))
        .then(command(L"SAVEAS " + path("three.zdr")))
        .then(said(L"Saved "))
        .then(inMenu({item(1, "three.zdr"), item(2, "two.zdr"), item(3, "one.zdr")}, '3'))
        .waitUntil("the oldest is open", [](const View& view) { return view.title() == L"one.zdr - Kel Workbench"; })
        .then(said(L"Command: OPEN \"" + path("one.zdr") + L"\""))
        .then(inMenu({item(1, "one.zdr"), item(2, "three.zdr"), item(3, "two.zdr")}, VK_ESCAPE))
        .look("a line stands before Quit and before the files",
              [](const View& view) {
                  const HMENU menu = fileMenu(view);
                  const int count = GetMenuItemCount(menu);
                  EXPECT_EQ(GetMenuItemID(menu, count - 1), UINT{ID_MENU_QUIT});
                  EXPECT_TRUE(GetMenuState(menu, static_cast<UINT>(count - 2), MF_BYPOSITION) & MF_SEPARATOR);
                  EXPECT_EQ(GetMenuItemID(menu, count - 5), UINT{ID_MENU_RECENT_FIRST});
                  EXPECT_TRUE(GetMenuState(menu, static_cast<UINT>(count - 6), MF_BYPOSITION) & MF_SEPARATOR);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(RecentFilesMenuTest, TheListIsThereInTheNextWindowAndInAnother) {
    Script first;
    first.then(open("one.zdr")).then(command(L"QUIT"));
    runWith(first);
    window = std::make_unique<workbench::MainWindow>();
    ASSERT_TRUE(window->createWindow());
    AfxGetApp()->m_pMainWnd = window.get();
    Script second;
    second.then(inMenu({item(1, "one.zdr")}, VK_ESCAPE))
        .look("another Workbench opens a file",
              [this](const View&) { keep(path("two.zdr") + L'\0' + path("one.zdr") + L'\0'); })
        .then(inMenu({item(1, "two.zdr"), item(2, "one.zdr")}, VK_ESCAPE))
        .then(command(L"QUIT"));
    runWith(second);
}

TEST_F(RecentFilesMenuTest, AMissingFileIsListedUntilItIsChosenAndThenTold) {
    Script script;
    script.then(open("one.zdr"))
        .then(open("two.zdr"))
        .look("the first file goes", [this](const View&) { fs::remove(folder / "one.zdr"); })
        .then(inMenu({item(1, "two.zdr"), item(2, "one.zdr")}, '2'))
        .then(answerBox(L"doesn't exist: check its name and folder.", IDOK))
        .then(said(L"is taken off the recent files."))
        .look("the other drawing stays open",
              [](const View& view) { EXPECT_EQ(view.title(), L"two.zdr - Kel Workbench"); })
        .then(inMenu({item(1, "two.zdr")}, VK_ESCAPE))
        .then(command(L"OPEN " + path("one.zdr")))
        .then(answerBox(L"doesn't exist", IDOK))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(RecentFilesMenuTest, AFileThatCantBeReadStaysInTheList) {
    Script script;
    script.then(open("one.zdr"))
        .then(open("two.zdr"))
        .look("the first file is spoilt", [this](const View&) { fs::resize_file(folder / "one.zdr", 7); })
        .then(inMenu({item(1, "two.zdr"), item(2, "one.zdr")}, '2'))
        .then(answerBox(L"choose another one.", IDOK))
        .then(inMenu({item(1, "two.zdr"), item(2, "one.zdr")}, VK_ESCAPE))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(RecentFilesMenuTest, LongPathsAndAmpersandsCanBeRead) {
    const std::wstring onServer = L"\\\\no-such-server.invalid\\plans\\" + std::wstring(200, L'x') + L"\\R&D.zdr";
    keep(onServer + L'\0');
    Script script;
    script.then(inMenu({L"&1 \\\\no-such-server.invalid\\plans\\...\\R&&D.zdr"}, VK_ESCAPE)).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(RecentFilesMenuTest, WhatStandsInTheRegistryIsNotTrusted) {
    Script script;
    const auto listedAfter = [&script](const std::function<void()>& kept, const std::vector<std::wstring>& files) {
        script.look("another value is kept", [kept](const View&) { kept(); }).then(inMenu(files, VK_ESCAPE));
    };
    const std::vector<std::wstring> both{L"&1 C:\\a.zdr", L"&2 C:\\b.zdr"};
    const std::wstring list(L"C:\\a.zdr\0C:\\b.zdr\0", 18);
    listedAfter([list] { keep(list); }, both);
    listedAfter([list] { keep(REG_MULTI_SZ, list.c_str(), 17 * sizeof(wchar_t)); }, both);
    listedAfter([list] { keep(REG_MULTI_SZ, list.c_str(), 17 * sizeof(wchar_t) - 1); },
                {L"&1 C:\\a.zdr", L"&2 C:\\b.zd"});
    listedAfter([] { keep(REG_SZ, L"C:\\a.zdr", 18); }, {});
    listedAfter([list] { keep(REG_BINARY, list.c_str(), 18 * sizeof(wchar_t)); }, {});
    listedAfter([] { keep(REG_MULTI_SZ, L"", 0); }, {});
    std::wstring many; // of a megabyte and more
    while (many.size() * sizeof(wchar_t) <= 1 << 20)
        many += list;
    listedAfter([many] { keep(many); }, {});
    script.then(open("one.zdr")).then(inMenu({item(1, "one.zdr")}, VK_ESCAPE)).then(command(L"QUIT"));
    runWith(script);
}
