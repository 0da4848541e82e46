#include "ShownText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zdr {
namespace {

// What is wrong with a longer text is seen in its beginning or not at all.
constexpr std::size_t kLongestShown = 300;
// Stands for a character that isn't shown.
constexpr wchar_t kMark = L'\uFFFD';

/// Whether it is the first half of a character that takes two.
bool isFirstOfPair(wchar_t character) {
    return character >= 0xD800 && character < 0xDC00;
}

/// What would change how a line looks without being seen itself: controls, and marks that join, break or turn a text.
bool isUnshowable(wchar_t character) {
    constexpr std::pair<unsigned, unsigned> kInvisible[] = {
        {0xAD, 0xAD},     {0x61C, 0x61C},   {0x180E, 0x180E}, {0x200B, 0x200F},
        {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB},
    };
    const auto code = static_cast<unsigned>(character);
    return isControl(character) || std::any_of(std::begin(kInvisible), std::end(kInvisible), [code](const auto& range) {
               return code >= range.first && code <= range.second;
           });
}

} // namespace

std::wstring shownText(std::wstring_view text) {
    std::wstring shown(text.substr(0, kLongestShown));
    if (shown.size() < text.size()) {
        if (isFirstOfPair(shown.back()))
            shown.pop_back();
        shown += L"...";
    }
    std::replace_if(shown.begin(), shown.end(), isUnshowable, kMark);
    return shown;
}

} // namespace zdr
