#include "FilePaths.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace {

constexpr const wchar_t* kFileUrl = L"file:///";

int lengthOf(const wchar_t* text) {
    return static_cast<int>(std::wcslen(text));
}

void copyText(wchar_t* out, const wchar_t* text, int length) {
    length = std::min(length, kPathLength - 1);
    std::wmemmove(out, text, static_cast<std::size_t>(length));
    out[length] = L'\0';
}

bool isAddress(const wchar_t* path) {
    CString lower = path;
    lower.MakeLower();
    return lower.Find(kFileUrl) >= 0 || lower.Find(L"http://") >= 0;
}

void useBackslashes(wchar_t* path) {
    std::replace(path, path + std::wcslen(path), L'/', L'\\');
}

bool namesFolder(const wchar_t* path) {
    constexpr const wchar_t* kWholes[] = {L".", L".."};
    constexpr const wchar_t* kEnds[] = {L"\\", L"\\.", L"\\..", L":", L":.", L":.."};
    return std::any_of(std::begin(kWholes), std::end(kWholes),
                       [path](const wchar_t* whole) { return std::wcscmp(path, whole) == 0; }) ||
           std::any_of(std::begin(kEnds), std::end(kEnds), [path](const wchar_t* end) { return endsWith(path, end); });
}

/// Where the file's name is divided from its folder: how many characters the folder has, -1 for a name alone.
int folderLength(const CString& path) {
    const int separator = std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
    const int colon = path.ReverseFind(L':');
    return colon > separator ? colon + 1 : separator;
}

} // namespace

void normalizePath(wchar_t* out, const wchar_t* path) {
    copyText(out, path ? path : L"", path ? lengthOf(path) : 0);
    if (!isAddress(out))
        useBackslashes(out);
    stripFileUrl(out, out);
    constexpr int kRootLength = 3;
    const int length = lengthOf(out);
    if ((length == kRootLength && endsWith(out, L":\\")) || !endsWith(out, L"\\"))
        return;
    out[length - 1] = L'\0';
}

void stripFileUrl(const wchar_t* path, wchar_t* out) {
    const wchar_t* url = std::wcsstr(path, kFileUrl);
    if (!url) {
        copyText(out, path, lengthOf(path));
        return;
    }
    CString rest(path, static_cast<int>(url - path));
    rest += url + std::wcslen(kFileUrl);
    copyText(out, rest, rest.GetLength());
    useBackslashes(out);
}

int getDirectoryPart(const wchar_t* path, wchar_t* out) {
    const CString whole = path;
    out[0] = L'\0';
    if (whole.IsEmpty())
        return 0;
    if (namesFolder(path)) {
        copyText(out, path, whole.GetLength());
        return lengthOf(out);
    }
    const int length = folderLength(whole);
    if (length < 0)
        return 0;
    CString folder = whole.Left(length);
    if (endsWith(folder, L":"))
        folder += L'\\';
    copyText(out, folder, folder.GetLength());
    return lengthOf(out);
}

CString extensionOf(const wchar_t* path) {
    wchar_t folder[kPathLength];
    const int skipped = std::min(getDirectoryPart(path, folder), lengthOf(path));
    CString name = path + skipped;
    name.TrimLeft(L'\\');
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? CString() : name.Mid(dot + 1);
}

bool endsWith(const wchar_t* text, const wchar_t* tail) {
    if (!text || !tail || !*tail)
        return false;
    const std::size_t length = std::wcslen(text);
    const std::size_t tailLength = std::wcslen(tail);
    return length >= tailLength && std::wcscmp(text + (length - tailLength), tail) == 0;
}
