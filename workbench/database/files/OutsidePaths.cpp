// Windows takes many spellings for one path: either separator, `\\?\` and `\\.\` in front, the system's own `\??\`, and
// `..` behind all of them. A spelling that only the system can resolve counts as outside. The rules are the same on
// every system, so that a drawing doesn't lead elsewhere on another one.
#include "OutsidePaths.h"

#include "TextCoding.h"
#include "model/CaseFolding.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace zdr {
namespace {

constexpr std::wstring_view kServer = L"\\\\";
constexpr std::wstring_view kVerbatim = L"\\\\?\\"; // what follows is taken as it stands
constexpr std::wstring_view kSystemsOwn = L"\\??\\";
constexpr std::wstring_view kVerbatimServer = L"UNC\\";

std::wstring withBackslashes(std::wstring_view path) {
    std::wstring text(path);
    std::ranges::replace(text, L'/', L'\\');
    return text;
}

bool beginsWith(std::wstring_view text, std::wstring_view beginning) {
    return equalFolded(text.substr(0, beginning.size()), beginning);
}

bool isLetter(wchar_t character) {
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
}

bool isDrive(std::wstring_view text) {
    return text.size() >= 2 && isLetter(text[0]) && text[1] == L':';
}

/// "http:\...". A single letter is a drive.
bool isAddress(std::wstring_view text) {
    const std::size_t end = text.find(L':');
    return end != std::wstring_view::npos && end >= 2 && isLetter(text[0]) && text.substr(end + 1).starts_with(L'\\') &&
           std::ranges::all_of(text.substr(0, end), [](wchar_t character) {
               return isLetter(character) || std::wstring_view(L"0123456789+-.").find(character) != std::wstring::npos;
           });
}

std::vector<std::wstring_view> namesIn(std::wstring_view text) {
    std::vector<std::wstring_view> names;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(L'\\', start), text.size());
        if (end > start)
            names.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

/// The path of these names, of which the first `fixed` ones can't be left by `..`.
std::wstring joined(std::wstring_view beginning, const std::vector<std::wstring_view>& names, std::size_t fixed) {
    std::vector<std::wstring_view> kept;
    for (const std::wstring_view name : names) {
        if (kept.size() < fixed || (name != L"." && name != L".."))
            kept.push_back(name);
        else if (name == L".." && kept.size() > fixed)
            kept.pop_back();
    }
    std::wstring path(beginning);
    for (const std::wstring_view name : kept)
        path.append(path.empty() || path.ends_with(L'\\') ? L"" : L"\\").append(name);
    return path;
}

/// The folder of a file of these names.
std::wstring folderOf(std::wstring_view beginning, std::vector<std::wstring_view> names, std::size_t fixed) {
    if (!names.empty())
        names.pop_back();
    return joined(beginning, names, fixed);
}

// How many names of a server's path `..` can't leave: its own, and that of the folder which it shares.
constexpr std::size_t kFixedOnServer = 2;

/// @param names the server's, its folder's and so on
PathPlace placeOnServer(const std::vector<std::wstring_view>& names) {
    return {PathPlace::Kind::Outside, std::wstring(names.empty() ? std::wstring_view() : names[0]),
            folderOf(kServer, names, kFixedOnServer)};
}

/// Whether only the system knows where it leads, if not back into the network.
bool isDevice(std::wstring_view text) {
    if (text.starts_with(kSystemsOwn))
        return true;
    const std::vector<std::wstring_view> names = namesIn(text);
    return text.starts_with(kServer) && !names.empty() && (names[0] == L"?" || names[0] == L".");
}

/// What stands behind `\\?\` in a path that the system takes as it stands; none for all others.
std::optional<std::wstring_view> verbatimRest(std::wstring_view path) {
    const auto isDots = [](std::wstring_view name) { return name == L"." || name == L".."; };
    if (!path.starts_with(kVerbatim) || path.find(L'/') != std::wstring_view::npos ||
        std::ranges::any_of(namesIn(path), isDots))
        return std::nullopt;
    return path.substr(kVerbatim.size());
}

/// A drive may stand for another one, or for a folder of it.
bool leadsToNetwork(wchar_t letter, const DriveTarget& targetOf) {
    constexpr int kLetters = 26;
    for (int i = 0; i < kLetters; ++i) {
        const std::wstring target = targetOf(letter);
        if (!target.starts_with(kSystemsOwn))
            // A semicolon tells that a connection to a server follows.
            return target.find(L"\\;") != std::wstring::npos || beginsWith(target, L"\\Device\\Mup") ||
                   beginsWith(target, L"\\Device\\LanmanRedirector");
        const std::wstring_view rest = std::wstring_view(target).substr(kSystemsOwn.size());
        if (!isDrive(rest))
            return true;
        letter = rest[0];
    }
    return true; // in a circle
}

PathPlace placeOnDrive(std::wstring_view text, const DriveTarget& targetOf) {
    if (!leadsToNetwork(foldCharacter(text[0]), targetOf))
        return {};
    const std::wstring drive(text.substr(0, 2));
    const std::wstring_view rest = text.substr(2);
    return {PathPlace::Kind::Outside, drive,
            folderOf(drive + (rest.starts_with(L'\\') ? L"\\" : L""), namesIn(rest), 0)};
}

/// With the separator at its end.
std::wstring_view folderIn(std::wstring_view path) {
    const std::size_t end = path.find_last_of(L"\\/");
    return end != std::wstring_view::npos ? path.substr(0, end + 1) : path.substr(0, isDrive(path) ? 2 : 0);
}

/// The drive of a path, or its server and the folder there; empty when it has neither.
std::wstring_view rootIn(std::wstring_view path) {
    const std::wstring text = withBackslashes(path);
    if (isDrive(text))
        return path.substr(0, 2);
    const std::vector<std::wstring_view> names = namesIn(text);
    if (!text.starts_with(kServer) || names.size() < 2)
        return {};
    const bool isVerbatimServer = isDevice(text) && equalFolded(names[1], L"UNC");
    const std::wstring_view last = names[std::min<std::size_t>(isVerbatimServer ? 3 : 1, names.size() - 1)];
    return path.substr(0, static_cast<std::size_t>(last.data() - text.data()) + last.size());
}

} // namespace

