// Panes.hpp - what the chooser over the box offers, in its order.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace dialog {

enum class PaneKind : std::uint8_t
{
    Panel,
    Features,
    Summary,
};

struct Pane
{
    PaneKind kind = PaneKind::Panel;
    std::string title;

    bool operator==(const Pane&) const = default;
};

// `panelName` may be empty: then the panel is called Page Settings.  A printer without features of
// its own has no pane for them.
std::vector<Pane> panesFor(const std::string& panelName, bool hasFeatures);

std::optional<std::size_t> findPane(const std::vector<Pane>& panes, PaneKind kind) noexcept;

} // namespace dialog
