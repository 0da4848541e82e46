#include "FilePrompt.h"

#include <commdlg.h>

namespace workbench {

namespace {

/// A kind of files: the rows of the dialog's list of kinds, and the ending that is added to a name without one.
struct FileKind {
    const wchar_t* filter;
    const wchar_t* ending; ///< null for none
};
constexpr FileKind kDrawings{L"Drawings (*.zdr)\0*.zdr\0Templates and standards (*.zdt, *.zds)\0*.zdt;*.zds\0"
                             L"All files (*.*)\0*.*\0",
                             L"zdr"};
constexpr FileKind kScripts{L"Scripts (*.scr, *.txt)\0*.scr;*.txt\0All files (*.*)\0*.*\0", nullptr};
constexpr DWORD kLongestPath = 4096;

std::optional<std::wstring> prompt(HWND owner, const FileKind& kind, const std::wstring& folder,
                                   const std::wstring& proposal, BOOL(WINAPI* ask)(OPENFILENAMEW*)) {
    std::wstring path(kLongestPath, L'\0');
    proposal.copy(path.data(), kLongestPath - 1);
    OPENFILENAMEW arguments{};
    arguments.lStructSize = sizeof arguments;
    arguments.hwndOwner = owner;
    arguments.lpstrFilter = kind.filter;
    arguments.lpstrFile = path.data();
    arguments.nMaxFile = kLongestPath;
    arguments.lpstrDefExt = kind.ending;
    arguments.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    arguments.Flags = OFN_PATHMUSTEXIST | OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (!ask(&arguments))
        return std::nullopt;
    path.resize(wcslen(path.c_str()));
    return path;
}

} // namespace

std::optional<std::wstring> promptForDrawingToOpen(HWND owner, const std::wstring& folder) {
    // No OFN_FILEMUSTEXIST: reading tells about a file that isn't there, as about every other failure.
    return prompt(owner, kDrawings, folder, {}, GetOpenFileNameW);
}

std::optional<std::wstring> promptForScript(HWND owner, const std::wstring& folder) {
    return prompt(owner, kScripts, folder, {}, GetOpenFileNameW);
}

std::optional<std::wstring> promptForDrawingToSave(HWND owner, const std::wstring& proposal) {
    // No OFN_OVERWRITEPROMPT: the saving asks about a file that is there, however its name was given.
    return prompt(owner, kDrawings, {}, proposal, GetSaveFileNameW);
}

} // namespace workbench
