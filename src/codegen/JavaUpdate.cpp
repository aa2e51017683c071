#include "codegen/JavaUpdate.h"

#include "codegen/ExistingCode.h"
#include "codegen/PieceMatch.h"
#include "codegen/UpdateBasis.h"
#include "codegen/UpdateRecord.h"
#include "codegen/UpdateWriter.h"

#include <iterator>
#include <memory>
#include <optional>
#include <utility>

namespace pirol {
namespace {

JavaUpdate UpdateWith(UpdateBasis& basis, const ProjectModel& model, const UpdateOptions& options) {
    const ExistingCode existing(basis.tokens, basis.wanted, basis.blocks);
    const PieceMatch match(basis, existing, model, options);
    UpdateRecord record(basis, existing);
    UpdateWriter writer(basis, existing, match, record);
    UpdateOutput& output = writer.Write();
    record.KeptCode();
    record.Mentions(output);
    JavaUpdate update;
    update.entries = record.Take(output);
    update.source = output.Take();
    update.held = basis.held;
    return update;
}

/// Commented-out code is no code. But where a comment was begun and ended around lines of ours and the source is as it
/// should be without it, it stays as it is; and so where nothing can be found with it.
JavaUpdate UpdateReading(std::string_view source, const ProjectModel& model, const UpdateOptions& options) {
    using enum SourceTokens::Comments;
    const std::unique_ptr<UpdateBasis> acrossLines = BasisOf(source, AcrossLines, model, options);
    if (!acrossLines->tokens.HasLongComments())
        return UpdateWith(*acrossLines, model, options);
    std::optional<JavaUpdate> result;
    try {
        result = UpdateWith(*BasisOf(source, WithinLines, model, options), model, options);
        if (result->source == source)
            return std::move(*result);
    } catch (const UpdateRefusal&) {
        result.reset(); // the other reading tells why
    }
    try {
        return UpdateWith(*acrossLines, model, options);
    } catch (const UpdateRefusal&) {
        if (!result)
            throw;
        return std::move(*result);
    }
}

} // namespace

JavaUpdate UpdateJava(std::string_view source, const ProjectModel& model, const UpdateOptions& options) {
    if (options.renames.empty())
        return UpdateReading(source, model, options);
    RenamedSource renamed = WithNewNames(source, options.renames);
    JavaUpdate update = UpdateReading(renamed.source, model, options);
    renamed.entries.insert(renamed.entries.end(), std::make_move_iterator(update.entries.begin()),
                           std::make_move_iterator(update.entries.end()));
    update.entries = std::move(renamed.entries);
    return update;
}

} // namespace pirol
