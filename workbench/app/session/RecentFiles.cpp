#include "RecentFiles.h"

#include "files/OutsidePaths.h"

#include <algorithm>

namespace workbench {

namespace {

constexpr std::size_t kLongestPath = 32767;
constexpr std::size_t kLongestInMenu = 60;
constexpr std::wstring_view kGap = L"...";
constexpr const wchar_t* kSeparators = L"\\/";

/// A line break or a quote would make another line of the one that opens the file.
bool isPath(const std::wstring& path) {
    const auto isOdd = [](wchar_t letter) { return letter < L' ' || letter == L'"'; };
    return !path.empty() && path.size() <= kLongestPath && std::ranges::none_of(path, isOdd);
}

/// How much of a path is its drive, "C:\", or its server and share, "\\server\share\".
std::size_t rootLength(const std::wstring& path) {
    const bool isOnServer = path.starts_with(L"\\\\") || path.starts_with(L"//");
    std::size_t end = isOnServer ? path.find_first_of(kSeparators, 2) : 0;
    if (end != std::wstring::npos)
        end = path.find_first_of(kSeparators, isOnServer ? end + 1 : 0);
    return end == std::wstring::npos ? 0 : end + 1;
}

/// Whether a text can't be cut at that place, because the two halves of one character lie there.
bool isInsideCharacter(const std::wstring& text, std::size_t place) {
    return place > 0 && place < text.size() && (text[place] & 0xFC00) == 0xDC00 && (text[place - 1] & 0xFC00) == 0xD800;
}

/// The beginning and the end of a text, so much of each that `most` characters come together.
std::wstring withoutMiddle(const std::wstring& text, std::size_t most) {
    std::size_t head = (most - kGap.size()) / 2;
    std::size_t tail = text.size() - (most - kGap.size() - head);
    head -= isInsideCharacter(text, head) ? 1 : 0;
    tail += isInsideCharacter(text, tail) ? 1 : 0;
    return text.substr(0, head).append(kGap).append(text, tail);
}

} // namespace

RecentFiles::RecentFiles(const std::vector<std::wstring>& kept) {
    for (const std::wstring& path : kept) {
        const bool isKnown =
            std::ranges::any_of(m_paths, [&](const std::wstring& known) { return zdr::isSamePath(known, path); });
        if (m_paths.size() < kMost && !isKnown && isPath(path))
            m_paths.push_back(path);
    }
}

void RecentFiles::add(const std::wstring& path) {
    if (!isPath(path))
        return;
    remove(path);
    m_paths.insert(m_paths.begin(), path);
    m_paths.resize(std::min(m_paths.size(), kMost));
}

bool RecentFiles::remove(const std::wstring& path) {
    return std::erase_if(m_paths, [&](const std::wstring& known) { return zdr::isSamePath(known, path); }) > 0;
}

std::wstring shortenedPath(const std::wstring& path, std::size_t most) {
    if (path.size() <= most)
        return path;
    const std::wstring start = path.substr(0, rootLength(path)).append(kGap);
    // The first separator from which on the rest fits; the last one stands before the file's name.
    const std::size_t name = path.find_last_of(kSeparators);
    if (name == std::wstring::npos || start.size() + path.size() - name > most)
        return withoutMiddle(path, most);
    const std::size_t least = path.size() - (most - start.size());
    return start + path.substr(path.find_first_of(kSeparators, least));
}

std::wstring recentFileText(std::size_t number, const std::wstring& path) {
    std::wstring text = L'&' + std::to_wstring(number) + L' ';
    for (const wchar_t letter : shortenedPath(path, kLongestInMenu))
        text.append(letter == L'&' ? 2 : 1, letter);
    return text;
}

} // namespace workbench
