// Task dialogs, the questions and refusals about names, and the window of what takes long.

#include "GalleryTest.h"

#include "OrvUiServices.h"
#include "progress/LongWork.h"
#include "progress/ProgressIds.h"
#include "resources/resource.h"

using gallery::GalleryTest;
using ui::Script;

namespace {

class Dialogs : public GalleryTest {
  protected:
    void show(const std::string& name, const std::function<void()>& open) {
        Script script;
        script.then(picture(name)).press(VK_ESCAPE);
        showDialog(std::move(script), open);
    }
    static std::wstring moduleText(unsigned int id) {
        wchar_t text[128] = L"";
        LoadStringW(GetModuleHandleW(L"KelLayerAppsRes.dll"), id, text, 128);
        return text;
    }
};

TEST_F(Dialogs, whatTheModuleTellsAndAsks) {
    const std::pair<const char*, const wchar_t*> dialogs[] = {
        {"restore-refused", L"KelLayerApps.CannotRestoreLayerState"},
        {"import-name-taken", L"KelLayerApps.LayerStateDuplicates"},
        {"import-none-found", L"KelLayerApps.LayerStateNoneFound"},
        {"import-succeeded", L"KelLayerApps.LayerStateSuccessfulImport"},
        {"import-none-selected", L"KelLayerApps.LayerStateNoneSelected"},
        {"add-no-layer", L"KelLayerApps.LayerStateAddLayer"},
    };
    const TASKDIALOG_KEYVALUE pairs[] = {{L"FileName", L"C:\\Users\\Public\\Documents\\House plans\\Ground floor.las"}};
    for (const auto& [name, key] : dialogs) {
        COrvTaskDialog dialog;
        ASSERT_TRUE(dialog.LoadFromFile(L"/KelTaskDialogs;component/TaskDialogs.xaml", key, pairs, 1)) << name;
        show(name, [&] { dialog.ShowDialog(window().GetSafeHwnd()); });
    }
}

TEST_F(Dialogs, whatTakesLong) {
    framework::LongWork::setDelay(std::chrono::milliseconds(0));
    const HANDLE never = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    Script script;
    script.waitForControl(IDC_PROGRESS_BAR).then(pictureOfOurs("progress")).press(VK_ESCAPE);
    showDialog(std::move(script), [never] {
        framework::LongWork work(L"Fetching File", L"https://server.example/House plans/Ground floor and garden.zdr",
                                 L"Waiting for the server...");
        work.advance(912'000'000, 1'073'000'000);
        EXPECT_EQ(work.waitFor(never, std::chrono::minutes(2)), framework::LongWork::Waited::Cancelled);
    });
    CloseHandle(never);
    framework::LongWork::setDelay(framework::kUsualDelay);
}

TEST_F(Dialogs, theNameThatExists) {
    show("name-exists", [&] {
        CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(moduleText(IDS_LSTATE_KIND).c_str(),
                                                                     L"Plumbing plan", &window());
    });
}

TEST_F(Dialogs, theNamesThatAreRefused) {
    using Refusal = unsigned int (*)(const wchar_t*, const wchar_t*, CWnd*);
    const std::pair<const char*, Refusal> refusals[] = {
        {"name-empty", &CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog},
        {"name-too-long", &CKelStandardTaskDialog::ShowInvalidNameTooLongDialog},
        {"name-characters", &CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters},
    };
    for (const auto& [name, refuse] : refusals)
        show(name, [&, refuse = refuse] {
            refuse(moduleText(IDS_LSTATE_KIND).c_str(), moduleText(IDS_LSTATE_NAME_ADVICE).c_str(), &window());
        });
}

} // namespace
