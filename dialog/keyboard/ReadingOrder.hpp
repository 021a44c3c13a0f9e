// ReadingOrder.hpp - controls in the order in which their places are read.  Plain C++.
#pragma once

#include "dialog/Layout.hpp"

#include <cstddef>
#include <vector>

namespace dialog {

// Indices of the frames row by row from above, each row from the left; y grows upwards.  Frames
// whose tops are less than half a row of text apart stand in one row, however tall they are.
std::vector<std::size_t> readingOrder(const std::vector<Frame>& frames);

} // namespace dialog
