#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// The text of a Java source file, as UTF-8: its bytes may be UTF-8, with or without the mark at the beginning, and are
/// Windows-1252 otherwise. Linear in the length.
std::string DecodeSource(std::string_view bytes);

enum class TokenKind : std::uint8_t {
    Word,      ///< name or keyword
    Number,    ///< a literal that begins with a digit
    Text,      ///< what stands between double quotes, as typed
    Character, ///< what stands between single quotes, as typed
    Sign,      ///< an operator or a bracket
    Other,     ///< a text block, or a literal that does not end in its line
};

/// A piece of Java source.
struct JavaToken {
    TokenKind kind;
    std::string_view text; ///< points into the source
    std::size_t line;      ///< from 1

    bool IsWord() const { return kind == TokenKind::Word; }
    bool IsWord(std::string_view word) const { return kind == TokenKind::Word && text == word; }
    bool IsSign(std::string_view sign) const { return kind == TokenKind::Sign && text == sign; }
};

/// Takes a source apart into tokens without blanks and comments. Any text will do: what Java does not know becomes a
/// sign of its own, and what has no end goes up to the end of its line or, for comments, of the source. Each byte is
/// looked at a bounded number of times.
class JavaTokenizer {
  public:
    /// The source must outlive the tokens.
    explicit JavaTokenizer(std::string_view source) : source_(source) {}

    /// The next token; nothing at the end.
    std::optional<JavaToken> Next();

    /// The line in which a comment begins that has no end, or 0.
    std::size_t OpenComment() const { return openComment_; }

  private:
    std::string_view Rest() const { return source_.substr(position_); }
    void SkipBlanksAndComments();
    bool IsInHandlerName() const;
    void SkipTo(std::size_t position);
    JavaToken Take(TokenKind kind, std::size_t length);
    JavaToken TakeLiteral(TokenKind kind);
    JavaToken TakeTextBlock();

    std::string_view source_;
    std::size_t position_ = 0;
    std::size_t line_ = 1;
    std::size_t lineBegin_ = 0;
    std::size_t openComment_ = 0;
};

} // namespace pirol
