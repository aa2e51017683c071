#pragma once

#include "codegen/ExistingCode.h"
#include "codegen/GeneratedCode.h"
#include "codegen/UpdateBasis.h"
#include "codegen/UpdateOutput.h"
#include "codegen/UpdateReport.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pirol {

/// Collects what an update does to a source, as entries of its report. Positions are those in the source before and in
/// the new one.
class UpdateRecord {
  public:
    /// Both must outlive it.
    UpdateRecord(const UpdateBasis& basis, const ExistingCode& existing)
        : wanted_(basis.wanted), tokens_(basis.tokens), existing_(existing) {}

    void New(const GeneratedPiece& wanted, std::size_t place);
    /// Code that takes the place of a piece.
    void Changed(const ExistingPiece& piece, std::string_view code, std::size_t place);
    void Removed(const ExistingPiece& piece);
    /// The pieces of a section stand in another order now.
    void Moved(CodeSection section);
    /// Characters of new code became "?".
    void Lost(std::string_view code, std::size_t oldPosition, std::size_t newPosition);
    /// The database's import, which own lines need.
    void KeptImport(const ExistingPiece& piece);
    /// What of the source is left as it is though the design has it otherwise.
    void KeptCode();
    /// Each own line that speaks of what was removed.
    void Mentions(const UpdateOutput& output);

    /// All entries, with their lines in the source before and in the new one.
    std::vector<UpdateEntry> Take(UpdateOutput& output);

  private:
    void Add(UpdateAction action, std::string text, std::size_t oldPosition, std::size_t newPosition);
    void AddMentions(const UpdateOutput::Own& own);
    bool IsGone(std::string_view field) const;
    std::string_view CodeOf(const ExistingPiece& piece) const {
        return tokens_.Source().substr(piece.begin, piece.end - piece.begin);
    }

    const GeneratedCode& wanted_;
    const SourceTokens& tokens_;
    const ExistingCode& existing_;
    std::vector<PlacedEntry> entries_;
    std::unordered_set<std::string_view> gone_;
};

} // namespace pirol
