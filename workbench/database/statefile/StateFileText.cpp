#include "StateFileText.h"

#include "StateFileCharacters.h"
#include "files/Refusal.h"

#include <algorithm>
#include <cstdint>

namespace engine::statefile {
namespace {

/// The file, its list of layers, a layer, and a colour's list. What lies deeper is no state.
constexpr int kDeepest = 4;

/// "line 3, column 5" of a byte, from 1.
std::wstring placeOf(std::string_view before) {
    const auto line = std::ranges::count(before, '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 where there is none
    return L"line " + std::to_wstring(line) + L", column " + std::to_wstring(before.size() - lineStart + 1);
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What may follow the first byte of a character beyond ASCII: how many bytes, and between which bounds the first of
/// them lies. Overlong forms, surrogates and codes beyond the last one are no characters.
struct Tail {
    int bytes;
    std::uint8_t least, most;
};
Tail tailOf(std::uint8_t lead) {
    if (lead >= 0xC2 && lead <= 0xDF)
        return {1, 0x80, 0xBF};
    if (lead >= 0xE0 && lead <= 0xEF)
        return {2, static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead >= 0xF0 && lead <= 0xF4)
        return {3, static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {0, 0, 0};
}

constexpr bool isLowHalf(unsigned unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

TokenReader::TokenReader(std::string_view text)
    : m_begin(text.data()), m_end(text.data() + text.size()), m_at(m_begin) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.empty() || text.front() != kMark.front())
        return;
    for (const char byte : kMark) {
        if (m_at == m_end || *m_at != byte)
            refuseAt(m_at);
        ++m_at;
    }
}

void TokenReader::refuseAt(const char* last) const {
    const std::wstring place = placeOf({m_begin, static_cast<std::size_t>(last - m_begin)});
    throw zdr::Refusal{Vorn::eInvalidInput,
                       L"isn't a layer states file, or is cut off: its text can't be understood from " + place +
                           L" on"};
}

void TokenReader::requireEnd() {
    if (next() != Token::End)
        refuseToken();
}

void TokenReader::refuseToken() const {
    refuseAt(m_last == Token::End ? m_end : m_at - 1);
}

Token TokenReader::next() {
    m_last = pass();
    return m_last;
}

void TokenReader::passBlanks() {
    while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t'))
        ++m_at;
}

/// Most of the tokens are commas and colons, of which only this is asked.
bool TokenReader::passSign(char sign) {
    passBlanks();
    const bool isThere = m_at != m_end && *m_at == sign;
    m_at += isThere ? 1 : 0;
    return isThere;
}

Token TokenReader::pass() {
    passBlanks();
    m_token = {m_at, m_at == m_end ? std::size_t{0} : std::size_t{1}};
    if (m_at == m_end)
        return Token::End;
    switch (*m_at++) {
    case '"':
        return passText();
    case ',':
        return Token::Comma;
    case ':':
        return Token::Colon;
    case '{':
        return open(Token::ObjectStart);
    case '}':
        return close(Token::ObjectEnd);
    case '[':
        return open(Token::ListStart);
    case ']':
        return close(Token::ListEnd);
    case 't':
        return passWord("true", Token::True);
    case 'f':
        return passWord("false", Token::False);
    case 'n':
        return passWord("null", Token::Null);
    default:
        return passNumber();
    }
}

Token TokenReader::open(Token token) {
    if (++m_depth > kDeepest)
        refuseStateFile(L"lists and objects stand within each other, deeper than a layer states file has them");
    return token;
}

Token TokenReader::close(Token token) {
    --m_depth;
    return token;
}

Token TokenReader::passWord(std::string_view word, Token token) {
    for (const char c : word.substr(1)) {
        if (m_at == m_end || *m_at != c)
            refuseAt(m_at);
        ++m_at;
    }
    return token;
}

const char* TokenReader::passDigits(const char* at) const {
    if (at == m_end || !isDigit(*at))
        refuseAt(at);
    return std::find_if_not(at, m_end, isDigit);
}

Token TokenReader::passNumber() {
    const char* at = m_at - 1;
    if (*at == '-')
        ++at;
    at = at != m_end && *at == '0' ? at + 1 : passDigits(at);
    if (at != m_end && *at == '.')
        at = passDigits(at + 1);
    if (at != m_end && (*at == 'e' || *at == 'E')) {
        ++at;
        if (at != m_end && (*at == '+' || *at == '-'))
            ++at;
        at = passDigits(at);
    }
    m_at = at;
    m_token = {m_token.data(), static_cast<std::size_t>(at - m_token.data())};
    return Token::Number;
}

Token TokenReader::passText() {
    const char* at = m_at;
    m_hasEscapes = false;
    for (;;) {
        at = std::find_if_not(at, m_end, isPlain);
        if (at == m_end)
            refuseAt(at);
        if (*at == '"')
            break;
        if (*at == '\\') {
            m_hasEscapes = true;
            at = passEscape(at + 1);
        } else {
            at = passCharacter(at);
        }
    }
    m_token = {m_at, static_cast<std::size_t>(at - m_at)};
    m_at = at + 1;
    return Token::Text;
}

/// Passes over an escape from the character behind its backslash on.
const char* TokenReader::passEscape(const char* at) const {
    if (at == m_end || std::string_view("\"\\/bfnrtu").find(*at) == std::string_view::npos)
        refuseAt(at);
    if (*at != 'u')
        return at + 1;
    const unsigned unit = codeUnit(at);
    at += 5;
    if (isLowHalf(unit))
        refuseAt(at - 1);
    if (!isHighHalf(unit))
        return at;
    for (const char c : {'\\', 'u'}) {
        if (at == m_end || *at != c)
            refuseAt(at);
        ++at;
    }
    if (!isLowHalf(codeUnit(at - 1)))
        refuseAt(at + 3);
    return at + 4;
}

/// The four digits behind the 'u' of an escape.
unsigned TokenReader::codeUnit(const char* at) const {
    unsigned unit = 0;
    for (int digit = 0; digit < 4; ++digit) {
        ++at;
        if (at == m_end || hexValue(*at) == 16)
            refuseAt(at);
        unit = unit * 16 + hexValue(*at);
    }
    return unit;
}

const char* TokenReader::passCharacter(const char* at) const {
    Tail tail = tailOf(static_cast<std::uint8_t>(*at));
    if (tail.bytes == 0)
        refuseAt(at);
    ++at;
    for (; tail.bytes > 0; --tail.bytes, ++at) {
        if (at == m_end || static_cast<std::uint8_t>(*at) < tail.least || static_cast<std::uint8_t>(*at) > tail.most)
            refuseAt(at);
        tail = {tail.bytes, 0x80, 0xBF};
    }
    return at;
}

Value TokenReader::value(Token first) {
    const char* const start = m_token.data();
    switch (first) {
    case Token::ObjectStart:
        passMembers();
        break;
    case Token::ListStart:
        passElements();
        break;
    case Token::Text:
        return {first, m_token, m_hasEscapes};
    case Token::Number:
    case Token::True:
    case Token::False:
    case Token::Null:
        return {first, m_token};
    default:
        refuseToken();
    }
    return {first, {start, static_cast<std::size_t>(m_at - start)}};
}

void TokenReader::passMembers() {
    while (nextKey())
        value(next());
}

void TokenReader::passElements() {
    while (const std::optional<Token> first = nextElement())
        value(*first);
}

std::optional<std::string_view> TokenReader::nextKey() {
    const bool isFirst = m_last == Token::ObjectStart;
    const bool isComma = !isFirst && passSign(',');
    const Token token = next();
    if (!isComma && token == Token::ObjectEnd)
        return std::nullopt;
    if (token != Token::Text || isComma == isFirst)
        refuseToken();
    const std::string_view key = m_token;
    if (!passSign(':')) {
        next();
        refuseToken();
    }
    return key;
}

std::optional<Token> TokenReader::nextElement() {
    const bool isFirst = m_last == Token::ListStart;
    const bool isComma = !isFirst && passSign(',');
    const Token token = next();
    if (!isComma && token == Token::ListEnd)
        return std::nullopt;
    if (isComma == isFirst)
        refuseToken();
    return token;
}

void refuseStateFile(const std::wstring& what) {
    throw zdr::Refusal{Vorn::eInvalidInput, L"is damaged: " + what};
}

} // namespace engine::statefile
