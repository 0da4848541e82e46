// Lets the user choose a file, by the system's own file dialog.

#include "OrvUiPickers.h"

#include "instruments/HostCalls.h"
#include "persistence/DialogStore.h"
#include "base/OutOfMemory.h"
#include "pickers/FileFilter.h"
#include "pickers/TypedAddress.h"

#include <windows.h>

#include <commdlg.h>

#include <array>
#include <cwchar>

using framework::DialogStore;
using instruments::HostCall;

namespace {

constexpr int kSave = 1;
constexpr const wchar_t* kFolder = L"Folder";

using PathBuffer = std::array<wchar_t, 0x8000>;

/// Puts the name into the path without the characters that a path can't hold: with them the system's dialog refuses the
/// whole name.
void putName(PathBuffer& path, const wchar_t* name) {
    std::size_t length = 0;
    for (; name && *name && length < MAX_PATH; ++name)
        if (*name >= L' ' && !std::wcschr(L"<>:\"/\\|?*", *name))
            path[length++] = *name;
    path[length] = L'\0';
}

/// What the user chose: a path or an address. Both are empty when the user cancelled.
struct Choice {
    std::wstring path;
    std::wstring address; ///< of a remote file, as it was typed
};

Choice choose(OPENFILENAMEW& dialog, bool save) {
    const framework::TypedAddress address(dialog.hwndOwner, dialog.lpstrTitle);
    const BOOL chosen = save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    return {chosen ? dialog.lpstrFile : std::wstring(), address.text()};
}

/// The folder of a file. A drive's root keeps its backslash: without it, it would mean the drive's current folder.
std::wstring folderOf(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L"\\/");
    const bool root = end != std::wstring::npos && end > 0 && path[end - 1] == L':';
    return path.substr(0, root ? end + 1 : end);
}

/// The folder that was used last. Empty when there was none or it is gone: the system's dialog may fail when it is
/// given a folder that isn't there.
std::wstring keptFolder(const DialogStore& store) {
    const std::wstring folder = store.text(kFolder).value_or(L"");
    const DWORD attributes = folder.size() < MAX_PATH ? GetFileAttributesW(folder.c_str()) : INVALID_FILE_ATTRIBUTES;
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
    return exists ? folder : std::wstring();
}

void keepFolder(const DialogStore& store, const std::wstring& folder) {
    // When this can't be written, the next dialog begins in another folder, nothing else.
    [[maybe_unused]] const bool kept = store.setText(kFolder, folder);
}

ResultBuffer* chainOf(const std::wstring& path) {
    ResultBuffer* node = kelutNewRb(kVariableString);
    if (!node)
        return nullptr;
    node->value.string = _wcsdup(path.c_str());
    if (node->value.string)
        return node;
    kelutRelRb(node);
    return nullptr;
}

} // namespace

int keledGetFileNavDialog(const wchar_t* title, const wchar_t* defaultName, const wchar_t* extensions,
                          const wchar_t* dialogKey, int flags, ResultBuffer** result) {
    return framework::answerOr(kResultError, [&] {
        HostCall call("keledGetFileNavDialog", title, defaultName, extensions, dialogKey, flags);
        *result = nullptr;
        if (call.fault())
            return call.answer(kResultError);
        const auto types = framework::splitExtensions(extensions ? extensions : L"");
        const std::wstring filter = framework::fileFilter(types);
        const DialogStore store(dialogKey ? dialogKey : L"");
        const std::wstring folder = keptFolder(store);
        PathBuffer path;
        putName(path, defaultName);

        OPENFILENAMEW dialog = {};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = GetActiveWindow();
        dialog.lpstrFilter = filter.c_str();
        dialog.lpstrFile = path.data();
        dialog.nMaxFile = static_cast<DWORD>(path.size());
        dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
        dialog.lpstrTitle = title;
        dialog.lpstrDefExt = types.empty() ? nullptr : types.front().c_str();
        // The working folder is the process's, not this dialog's.
        dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST |
                       (flags == kSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
        const Choice choice = choose(dialog, flags == kSave);
        const std::wstring& chosen = choice.address.empty() ? choice.path : choice.address;
        if (chosen.empty())
            return call.answer(kResultCancel);
        if (choice.address.empty())
            keepFolder(store, folderOf(chosen));
        *result = chainOf(chosen);
        call.out("path", chosen);
        return call.answer(*result ? kResultNormal : kResultError);
    });
}
