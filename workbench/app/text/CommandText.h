// What a typed line means: the command's name and its arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Words as they were typed, quotes included, so that a quoted comma or keyword stays what it is.
using Words = std::vector<std::wstring>;

struct CommandText {
    std::wstring name;     ///< upper case; empty for an empty line
    std::wstring argument; ///< all of it, without surrounding blanks, and without quotes when it is quoted as a whole
    Words words;           ///< the argument's words
};

CommandText parseCommand(std::wstring_view line);

/// Splits at blanks outside quotes. The quotes stay; one that isn't closed reaches to the end.
Words splitWords(std::wstring_view text);
/// Where the last word of a line begins; the line's length when it ends in a blank outside quotes.
std::size_t lastWordStart(std::wstring_view line);
/// The parts of a word between commas outside quotes, without their quotes. Empty parts are left out.
std::vector<std::wstring> splitList(std::wstring_view word);
/// A word without its quotes.
std::wstring unquoted(std::wstring_view word);
/// The name in quotes when it holds blanks or commas.
std::wstring quotedWhereNeeded(const std::wstring& name);

/// What a word gives to something as its new name. Blanks around it are left out, as the dialogs of modules do, so that
/// blanks alone are no name.
std::wstring newName(std::wstring_view word);

/// A number of one to four digits; -1 for anything else.
int parseWholeNumber(std::wstring_view text);
/// The numbers of a viewport command: n from 1 up, 0 for "none" (also "0"), -1 for anything else.
int parseViewportNumber(std::wstring_view argument);

/// Compares without regard to case, one 16-bit character at a time.
bool sameName(std::wstring_view a, std::wstring_view b);
/// Whether a name has the form of a pattern, without regard to case: '*' stands for any letters, '?' for one.
bool matches(std::wstring_view name, std::wstring_view pattern);

/// A typed text in quotes for a message, cut where it is too long to be read.
std::wstring quotation(std::wstring_view text);
/// The words with commas between them, for a message. Of many words only the first ones, and "and more".
std::wstring listed(const std::vector<std::wstring>& words);
/// The sentence with a colon and the advice in place of its full stop.
std::wstring advised(std::wstring sentence, const wchar_t* advice);

/// What a new name of the drawing must be, as the end of a sentence.
inline constexpr const wchar_t* kNameAdvice = L"give 1 to 255 characters without < > / \\ \" : ? * | !";

} // namespace workbench
