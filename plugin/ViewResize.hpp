// ViewResize.hpp - when the dialog is told that the panel's view has another size.  Plain C++.
#pragma once

namespace plugin {

// Whether the dialog's window is already high enough for a view of the given height, so that the
// dialog can be told at once.  Otherwise it has still to grow and is told afterwards.  Points.
bool windowHoldsView(double windowHeight, double viewHeight) noexcept;

} // namespace plugin
