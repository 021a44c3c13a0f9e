#include "dialog/Panes.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

std::vector<Pane> panesFor(const std::string& panelName, bool hasFeatures)
{
    std::vector<Pane> panes = {
        {PaneKind::Panel, panelName.empty() ? tr("Page Settings") : panelName}};
    if (hasFeatures) {
        panes.push_back({PaneKind::Features, tr("Printer Features")});
    }
    panes.push_back({PaneKind::Summary, tr("Summary")});
    return panes;
}

std::optional<std::size_t> findPane(const std::vector<Pane>& panes, PaneKind kind) noexcept
{
    for (std::size_t i = 0; i < panes.size(); ++i) {
        if (panes[i].kind == kind) {
            return i;
        }
    }
    return std::nullopt;
}

} // namespace dialog
