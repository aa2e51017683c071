#include "codegen/UpdateRefusal.h"

#include "base/Text.h"
#include "codegen/SourceLines.h"

namespace pirol {

UpdateRefusal::UpdateRefusal(std::size_t line, std::string_view message)
    : std::runtime_error(Concatenate("Zeile ", line, ": ", message)), line_(line) {}

std::size_t LineOf(const SourceTokens& tokens, std::size_t token) {
    return LineBreaks(tokens.Source().substr(0, tokens[token].begin)) + 1;
}

void Refuse(const SourceTokens& tokens, std::size_t token, std::string_view message) {
    throw UpdateRefusal(LineOf(tokens, token), message);
}

} // namespace pirol
