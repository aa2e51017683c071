#pragma once

#include "codegen/GeneratedCode.h"
#include "codegen/JavaUpdate.h"
#include "codegen/KnownPieces.h"
#include "codegen/SourceTokens.h"

#include <memory>
#include <string>
#include <string_view>

namespace pirol {

/// What an update starts from: the code that the design wants, and the source taken apart. What both have is read at
/// once.
struct UpdateBasis {
    UpdateBasis(std::string_view source, SourceTokens::Comments comments, CodeOptions heldBlocks,
                const ProjectModel& model, const UpdateOptions& options);

    CodeOptions held;   ///< the optional blocks that the source holds
    CodeOptions blocks; ///< those that are Pirol's
    std::string_view lineEnd;
    std::string original; ///< the generated code before it lost characters; empty when it lost none
    GeneratedCode wanted;
    KnownPieces known;
    SourceTokens tokens;
};

/// The source must outlive the basis.
std::unique_ptr<UpdateBasis> BasisOf(std::string_view source, SourceTokens::Comments comments,
                                     const ProjectModel& model, const UpdateOptions& options);

} // namespace pirol
