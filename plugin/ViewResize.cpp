#include "plugin/ViewResize.hpp"

namespace plugin {

// What a print dialog has above and below a panel: title bar, printer row and buttons.
static constexpr double kDialogFramePoints = 96.0;

bool windowHoldsView(double windowHeight, double viewHeight) noexcept
{
    return windowHeight > viewHeight + kDialogFramePoints;
}

} // namespace plugin
