#include "dialog/memory/PresetMenu.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

std::vector<std::string> titles(const std::vector<PresetEntry>& menu)
{
    std::vector<std::string> result;
    for (const PresetEntry& entry : menu) {
        result.push_back(entry.title);
    }
    return result;
}

bool enabled(const std::vector<PresetEntry>& menu, PresetAction action)
{
    for (const PresetEntry& entry : menu) {
        if (entry.action == action) {
            return entry.enabled;
        }
    }
    ADD_FAILURE() << "no such entry";
    return false;
}

const PresetState kDefaults{PresetAction::Defaults, {}, false};
const PresetState kCables{PresetAction::Named, "Cables", false};

TEST(PresetMenu, ListsThePresetsBetweenWhatBringsValuesAndWhatManagesThem)
{
    EXPECT_EQ(titles(presetMenu({"Cables", "Shelves"}, true, true, kDefaults)),
              (std::vector<std::string>{"Last Used", "Default Settings", "", "Cables", "Shelves",
                                        "", "Save As...", "Rename...", "Delete..."}));
    EXPECT_EQ(titles(presetMenu({}, true, true, kDefaults)),
              (std::vector<std::string>{"Last Used", "Default Settings", "", "Save As...",
                                        "Rename...", "Delete..."}));
}

TEST(PresetMenu, OffersOnlyWhatCanBeDone)
{
    const auto nothing = presetMenu({"Cables"}, false, false, kDefaults);
    EXPECT_FALSE(enabled(nothing, PresetAction::LastUsed));
    EXPECT_FALSE(enabled(nothing, PresetAction::SaveAs));
    EXPECT_FALSE(enabled(nothing, PresetAction::Rename));
    EXPECT_FALSE(enabled(nothing, PresetAction::Delete));
    EXPECT_TRUE(enabled(nothing, PresetAction::Defaults));
    EXPECT_TRUE(enabled(nothing, PresetAction::Named));
    const auto all = presetMenu({"Cables"}, true, true, kCables);
    EXPECT_TRUE(enabled(all, PresetAction::LastUsed));
    EXPECT_TRUE(enabled(all, PresetAction::SaveAs));
    EXPECT_TRUE(enabled(all, PresetAction::Rename));
    EXPECT_TRUE(enabled(all, PresetAction::Delete));
}

TEST(PresetMenu, MarksTheOneWhoseValuesWereChanged)
{
    PresetState state = kCables;
    state.changed = true;
    const auto menu = presetMenu({"Boxes", "Cables"}, true, true, state);
    EXPECT_EQ(titles(menu)[3], "Boxes");
    EXPECT_EQ(titles(menu)[4], "Cables (changed)");
    EXPECT_EQ(menu[4].name, "Cables");
    EXPECT_EQ(titles(presetMenu({}, true, true, {PresetAction::LastUsed, {}, true}))[0],
              "Last Used (changed)");
}

TEST(SelectedEntry, IsTheOneThatTheValuesComeFrom)
{
    const auto menu = presetMenu({"Boxes", "Cables"}, true, true, kDefaults);
    EXPECT_EQ(selectedEntry(menu, kDefaults), 1u);
    EXPECT_EQ(selectedEntry(menu, {PresetAction::LastUsed, {}, false}), 0u);
    EXPECT_EQ(selectedEntry(menu, kCables), 4u);
}

TEST(SelectedEntry, IsThePrintersDefaultsWhenThePresetHasGone)
{
    EXPECT_EQ(selectedEntry(presetMenu({"Boxes"}, true, true, kCables), kCables), 1u);
}

} // namespace
} // namespace dialog
