// The help: its pages, and how they open.

#include "DialogFixture.h"

#include "OrvUiServices.h"
#include "base/ComponentFile.h"
#include "help/HelpPage.h"
#include "instruments/HostCalls.h"

#include <commctrl.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

using framework::helpPage;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

constexpr const wchar_t* kManagerTopic = L"RESTORELAYERSTATEDIALOG";

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

TEST(HelpPages, standInTheHelpFolderBesideTheFramework) {
    EXPECT_EQ(helpPage(L"", L"TOPIC"), framework::frameworkFolder() + L"help\\TOPIC.html");
    EXPECT_EQ(helpPage(L"C:\\other", L"TOPIC"), L"C:\\other\\TOPIC.html");
}

TEST(HelpPages, noTopicLeadsOutOfTheFolder) {
    EXPECT_EQ(helpPage(L"", L"..\\secret"), L"");
    EXPECT_EQ(helpPage(L"", L"a/b"), L"");
    EXPECT_EQ(helpPage(L"", L"C:x"), L"");
    EXPECT_EQ(helpPage(L"", L""), L"");
}

constexpr const wchar_t* kTopics[] = {L"EDITLAYERSTATESDIALOG", L"SELECTLAYERSTOADDDIALOG", L"NEWLAYERSTATEDIALOG",
                                      kManagerTopic, L"IMPORTLAYERSTATESDIALOG"};

std::string contentOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The files that a page shows or leads to.
std::vector<std::wstring> namedFiles(const std::string& page) {
    std::vector<std::wstring> files;
    const std::regex reference("(?:src|href)=\"([^\"]+)\"");
    for (std::sregex_iterator found(page.begin(), page.end(), reference), end; found != end; ++found) {
        const std::string name = (*found)[1];
        files.emplace_back(name.begin(), name.end());
    }
    return files;
}

TEST(HelpPages, thereIsOneForEachTopicOfTheModule) {
    for (const wchar_t* topic : kTopics)
        EXPECT_THAT(contentOf(helpPage(L"", topic)), HasSubstr("</html>")) << ui::narrow(topic);
}

TEST(HelpPages, whatTheyShowAndLeadToIsInstalled) {
    for (const wchar_t* topic : kTopics) {
        const auto files = namedFiles(contentOf(helpPage(L"", topic)));
        EXPECT_THAT(files, Contains(L"help.css"));
        for (const std::wstring& file : files)
            EXPECT_TRUE(exists(framework::frameworkFolder() + L"help\\" + file)) << ui::narrow(file);
    }
}

TEST(ComponentFiles, standBesideTheFrameworkWhateverTheirPathIs) {
    const std::wstring expected = framework::frameworkFolder() + L"File.xaml";
    for (const wchar_t* path :
         {L"/Component;component/File.xaml", L"/File.xaml", L"/../File.xaml", L"/a;component/..\\File.xaml"})
        EXPECT_EQ(framework::componentFile(path), expected) << ui::narrow(path);
    EXPECT_EQ(framework::componentFile(L"C:\\own\\File.xaml"), L"C:\\own\\File.xaml");
    EXPECT_EQ(framework::componentFile(L""), L"");
}

class Help : public DialogFixture {};

// A script of no steps fails where a window opens.
TEST_F(Help, whereThereIsNoPageNothingOpensAndNothingIsTold) {
    for (const wchar_t* topic : {L"NOSUCHTOPIC", L"..\\secret", static_cast<const wchar_t*>(nullptr)})
        EXPECT_TRUE(ui::perform({}, [topic] { keledHelp(nullptr, topic, 0); }));
    EXPECT_THAT(instruments::trace(),
                ElementsAre("keledHelp(null, \"NOSUCHTOPIC\", 0)", HasSubstr("secret"), "keledHelp(null, null, 0)"));
}

