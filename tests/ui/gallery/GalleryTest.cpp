#include "GalleryTest.h"

#include "CommandDispatch.h"
#include "LayoutProblems.h"
#include "Runtime.h"
#include "SavedRecentFiles.h"
#include "Screenshot.h"
#include "persistence/DialogStore.h"

namespace fs = std::filesystem;

namespace gallery {

namespace {

constexpr const wchar_t* testRoot = L"Software\\KelGallery\\Dialogs";
constexpr const wchar_t* mainWindowKey = L"Software\\KelWorkbench\\Window";

// Painting reaches the screen little by little. When two looks so far apart are the same, it is done.
constexpr auto paintTime = std::chrono::milliseconds(100);
constexpr const char* sampleFiles[] = {"house.zdr", "site.zdr"};

fs::path programFolder() {
    wchar_t path[MAX_PATH];
    return fs::path(std::wstring(path, GetModuleFileNameW(nullptr, path, MAX_PATH))).parent_path();
}

/// A folder with a name as in an office, because the pictures show paths.
fs::path plansFolder() {
    wchar_t path[MAX_PATH] = L"";
    EXPECT_NE(GetEnvironmentVariableW(L"PUBLIC", path, MAX_PATH), 0u);
    return fs::path(path) / "Documents" / "House plans";
}

void layOutPlans() {
    fs::create_directories(plansFolder());
    for (const char* name : sampleFiles)
        fs::copy_file(programFolder().parent_path() / "samples" / name, plansFolder() / name,
                      fs::copy_options::overwrite_existing);
}

/// A point of the screen where no window is.
POINT awayFromAll() {
    return {GetSystemMetrics(SM_CXSCREEN) - 4, GetSystemMetrics(SM_CYSCREEN) - 4};
}

void forgetPlaces() {
    RegDeleteTreeW(HKEY_CURRENT_USER, testRoot);
    RegDeleteTreeW(HKEY_CURRENT_USER, mainWindowKey);
    RegDeleteTreeW(HKEY_CURRENT_USER, workbench::kRecentFilesKey);
}

/// Where pictures are saved; empty when none are wanted.
std::wstring pictureFolder() {
    wchar_t folder[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"KEL_PICTURES", folder, MAX_PATH);
    return folder;
}

ui::Script awayWithPointer() {
    ui::Script script;
    return script.step("take the pointer away", [](const ui::View&) {
        return ui::pointerRestsAt(awayFromAll()) ? ui::Obstacle() : "the pointer hasn't arrived";
    });
}

} // namespace

GalleryTest::GalleryTest() {
    runtime::reset();
    forgetPlaces();
    framework::DialogStore::setRoot(testRoot);
    m_window = std::make_unique<workbench::MainWindow>();
    EXPECT_TRUE(m_window->createWindow());
    AfxGetApp()->m_pMainWnd = m_window.get();
    EXPECT_EQ(m_modules.load((programFolder() / L"KelLayerApps.xmod").wstring()), L"");
    layOutPlans();
    run(L"OPEN \"" + (plansFolder() / L"house.zdr").wstring() + L"\"");
    EXPECT_TRUE(framework::DialogStore(L"LayerStatesFileDialog").setText(L"Folder", plansFolder().wstring()));
}

GalleryTest::~GalleryTest() {
    m_modules.unloadAll();
    AfxGetApp()->m_pMainWnd = nullptr;
    m_window.reset();
    runtime::reset();
    framework::DialogStore::setRoot({});
    forgetPlaces();
    for (const char* name : sampleFiles)
        fs::remove(plansFolder() / name);
    std::error_code notEmpty;
    fs::remove(plansFolder(), notEmpty);
}

void GalleryTest::run(const std::wstring& line) {
    workbench::runLine(m_window->session(), line);
}

void GalleryTest::useWorkbench(ui::Script script) {
    script.look("leave", [this](const ui::View&) { m_window->DestroyWindow(); });
    ui::perform(std::move(script), [this] {
        m_window->showAtSavedPlace(SW_SHOWNORMAL);
        AfxGetApp()->Run();
    });
}

ui::Script GalleryTest::pictureOfAll(const std::string& name) const {
    ui::Script script = pictureFolder().empty() ? awayWithPointer() : settled();
    return script.look("take the picture " + name, [this, name](const ui::View&) {
        RECT rect{};
        GetWindowRect(m_window->m_hWnd, &rect);
        savePicture(name, rect);
    });
}

void GalleryTest::showDialog(ui::Script script, const std::function<void()>& open) {
    m_window->showAtSavedPlace(SW_SHOWNORMAL);
    ui::perform(std::move(script), open);
}

ui::Script GalleryTest::settled() {
    return awayWithPointer().then(still());
}

ui::Script GalleryTest::still() {
    using Clock = std::chrono::steady_clock;
    struct Look {
        std::vector<char> pixels;
        Clock::time_point at;
    };
    const auto last = std::make_shared<Look>();
    ui::Script script;
    return script.waitUntil("what is painted has reached the screen", [last](const ui::View&) {
        if (Clock::now() - last->at < paintTime)
            return false;
        const std::vector<char> before = std::exchange(last->pixels, ui::screenBytes());
        last->at = Clock::now();
        return before == last->pixels;
    });
}

void GalleryTest::savePicture(const std::string& name, const RECT& part) {
    const std::wstring folder = pictureFolder();
    if (folder.empty())
        return;
    const fs::path path = fs::path(folder) / (name + ".bmp");
    EXPECT_TRUE(ui::saveScreenshot(path.wstring(), part)) << path;
}

ui::Script GalleryTest::picture(const std::string& name) {
    ui::Script script = pictureFolder().empty() ? awayWithPointer() : settled();
    script.look("take the picture " + name, [name](const ui::View& view) { savePicture(name, view.rect()); });
    return script;
}

ui::Script GalleryTest::pictureOfOurs(const std::string& name) {
    ui::Script script;
    script.look("the layout of " + name, [](const ui::View& view) {
        EXPECT_THAT(layoutProblems(view.window()), testing::IsEmpty());
        const RECT window = view.rect(), screen = ui::wholeScreen();
        RECT shown{};
        IntersectRect(&shown, &window, &screen);
        EXPECT_TRUE(EqualRect(&shown, &window)) << "it isn't all on the screen";
    });
    return script.then(picture(name));
}

} // namespace gallery
