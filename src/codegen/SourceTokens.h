#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pirol {

class KnownPieces;

/// Where a word, number, literal or sign of a Java source stands.
struct SourceToken {
    std::uint32_t begin : 31;
    std::uint32_t startsLine : 1;
    std::uint32_t end : 31;
    std::uint32_t closed : 1; ///< false for a literal whose closing quote its line lacks
    std::uint32_t known;      ///< of a generated piece, word for word: its number from 1; otherwise 0
};

/// Where a "//" comment stands that begins its line, up to the line's end.
struct SourceComment {
    std::size_t begin;
    std::size_t end;
};

/// The tokens of a Java source, UTF-8. Made for sources that are half written: no literal reaches beyond its line, and
/// nothing is an error. Linear in the length of the source, which must outlive the tokens.
class SourceTokens {
  public:
    /// How far a "/*" comment reaches that its own line does not close.
    enum class Comments {
        WithinLines, ///< to the end of that line
        AcrossLines, ///< to its end; but it is taken as left open when none follows, another comment begins before, or
                     ///< braces open and close in it that do not match
    };

    /// A known piece that is found becomes one token: large sources are read faster so.
    /// Raises RuntimeError::OutOfMemory for a source of more tokens than any program has.
    SourceTokens(std::string_view source, Comments comments, KnownPieces* known = nullptr);

    std::string_view Source() const { return source_; }
    std::size_t Count() const { return tokens_.size(); }
    const SourceToken& operator[](std::size_t index) const { return tokens_[index]; }

    /// The text of a token; empty behind the last one, so that readers may look ahead freely.
    std::string_view Text(std::size_t index) const {
        if (index >= tokens_.size())
            return {};
        return source_.substr(tokens_[index].begin, tokens_[index].end - tokens_[index].begin);
    }
    bool Is(std::size_t index, std::string_view text) const {
        if (index >= tokens_.size() || tokens_[index].begin + text.size() != tokens_[index].end)
            return false;
        // Mostly the first byte tells them apart.
        const char* const begin = source_.data() + tokens_[index].begin;
        return *begin == text.front() && std::string_view(begin, text.size()) == text;
    }
    /// Nothing but blanks and comments stand before it in its line.
    bool StartsLine(std::size_t index) const { return index < tokens_.size() && tokens_[index].startsLine != 0; }
    /// A name or keyword.
    bool IsWord(std::size_t index) const;
    bool IsNumber(std::size_t index) const;
    /// A closed literal in the given quotes.
    bool IsLiteral(std::size_t index, char quote) const;

    /// Whether tokens from `first` on are the given ones.
    template <class... Texts>
    bool Are(std::size_t first, const Texts&... texts) const {
        return ((Is(first++, texts)) && ...);
    }

    /// The first token that does not begin before the position.
    std::size_t From(std::size_t position) const;

    const std::vector<SourceComment>& LineComments() const { return comments_; }
    /// True when a comment that was taken whole goes over several lines.
    bool HasLongComments() const { return hasLongComments_; }

  private:
    void Read(Comments comments, KnownPieces* known);
    bool TakeKnown(std::size_t begin, KnownPieces& known);
    std::size_t SkipComment(std::size_t begin, bool startsLine, Comments comments);
    void Add(std::size_t begin, std::size_t end, bool startsLine, bool closed = true);

    std::string_view source_;
    std::vector<SourceToken> tokens_;
    std::vector<SourceComment> comments_;
    bool hasLongComments_ = false;
};

/// How a token changes the level of braces: 1, -1 or 0.
int LevelStep(std::string_view token);

} // namespace pirol
