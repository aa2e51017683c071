#pragma once

#include "codegen/PieceMatch.h"
#include "codegen/UpdateBasis.h"
#include "codegen/UpdateOutput.h"
#include "codegen/UpdateRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pirol {

/// Writes the new source: the pieces of each section in the design's order, and all else behind the last placed of
/// those pieces that stood before it.
class UpdateWriter {
  public:
    /// All must outlive it.
    UpdateWriter(const UpdateBasis& basis, const ExistingCode& existing, const PieceMatch& match, UpdateRecord& record);

    /// Everything; to be called once.
    UpdateOutput& Write();

  private:
    static constexpr std::uint32_t none = PieceMatch::none;

    /// A piece of the source with what stands in its lines, or text between pieces.
    struct Stretch {
        std::size_t begin;
        std::size_t end;
        std::uint32_t anchor;       ///< the wanted piece that it follows, or none at the beginning
        std::uint32_t piece = none; ///< the existing piece in it, if any
        std::uint32_t rest = none;  ///< of what is left of a removed piece's lines
    };

    void FindLost(const UpdateBasis& basis);
    void WriteSection(CodeSection section);
    std::vector<Stretch> TakeApart(CodeSection section);
    std::size_t EndOfPiece(const ExistingPiece& piece, std::size_t limit) const;
    void AddRest(const ExistingPiece& piece, const Stretch& stretch, std::vector<Stretch>& stretches);
    bool HasPlace(const Stretch& stretch, CodeSection section) const;
    bool IsNewSuper(std::size_t wanted, std::size_t end) const;
    void WriteStretch(const Stretch& stretch);
    void WriteNew(std::size_t wanted);
    void WritePiece(const Stretch& stretch);
    std::string CodeFor(const ExistingPiece& piece, const GeneratedPiece& wanted) const;
    bool IsSame(const ExistingPiece& piece, std::string_view code) const;
    std::string_view CodeOf(const ExistingPiece& piece) const {
        return source_.substr(piece.begin, piece.end - piece.begin);
    }

    const GeneratedCode& wanted_;
    const SourceTokens& tokens_;
    std::string_view source_;
    const ExistingCode& existing_;
    const PieceMatch& match_;
    UpdateRecord& record_;
    UpdateOutput output_;
    std::unordered_set<std::size_t> lost_; ///< wanted pieces that lost characters
    std::vector<std::string> rests_;       ///< what is left of the lines of removed pieces
};

} // namespace pirol
