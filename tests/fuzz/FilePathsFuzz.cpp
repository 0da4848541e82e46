// Fuzzer of the path helpers: whatever the text, nothing is written beyond the room for a path, and the parts fit
// together.
//
// The input is a text in 16-bit units, the low byte first, up to the first zero.
#include "FilePaths.h"
#include "FuzzRules.h"

#include <array>
#include <cwchar>
#include <vector>

namespace {

/// Room for a path, with a mark behind it that nothing may overwrite.
struct Room {
    std::array<wchar_t, kPathLength + 1> text;
    Room() {
        text.fill(L'?');
        text.back() = L'!';
    }
    std::wstring read() const {
        stopUnless(text.back() == L'!', "something is written beyond the room");
        const std::size_t length = wcsnlen(text.data(), kPathLength);
        stopUnless(length < kPathLength, "a path doesn't end");
        return {text.data(), length};
    }
};

std::wstring textOf(const unsigned char* data, std::size_t size) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const auto unit = static_cast<wchar_t>(data[i] | data[i + 1] << 8);
        if (unit == 0)
            break;
        text.push_back(unit);
    }
    return text;
}

void checkNormalPath(const std::wstring& path) {
    Room room;
    normalizePath(room.text.data(), path.c_str());
    const std::wstring normal = room.read();
    stopUnless(normal.size() <= path.size(), "a path has grown");
    const bool address = normal.find(L'/') != std::wstring::npos;
    Room again;
    normalizePath(again.text.data(), normal.c_str());
    stopUnless(again.read().size() <= normal.size(), "a normal path has grown");
    stopUnless(!address || path.find(L'/') != std::wstring::npos, "a slash comes from nowhere");
}

void checkFolder(const std::wstring& path) {
    Room room;
    const int length = getDirectoryPart(path.c_str(), room.text.data());
    const std::wstring folder = room.read();
    stopUnless(folder.size() == static_cast<std::size_t>(length), "the length isn't the folder's");
    stopUnless(folder.size() <= path.size() + 1, "a folder is longer than its path");
    const std::wstring kept = folder.ends_with(L'\\') ? folder.substr(0, folder.size() - 1) : folder;
    stopUnless(path.starts_with(kept), "a folder isn't where its path begins");
}

void checkExtension(const std::wstring& path) {
    const std::wstring extension = extensionOf(path.c_str()).GetString();
    stopUnless(extension.find(L'.') == std::wstring::npos, "an extension has a dot");
    stopUnless(extension.empty() || endsWith(path.c_str(), extension.c_str()), "a path doesn't end with its extension");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::wstring path = textOf(data, size);
    checkNormalPath(path);
    checkFolder(path);
    checkExtension(path);
    Room stripped;
    stripFileUrl(path.c_str(), stripped.text.data());
    stopUnless(stripped.read().size() <= path.size(), "a text has grown");
    return 0;
}
