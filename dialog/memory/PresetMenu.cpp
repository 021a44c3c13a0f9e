#include "dialog/memory/PresetMenu.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

namespace {

const char* titleOf(PresetAction action) noexcept
{
    switch (action) {
    case PresetAction::LastUsed:
        return tr("Last Used");
    case PresetAction::Defaults:
        return tr("Default Settings");
    case PresetAction::SaveAs:
        return tr("Save As...");
    case PresetAction::Rename:
        return tr("Rename...");
    case PresetAction::Delete:
        return tr("Delete...");
    case PresetAction::Named:
    case PresetAction::None:
        break;
    }
    return "";
}

bool isBase(const PresetEntry& entry, const PresetState& state)
{
    return entry.action == state.base && entry.name == state.name;
}

} // namespace

std::vector<std::string> reservedTitles()
{
    return {titleOf(PresetAction::LastUsed), titleOf(PresetAction::Defaults),
            titleOf(PresetAction::SaveAs), titleOf(PresetAction::Rename),
            titleOf(PresetAction::Delete)};
}

std::vector<PresetEntry> presetMenu(const std::vector<std::string>& names, bool hasLastUsed,
                                    bool canSave, const PresetState& state)
{
    std::vector<PresetEntry> menu;
    const auto add = [&](PresetAction action, bool enabled) {
        menu.push_back({action, titleOf(action), enabled, {}});
    };
    add(PresetAction::LastUsed, hasLastUsed);
    add(PresetAction::Defaults, true);
    if (!names.empty()) {
        add(PresetAction::None, false);
    }
    for (const std::string& name : names) {
        menu.push_back({PresetAction::Named, name, true, name});
    }
    const bool named = state.base == PresetAction::Named;
    add(PresetAction::None, false);
    add(PresetAction::SaveAs, canSave);
    add(PresetAction::Rename, named);
    add(PresetAction::Delete, named);
    for (PresetEntry& entry : menu) {
        if (state.changed && isBase(entry, state)) {
            entry.title = filled(tr("{1} (changed)"), {entry.title});
        }
    }
    return menu;
}

std::size_t selectedEntry(const std::vector<PresetEntry>& menu, const PresetState& state) noexcept
{
    std::size_t selected = 0;
    for (std::size_t i = 0; i < menu.size(); ++i) {
        if (isBase(menu[i], state)) {
            return i;
        }
        if (menu[i].action == PresetAction::Defaults) {
            selected = i;
        }
    }
    return selected;
}

} // namespace dialog