/// Replaces a value in the registry's classes while it lives.
class ReplacedClass {
  public:
    ReplacedClass(const wchar_t* path, const std::wstring& value) : m_path(path) {
        wchar_t text[1024] = {};
        DWORD size = sizeof text;
        m_existed =
            RegGetValueW(HKEY_CLASSES_ROOT, path, nullptr, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS;
        m_before = text;
        set(value);
    }
    ~ReplacedClass() {
        if (m_existed)
            set(m_before);
        else
            RegDeleteTreeW(HKEY_CLASSES_ROOT, m_path);
    }
    ReplacedClass(const ReplacedClass&) = delete;
    ReplacedClass& operator=(const ReplacedClass&) = delete;

  private:
    void set(const std::wstring& value) const {
        RegSetKeyValueW(HKEY_CLASSES_ROOT, m_path, nullptr, REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
    const wchar_t* m_path;
    bool m_existed;
    std::wstring m_before;
};

/// What the program that plays the browser was asked to open.
class OpenedPages {
  public:
    OpenedPages() { DeleteFileW(kFile); }
    ~OpenedPages() { DeleteFileW(kFile); }
    /// The command line of that program for the registry.
    static std::wstring command() {
        wchar_t folder[MAX_PATH] = {};
        GetCurrentDirectoryW(MAX_PATH, folder);
        return L'"' + framework::frameworkFolder() + L"page_opener.exe\" \"" + folder + L'\\' + kFile + L"\" \"%1\"";
    }
    OpenedPages(const OpenedPages&) = delete;
    OpenedPages& operator=(const OpenedPages&) = delete;

    /// The page that was opened, as soon as there is one; empty after 10 seconds.
    std::wstring wait() const {
        const unsigned long long end = GetTickCount64() + 10000;
        wchar_t page[MAX_PATH] = {};
        DWORD read = 0;
        while (read == 0 && GetTickCount64() < end) {
            Sleep(20);
            const HANDLE file = CreateFileW(kFile, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
            if (file == INVALID_HANDLE_VALUE)
                continue;
            ReadFile(file, page, sizeof page - sizeof *page, &read, nullptr);
            CloseHandle(file);
        }
        return page;
    }

  private:
    static constexpr const wchar_t* kFile = L"framework-tests-opened.txt";
};

TEST_F(Help, anExistingPageIsOpenedByTheProgramForItsExtension) {
    const OpenedPages opened;
    const ReplacedClass extension(L".html", L"FrameworkTests.Page");
    const ReplacedClass command(L"FrameworkTests.Page\\shell\\open\\command", OpenedPages::command());
    ui::perform({}, [] { keledHelp(nullptr, kManagerTopic, 0); });
    EXPECT_THAT(opened.wait(), EndsWith(L"\\help\\RESTORELAYERSTATEDIALOG.html"));
}

TEST_F(Help, whereTheExtensionHasNoProgramThePageIsOpenedByTheOneForPages) {
    const OpenedPages opened;
    const ReplacedClass extension(L".html", L"FrameworkTests.NoSuchClass");
    const ReplacedClass command(L"htmlfile\\shell\\open\\command", OpenedPages::command());
    ui::perform({}, [] { keledHelp(nullptr, kManagerTopic, 0); });
    EXPECT_THAT(opened.wait(), EndsWith(L"\\help\\RESTORELAYERSTATEDIALOG.html"));
}

TEST_F(Help, aFolderInThePlaceOfAPageIsNoPage) {
    wchar_t temporary[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring folder = std::wstring(temporary) + L"framework-tests-help";
    CreateDirectoryW(folder.c_str(), nullptr);
    CreateDirectoryW((folder + L"\\TOPIC.html").c_str(), nullptr);
    const OpenedPages opened;
    const ReplacedClass extension(L".html", L"FrameworkTests.Page");
    const ReplacedClass command(L"FrameworkTests.Page\\shell\\open\\command", OpenedPages::command());
    EXPECT_TRUE(ui::perform({}, [&] { keledHelp(folder.c_str(), L"TOPIC", 0); }));
    // If the folder had been opened above, it would be noted before this page.
    ui::perform({}, [] { keledHelp(nullptr, kManagerTopic, 0); });
    EXPECT_THAT(opened.wait(), EndsWith(L"\\help\\RESTORELAYERSTATEDIALOG.html"));
    RemoveDirectoryW((folder + L"\\TOPIC.html").c_str());
    RemoveDirectoryW(folder.c_str());
}

// The number of a Help button's command.
constexpr UINT kHelpCommand = 57670;

/// Counts how often it is asked for its help, though it has no common handler.
class UnhelpfulDialog : public TestDialog {
  public:
    using TestDialog::TestDialog;
    int asked = 0;
    void OnDialogHelp() override { ++asked; }
};

/// Routes the command to the common handler, as the dialogs of modules do.
class HelpingDialog : public UnhelpfulDialog {
  public:
    using UnhelpfulDialog::UnhelpfulDialog;

  protected:
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(HelpingDialog, UnhelpfulDialog)
ON_COMMAND(kHelpCommand, &HelpingDialog::onHelpCommand)
END_MESSAGE_MAP()

TEST_F(Help, theCommonHandlerAsksTheDialogForItsOwnHelp) {
    HelpingDialog dialog{IDD_FIXED};
    dialog.run(look("the command of a Help button", [&] { dialog.SendMessage(WM_COMMAND, kHelpCommand, 0); }));
    EXPECT_EQ(dialog.asked, 1);
}

/// The import selection's way: the command of a standard Help button.
class StandardHelpingDialog : public UnhelpfulDialog {
  public:
    using UnhelpfulDialog::UnhelpfulDialog;

  protected:
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(StandardHelpingDialog, UnhelpfulDialog)
ON_COMMAND(IDHELP, &StandardHelpingDialog::onHelpCommand)
END_MESSAGE_MAP()

template <class Dialog> void expectHelpByF1() {
    Dialog dialog{IDD_FIXED};
    ui::Script script = look("focus a list", [&] { SetFocus(dialog.control(IDC_TEST_LIST)); });
    script.press(VK_F1)
        .waitUntil("it is asked", [&](const ui::View&) { return dialog.asked == 1; })
        .look("focus a button", [&](const ui::View&) { SetFocus(dialog.control(IDC_TEST_BUTTON)); })
        .press(VK_F1)
        .waitUntil("it is asked again", [&](const ui::View&) { return dialog.asked == 2; });
    EXPECT_EQ(dialog.run(script), IDOK);
    EXPECT_EQ(dialog.asked, 2);
}

TEST_F(Help, theF1KeyAsksADialogThatHasTheCommonHandlerForItsHelp) {
    expectHelpByF1<HelpingDialog>();
    expectHelpByF1<StandardHelpingDialog>();
}

/// Counts the F1 keys that reach a control.
LRESULT CALLBACK countHelpKeys(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR count) {
    const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_HELP) // the default handling has sent the dialog its help request by now
        ++*reinterpret_cast<int*>(count);
    return answer;
}

TEST_F(Help, theF1KeyDoesNothingInADialogWithoutTheHandlerAlsoOverOneThatHasIt) {
    HelpingDialog owner{IDD_FIXED};
    UnhelpfulDialog dialog{IDD_RESIZABLE, L"FrameworkTests:Dialog", &owner};
    int pressed = 0;
    ui::Script inside;
    inside.waitUntil("the dialog is shown", [&](const ui::View& view) { return view.window() == dialog.GetSafeHwnd(); })
        .look("focus a button",
              [&](const ui::View&) {
                  const HWND button = dialog.control(IDC_TEST_BUTTON);
                  SetFocus(button);
                  SetWindowSubclass(button, countHelpKeys, 1, reinterpret_cast<DWORD_PTR>(&pressed));
              })
        .press(VK_F1)
        .waitUntil("the key has been heard", [&](const ui::View&) { return pressed == 1; })
        .look("close the dialog", [&](const ui::View&) { dialog.EndDialog(IDOK); });
    owner.onCommand = [&](UINT id) {
        if (id == IDC_TEST_BUTTON)
            dialog.DoModal();
    };
    ui::Script script;
    script.click(IDC_TEST_BUTTON).then(inside).waitUntil("the owner again", [&](const ui::View& view) {
        return view.window() == owner.GetSafeHwnd();
    });
    owner.run(script);
    EXPECT_EQ(dialog.asked, 0);
    EXPECT_EQ(owner.asked, 0);
}

TEST_F(Help, aDialogWithoutItsOwnHelpShowsNone) {
    TestDialog dialog{IDD_FIXED};
    EXPECT_EQ(dialog.run(look("help", [&] { dialog.OnDialogHelp(); })), IDOK);
    EXPECT_THAT(instruments::trace(), testing::Not(Contains(HasSubstr("keledHelp"))));
}

TEST_F(Help, thereIsNoMainWindowWithoutTheApplicationsWindow) {
    EXPECT_EQ(orvsw_vornMainWnd(), nullptr);
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr));
    AfxGetApp()->m_pMainWnd = &window;
    EXPECT_EQ(orvsw_vornMainWnd(), window.GetSafeHwnd());
    AfxGetApp()->m_pMainWnd = nullptr;
    window.DestroyWindow();
}

} // namespace
