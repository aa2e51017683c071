#pragma once

#include "designer/Document.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The clipboard's type for components; its bytes are the snapshot of a design that holds only them.
constexpr std::string_view componentsType = "application/vnd.pirol.components";
/// More is neither copied nor pasted.
constexpr std::size_t mostClipboardBytes = std::size_t{16} << 20U;

/// A design that holds only the selected components, in the order in which they were created and at their places.
ProjectModel SelectedPart(const Document& document);

/// The snapshot of such a part; empty when it is larger than the clipboard takes.
std::string ClipboardBytes(const Document& document, const ProjectModel& part);

/// The Java lines that the generator writes for a part: declarations, creations, handlers. CR LF.
/// Raises RuntimeError::Overflow when a radio button lies outside the 16-bit range.
std::string JavaLines(const ProjectModel& part);

/// Places what ClipboardBytes gave, of this program or of another one, and selects it, as one step. A taken name gets
/// the next free number, those of radio buttons too; names of deleted components are free. All are moved by steps of
/// the grid until none lies exactly on another one. Gives the German message to show: why nothing was pasted, or which
/// files do not lie where this design would find them; mostly an empty one. Raises std::bad_alloc.
std::string PasteComponents(Document& document, std::string_view bytes);

/// The same with the selected components themselves, past the clipboard.
void DuplicateSelected(Document& document);

/// Places copies exactly on the selected components and selects them, as a drag that duplicates begins. Gives the copy
/// of one of them.
ComponentRef DuplicateInPlace(Document& document, ComponentRef component);

/// Gives a component that has just been placed the next free number when its name is taken, and its caption too.
void NumberFreely(ProjectModel& model, ComponentRef placed);

} // namespace pirol
