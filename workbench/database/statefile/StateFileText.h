// The text of a layer states file as JSON: its tokens one by one, as they stand in the file. Nothing is copied and no
// tree is built, so that a large file costs no memory beside its own bytes, whatever is in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace engine::statefile {

enum class Token {
    End,
    Text,
    Number,
    True,
    False,
    Null,
    ObjectStart,
    ObjectEnd,
    ListStart,
    ListEnd,
    Colon,
    Comma,
};

/// A value of the text, or none. The text has to live as long.
struct Value {
    Token kind = Token::End;
    std::string_view bytes = {}; ///< as they stand in the file: of a text what is between the quotes
    bool hasEscapes = false;     ///< of a text

    bool isThere() const { return kind != Token::End; }
};

/// Reads a text from its beginning. Refuses what isn't JSON by RFC 8259 in well-formed UTF-8, with line and column of
/// the last byte that was read, and lists and objects that stand within each other deeper than the format has them.
/// A byte order mark of UTF-8 in front is passed over.
class TokenReader {
  public:
    explicit TokenReader(std::string_view text);

    Token next();
    /// The whole value that begins with the token that was read last.
    Value value(Token first);
    /// Behind the start of an object, or behind one of its values: the next key, whose value is to be read next; none
    /// at the object's end.
    std::optional<std::string_view> nextKey();
    /// Behind the start of a list, or behind one of its values: the first token of the next value; none at the list's
    /// end. value() refuses a token that begins no value.
    std::optional<Token> nextElement();
    /// Refuses what stands behind the text's one value.
    void requireEnd();

  private:
    Token pass();
    void passBlanks();
    bool passSign(char sign);
    Token passText();
    Token passNumber();
    Token passWord(std::string_view word, Token token);
    Token open(Token token);
    Token close(Token token);
    const char* passDigits(const char* at) const;
    const char* passEscape(const char* at) const;
    unsigned codeUnit(const char* at) const;
    const char* passCharacter(const char* at) const;
    void passMembers();
    void passElements();
    /// Refuses the token that was read last, because another one should stand there.
    [[noreturn]] void refuseToken() const;
    /// Refuses the text because of the byte that was read last, which is the end when the text is cut off.
    [[noreturn]] void refuseAt(const char* last) const;

    const char* m_begin;
    const char* m_end;
    const char* m_at;
    std::string_view m_token;
    Token m_last = Token::End;
    bool m_hasEscapes = false; ///< the text that was read last
    int m_depth = 0;
};

/// Refuses a layer states file: the cause is "is damaged: <what>".
[[noreturn]] void refuseStateFile(const std::wstring& what);

} // namespace engine::statefile
