#include "codegen/UpdateBasis.h"

#include "base/Windows1252.h"
#include "codegen/HeldBlocks.h"
#include "codegen/SourceLines.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// Whether a text holds characters beyond those that have the same number in Windows-1252.
bool MayLackCharacters(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code >= 0xC4 || code == 0xC2;
    });
}

/// The optional blocks that are Pirol's in a source that holds some.
CodeOptions BlocksOf(CodeOptions held, const UpdateOptions& options) {
    return {held.menu || (options.marks.menu && !options.withoutMenu),
            held.database || (options.marks.database && !options.withoutDatabase)};
}

/// The design's code with the characters that the file can hold. Where it lost some, `original` gets what it was.
std::string Generate(const ProjectModel& model, CodeOptions blocks, const UpdateOptions& options,
                     std::string& original) {
    std::string source =
        GenerateCode(model, {blocks.menu && !options.withoutMenu, blocks.database && !options.withoutDatabase});
    if (!options.windows1252 || !MayLackCharacters(source))
        return source;
    std::string inFile = FromWindows1252(ToWindows1252(source));
    if (inFile != source)
        original = std::move(source);
    return inFile;
}

} // namespace

UpdateBasis::UpdateBasis(std::string_view source, SourceTokens::Comments comments, CodeOptions heldBlocks,
                         const ProjectModel& model, const UpdateOptions& options)
    : held(heldBlocks), blocks(BlocksOf(held, options)), lineEnd(UsualLineEnd(source)),
      wanted(Generate(model, blocks, options, original)), known(wanted, source), tokens(source, comments, &known) {}

std::unique_ptr<UpdateBasis> BasisOf(std::string_view source, SourceTokens::Comments comments,
                                     const ProjectModel& model, const UpdateOptions& options) {
    const CodeOptions seeming = SeeminglyHeldBlocks(source);
    auto basis = std::make_unique<UpdateBasis>(source, comments, seeming, model, options);
    const CodeOptions held = HeldBlocks(basis->tokens);
    if (held.menu != seeming.menu || held.database != seeming.database)
        basis = std::make_unique<UpdateBasis>(source, comments, held, model, options);
    return basis;
}

} // namespace pirol
