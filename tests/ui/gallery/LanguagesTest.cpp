// The module's dialogs in every language, straight from their templates: which one the system takes for a user is its
// own affair.

#include "GalleryTest.h"

#include "LayoutProblems.h"
#include "resources/resource.h"

#include <set>

using gallery::GalleryTest;

namespace {

/// One dialog template in one language.
struct Template {
    std::wstring id;
    WORD language;
};

std::vector<Template> templatesOf(HMODULE resources) {
    std::vector<Template> found;
    EnumResourceNamesW(
        resources, RT_DIALOG,
        [](HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR result) -> BOOL {
            return EnumResourceLanguagesW(
                module, type, name,
                [](HMODULE, LPCWSTR, LPCWSTR id, WORD language, LONG_PTR list) -> BOOL {
                    reinterpret_cast<std::vector<Template>*>(list)->push_back(
                        {L"#" + std::to_wstring(reinterpret_cast<ULONG_PTR>(id)), language});
                    return TRUE;
                },
                result);
        },
        reinterpret_cast<LONG_PTR>(&found));
    return found;
}

INT_PTR CALLBACK bareProcedure(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

class Languages : public GalleryTest {
  protected:
    HMODULE resources = GetModuleHandleW(L"KelLayerAppsRes.dll");

    HWND show(const Template& which) {
        const HRSRC found = FindResourceExW(resources, RT_DIALOG, which.id.c_str(), which.language);
        const HGLOBAL loaded = found ? LoadResource(resources, found) : nullptr;
        const HWND dialog = CreateDialogIndirectW(resources, static_cast<LPCDLGTEMPLATEW>(LockResource(loaded)),
                                                  nullptr, bareProcedure);
        ShowWindow(dialog, SW_SHOWNA);
        return dialog;
    }
};

TEST_F(Languages, theTextsOfEachFitTheirControls) {
    std::set<WORD> languages;
    for (const Template& each : templatesOf(resources)) {
        SCOPED_TRACE(ui::narrow(each.id) + " in language " + std::to_string(each.language));
        languages.insert(each.language);
        const HWND dialog = show(each);
        ASSERT_NE(dialog, nullptr);
        EXPECT_THAT(gallery::layoutProblems(dialog), testing::IsEmpty());
        DestroyWindow(dialog);
    }
    EXPECT_THAT(languages, testing::ElementsAre(MAKELANGID(LANG_GERMAN, SUBLANG_NEUTRAL),
                                                MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)));
}

TEST_F(Languages, thePromptBeforeADeleteHasRoomForTheLongestName) {
    for (const Template& each : templatesOf(resources)) {
        if (each.id != L"#" + std::to_wstring(IDD_LSTATE_DEL))
            continue;
        SCOPED_TRACE("language " + std::to_string(each.language));
        const HWND dialog = show(each);
        ASSERT_NE(dialog, nullptr);
        std::wstring prompt = ui::View(dialog).text(IDC_LSTATE_DEL_PROMPT);
        const std::size_t place = prompt.find(L"%s");
        ASSERT_NE(place, std::wstring::npos);
        prompt.replace(place, 2, std::wstring(255, L'W')); // the widest letter
        SetDlgItemTextW(dialog, IDC_LSTATE_DEL_PROMPT, prompt.c_str());
        EXPECT_THAT(gallery::layoutProblems(dialog), testing::IsEmpty());
        DestroyWindow(dialog);
    }
}

// The second half of a double click on the button falls where the button was before it opened the panel.
TEST_F(Languages, noButtonComesToLieWhereTheManagersPanelIsOpened) {
    int checked = 0;
    for (const Template& each : templatesOf(resources)) {
        if (each.id != L"#" + std::to_wstring(IDD_LSTATE_RES))
            continue;
        SCOPED_TRACE("language " + std::to_string(each.language));
        const HWND dialog = show(each);
        ASSERT_NE(dialog, nullptr);
        const ui::View view(dialog);
        RECT opener = view.rect(IDC_LSTATE_RES_EXPAND);
        OffsetRect(&opener, view.rect(IDC_LSTATE_RES_NEW).right - view.rect(IDC_LSTATE_RES_PANEL).right, 0);
        InflateRect(&opener, GetSystemMetrics(SM_CXDOUBLECLK), GetSystemMetrics(SM_CYDOUBLECLK));
        for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            RECT place{}, common{};
            GetWindowRect(child, &place);
            EXPECT_FALSE(IntersectRect(&common, &opener, &place)) << "control " << GetDlgCtrlID(child);
        }
        DestroyWindow(dialog);
        ++checked;
    }
    EXPECT_EQ(checked, 2) << "English and German";
}

} // namespace
