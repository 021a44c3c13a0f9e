// LabelFollower.hpp - the label to show, from one look at the panel to the next.  Plain C++.
#pragma once

#include "dialog/preview/FieldValues.hpp"
#include "dialog/preview/TapeFacts.hpp"

#include <optional>
#include <span>
#include <string>

namespace dialog {

class LabelFollower
{
  public:
    // A panel was opened or closed: its fields are not known yet.
    void forget();

    // `told` is what the panel has told as length and margin, `texts` are those of its fields from
    // the top down.  A die-cut label has its own length, whatever anybody says, and so has
    // the paper of a printer whose panel tells none.  No value where that cannot be drawn.
    std::optional<Label> follow(const TapeFacts& tape, const LengthRules& rules,
                                const LengthAndMargin& told, std::span<const std::string> texts);

  private:
    FieldPlaces places_;
    LengthAndMargin told_;
    LengthAndMargin shown_;
};

} // namespace dialog
