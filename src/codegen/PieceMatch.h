#pragma once

#include "codegen/ExistingCode.h"
#include "codegen/GeneratedCode.h"
#include "codegen/JavaUpdate.h"
#include "codegen/UpdateBasis.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace pirol {

/// Which piece of a source becomes which of the design's, and what of both is left as the pupil has it.
class PieceMatch {
  public:
    static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);

    /// Wanted text areas take the class that the source gives them where the design's is not known. All must outlive
    /// it.
    PieceMatch(UpdateBasis& basis, const ExistingCode& existing, const ProjectModel& model,
               const UpdateOptions& options);

    std::vector<std::uint32_t> wantedOf; ///< of each existing piece
    std::vector<std::uint32_t> pieceOf;  ///< of each wanted piece
    std::vector<bool> skipped;           ///< wanted pieces that the pupil has in a form of his own, or goes without
    std::vector<bool> kept;              ///< existing pieces that stay as they are

  private:
    void ReadRadioGroups(const ProjectModel& model);
    void KeepTextAreas();
    void Match();
    std::uint32_t FindWanted(const CodeKey& key);
    void ListWanted();
    void SkipWhatIsThere();
    bool IsThere(const GeneratedPiece& wanted);
    bool IsInSource(std::string_view line);
    void KeepWhatIsHis();
    bool IsUnknown(const CodeKey& key) const;

    GeneratedCode& wanted_;
    const SourceTokens& tokens_;
    const ExistingCode& existing_;
    const UpdateOptions& options_;
    std::unordered_map<std::string_view, std::string_view> groupOf_; ///< radio button, group
    std::unordered_map<CodeKey, std::uint32_t, CodeKeyHash> firstWanted_;
    std::vector<std::uint32_t> nextWanted_; ///< the next piece of the same key
    std::uint32_t expected_ = 0;
    std::unordered_set<std::string> lines_; ///< of the source, when first asked for
};

} // namespace pirol
