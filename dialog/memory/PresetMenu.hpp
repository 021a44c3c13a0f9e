// PresetMenu.hpp - the entries of the Presets pop-up.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace dialog {

enum class PresetAction : std::uint8_t
{
    None, // a line between the groups
    LastUsed,
    Defaults,
    Named,
    SaveAs,
    Rename,
    Delete,
};

// Where the values on screen come from.
struct PresetState
{
    PresetAction base = PresetAction::Defaults; // LastUsed, Defaults or Named
    std::string name;                           // of a Named one
    bool changed = false;                       // other values have been set since

    bool operator==(const PresetState&) const = default;
};

struct PresetEntry
{
    PresetAction action = PresetAction::None;
    std::string title;
    bool enabled = true;
    std::string name; // of a Named one

    bool operator==(const PresetEntry&) const = default;
};

// The titles that no preset may have.
std::vector<std::string> reservedTitles();

std::vector<PresetEntry> presetMenu(const std::vector<std::string>& names, bool hasLastUsed,
                                    bool canSave, const PresetState& state);

// The entry that the state names; of `menu`'s when there is no such entry: the printer's defaults.
std::size_t selectedEntry(const std::vector<PresetEntry>& menu, const PresetState& state) noexcept;

} // namespace dialog
