// UriScheme.hpp - the scheme of a URI's text, in its own letter case.  Plain C++.
#pragma once

#include <string_view>

namespace printing {

// The letters before the first colon: one ASCII letter, then letters, digits, "+", "-" and ".".
// Empty when the text has no scheme.  Points into `uri`.
std::string_view schemeOf(std::string_view uri) noexcept;

} // namespace printing