PathPlace placeOf(std::wstring_view path, const DriveTarget& targetOf) {
    const std::wstring text = withBackslashes(path);
    if (isAddress(text))
        return {PathPlace::Kind::Address, {}, {}};
    const std::wstring_view rest = verbatimRest(path).value_or(std::wstring_view());
    if (beginsWith(rest, kVerbatimServer))
        return placeOnServer(namesIn(rest.substr(kVerbatimServer.size())));
    if (isDrive(rest) && rest.substr(2).starts_with(L'\\'))
        return placeOnDrive(rest, targetOf);
    if (isDevice(text)) {
        // As it stands: here `..` may lead from a disk into the network.
        const std::wstring folder = text.substr(0, text.rfind(L'\\'));
        return {PathPlace::Kind::Outside, folder, folder};
    }
    if (text.starts_with(kServer))
        return placeOnServer(namesIn(text));
    return isDrive(text) ? placeOnDrive(text, targetOf) : PathPlace{};
}

bool areOnOneComputer(const PathPlace& one, const PathPlace& other) {
    constexpr auto kOutside = PathPlace::Kind::Outside;
    return one.kind == kOutside && other.kind == kOutside && !one.computer.empty() &&
           equalFolded(one.computer, other.computer);
}

std::wstring referencePath(const std::wstring& drawing, const std::wstring& path) {
    const std::wstring text = withBackslashes(path);
    const std::wstring_view folder = folderIn(drawing);
    const auto appended = [](std::wstring_view beginning, std::wstring_view end) {
        return widePath(systemPath(std::wstring(beginning).append(end)));
    };
    if (isAddress(text) || text.starts_with(kServer) || text.starts_with(kSystemsOwn))
        return appended({}, path);
    if (isDrive(text)) {
        const bool isFromFolder = !text.substr(2).starts_with(L'\\') && isDrive(drawing) &&
                                  foldCharacter(drawing[0]) == foldCharacter(text[0]);
        return isFromFolder ? appended(folder, path.substr(2)) : appended({}, path);
    }
    return appended(text.starts_with(L'\\') ? rootIn(drawing) : folder, path);
}

std::wstring fullPath(const std::wstring& path) {
    const std::wstring text = withBackslashes(path);
    if (isDevice(text))
        return path;
    // The library takes the server's name for a folder of the current drive.
    if (text.starts_with(kServer)) {
        const std::wstring full = joined(kServer, namesIn(text), kFixedOnServer);
        return text.ends_with(L'\\') && !full.ends_with(L'\\') ? full + L'\\' : full;
    }
    std::error_code error;
    const std::filesystem::path typed = systemPath(path);
    const std::filesystem::path full = std::filesystem::absolute(typed, error);
    return widePath(error ? typed : full.lexically_normal());
}

bool isSamePath(std::wstring_view one, std::wstring_view other) {
    return equalFolded(withBackslashes(one), withBackslashes(other));
}

} // namespace zdr
