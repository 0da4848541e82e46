#include "TypedPaths.h"

#include "CommandText.h"

#include "files/OutsidePaths.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <filesystem>

namespace workbench {

namespace {

namespace fs = std::filesystem;

/// What the names of files can't hold.
constexpr std::wstring_view kNotInNames = L"<>:\"/\\|?*";

std::wstring withEnding(const std::wstring& typed) {
    return zdr::systemPath(typed).has_extension() ? typed : typed + kDrawingEnding;
}

SoughtFile sought(const std::wstring& typed, const std::wstring& drawing) {
    const std::vector<std::wstring> places = placesOf(typed, drawing);
    const auto isThere = [](const std::wstring& place) {
        std::error_code error;
        const fs::path path = zdr::systemPath(place);
        return fs::exists(path, error) && !fs::is_directory(path, error);
    };
    const auto found = std::ranges::find_if(places, isThere);
    if (found == places.end())
        return {places[0], places.size() > 1 ? zdr::widePath(zdr::systemPath(places[1]).parent_path()) : L"", {}};
    const fs::path path = zdr::systemPath(typed);
    const bool isFromDrawing = found == places.begin() && !drawing.empty() && !path.has_root_path();
    return {*found, {}, isFromDrawing ? zdr::widePath(path.lexically_normal()) : L""};
}

} // namespace

std::wstring SoughtFile::completed(std::wstring sentence) const {
    if (elsewhere.empty())
        return sentence;
    if (sentence.ends_with(L'.'))
        sentence.pop_back();
    return sentence + L", nor is it in \"" + elsewhere + L"\".";
}

std::vector<std::wstring> placesOf(const std::wstring& path, const std::wstring& drawing) {
    std::vector<std::wstring> places;
    if (!drawing.empty())
        places.push_back(zdr::fullPath(zdr::referencePath(drawing, path)));
    const std::wstring started = zdr::fullPath(path);
    if (places.empty() || !zdr::isSamePath(places.front(), started))
        places.push_back(started);
    return places;
}

SoughtFile soughtFile(const std::wstring& typed, const std::wstring& drawing) {
    return sought(typed, drawing);
}

SoughtFile soughtDrawing(const std::wstring& typed, const std::wstring& drawing) {
    return sought(withEnding(typed), drawing);
}

std::wstring drawingToWrite(const std::wstring& typed, const std::wstring& drawing) {
    return placesOf(withEnding(typed), drawing).front();
}

std::wstring fileNameProblem(const std::wstring& path) {
    const std::wstring name = zdr::widePath(zdr::systemPath(path).filename());
    const auto isForbidden = [](wchar_t letter) {
        return letter < L' ' || kNotInNames.find(letter) != std::wstring_view::npos;
    };
    if (!name.empty() && std::ranges::none_of(name, isForbidden))
        return {};
    return quotation(name) + L" can't be the name of a file: give one without < > : \" / \\ | ? *.";
}

} // namespace workbench
