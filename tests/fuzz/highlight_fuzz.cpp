// Any UTF-16 text in the code viewer: the colours stay within the text, in order, and do not overlap.

#include "codegen/SyntaxHighlighter.h"
#include "fuzz/Fuzz.h"

#include <cstring>

using namespace pirol;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first byte says how wide the characters of the rest are; narrow ones make Java far more likely.
    if (size == 0)
        return 0;
    std::u16string text(data + 1, data + size);
    if (data[0] % 2 == 1) {
        text.resize((size - 1) / sizeof(char16_t));
        std::memcpy(text.data(), data + 1, text.size() * sizeof(char16_t));
    }
    std::size_t end = 0;
    for (const ColourSpan& span : HightlightSyntax(text)) {
        fuzz::Require(span.begin >= end && span.length > 0, "spans ascend, do not overlap and are not empty");
        end = span.begin + span.length;
        fuzz::Require(end <= text.size(), "spans stay in the text");
    }
    return 0;
}
