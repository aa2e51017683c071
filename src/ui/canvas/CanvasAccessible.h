#pragma once

namespace pirol {

/// Tells screen readers of the components on a canvas: each is a child of the picContainer, in creation order, with its
/// name, kind, position and size; the selected one has the focus. The first call does this for all canvases.
void InstallCanvasAccessibility();

} // namespace pirol
