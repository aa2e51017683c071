#pragma once

namespace pirol {

/// Tells screen readers of the components on a canvas: each is a child of the picContainer, in creation order, with its
/// name, kind, position and size; the selected one has the focus. From the first call on it holds for every canvas.
void InstallCanvasAccessibility();

} // namespace pirol
