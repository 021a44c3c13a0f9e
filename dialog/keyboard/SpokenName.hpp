// SpokenName.hpp - what a control is called by who does not see where it stands.  Plain C++.
#pragma once

#include "dialog/Layout.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace dialog {

struct Caption
{
    Frame frame;
    std::string text;
};

// A caption's words alone, without the colon and the spaces at its end.
std::string withoutColon(std::string_view caption);

// The caption of the control: of those that end with a colon and stand at the left of it, beside
// its upper edge, the nearest.  Empty when there is none.
std::string captionBeside(const Frame& control, const std::vector<Caption>& captions);

} // namespace dialog
