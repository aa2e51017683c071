#include "codegen/SyntaxHighlighter.h"

#include <algorithm>
#include <cstdint>

namespace pirol {
namespace {

constexpr std::size_t none = std::u16string_view::npos;

/// What a character is coloured as. A later one wins over an earlier one.
enum class Layer : std::uint8_t { Plain, Access, Type, Object, Text, Comment };

constexpr Colour colours[] = {
    {}, {102, 0, 51}, {204, 0, 0}, {0, 102, 153}, {0, 102, 0}, {153, 153, 153},
};

struct Keyword {
    std::u16string_view text;
    char16_t delimiter; // where the colour ends
    Layer layer;
};

/// The type words are searched with the blank behind them, so that one at a line's end stays plain.
constexpr Keyword keywords[] = {
    {u"public", u' ', Layer::Access}, {u"private", u' ', Layer::Access}, {u"import ", u' ', Layer::Type},
    {u"class ", u' ', Layer::Type},   {u"extends ", u' ', Layer::Type},  {u"int ", u' ', Layer::Type},
    {u"double ", u' ', Layer::Type},  {u"boolean ", u' ', Layer::Type},  {u"void ", u' ', Layer::Type},
    {u"super", u'(', Layer::Object},  {u"this", u'.', Layer::Object},
};

/// Text with a layer for each character.
class Painting {
  public:
    explicit Painting(std::u16string_view text) : text_(text), layers_(text.size(), Layer::Plain) {}

    void PaintKeyword(const Keyword& keyword) {
        std::size_t end = 0;
        for (std::size_t p = text_.find(keyword.text); p != none; p = text_.find(keyword.text, p + 1)) {
            // Up to the delimiter found last everything is coloured already.
            if (p < end)
                continue;
            end = text_.find(keyword.delimiter, p + 1);
            if (end == none)
                return;
            Paint(p, end, keyword.layer);
        }
    }

    void PaintTexts() {
        for (std::size_t p = text_.find(u'"'); p != none;) {
            const std::size_t q = text_.find(u'"', p + 1);
            if (q == none)
                return;
            Paint(p, q + 1, Layer::Text);
            // The character right behind a text does not begin another one.
            p = text_.find(u'"', q + 2);
        }
    }

    void PaintComments() {
        for (std::size_t p = text_.find(u"//"); p != none;) {
            const std::size_t lineFeed = text_.find(u'\n', p);
            if (lineFeed == none) {
                Paint(p, text_.size(), Layer::Comment);
                return;
            }
            Paint(p, text_[lineFeed - 1] == u'\r' ? lineFeed - 1 : lineFeed, Layer::Comment);
            p = text_.find(u"//", lineFeed);
        }
    }

    std::vector<ColourSpan> Spans() const {
        std::vector<ColourSpan> spans;
        for (auto begin = layers_.begin(); begin != layers_.end();) {
            const auto end = std::find_if(begin, layers_.end(), [begin](Layer layer) { return layer != *begin; });
            if (*begin != Layer::Plain)
                spans.push_back({static_cast<std::size_t>(begin - layers_.begin()),
                                 static_cast<std::size_t>(end - begin), colours[static_cast<std::size_t>(*begin)]});
            begin = end;
        }
        return spans;
    }

  private:
    void Paint(std::size_t begin, std::size_t end, Layer layer) {
        std::fill(layers_.data() + begin, layers_.data() + end, layer);
    }

    std::u16string_view text_;
    std::vector<Layer> layers_;
};

} // namespace

std::vector<ColourSpan> HightlightSyntax(std::u16string_view text) {
    Painting painting(text);
    for (const Keyword& keyword : keywords)
        painting.PaintKeyword(keyword);
    painting.PaintTexts();
    painting.PaintComments();
    return painting.Spans();
}

} // namespace pirol
