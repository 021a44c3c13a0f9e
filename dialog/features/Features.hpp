// Features.hpp - the options of a printer's PPD as a dialog offers them: groups, titles, choices.
//
// Texts are the PPD's own, with the keyword where it has none.  Plain C++.
#pragma once

#include "dialog/ppd/PPDFile.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

enum class FeatureKind : std::uint8_t
{
    PickOne,  // one choice of several
    Switch,   // True or False, which say no more than yes and no
    PickMany, // any number of choices
};

struct FeatureChoice
{
    std::string keyword;
    std::string title;
};

struct Feature
{
    std::string keyword;
    std::string title;
    FeatureKind kind = FeatureKind::PickOne;
    std::vector<FeatureChoice> choices; // without a custom one, which has no value of its own
    std::string standard;               // the default choice's keyword; may not be among them
    bool fitted = false;                // says what the printer is equipped with
};

struct FeatureGroup
{
    std::string title;
    std::vector<Feature> features;
};

using Features = std::vector<FeatureGroup>;

// Every option of the PPD, in its order.
Features featuresOf(const PPDFile& ppd);

// nullptr when there is none.  Keywords are compared exactly.
const Feature* findFeature(const Features& features, std::string_view keyword) noexcept;

// Whether a user chooses it among the printer's features: not the tape and the lengths, which have
// controls of their own, not what the printer is equipped with, and nothing without a choice.
bool isOffered(const Feature& feature) noexcept;

// The groups with what is offered; none of them is empty.  Whatever else the PPD has, thousands of
// tapes for instance, costs no time.
Features offeredFeatures(const PPDFile& ppd);

// The choice's title; the keyword itself for one that is not among the choices.
std::string_view choiceTitle(const Feature& feature, std::string_view keyword) noexcept;

} // namespace dialog
