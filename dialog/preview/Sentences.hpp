// Sentences.hpp - what is said beside the picture of a label.  Plain C++; UTF-8.
#pragma once

#include "dialog/preview/DocumentPicture.hpp"
#include "dialog/preview/Label.hpp"
#include "pagesettings/Limits.hpp"

#include <string>

namespace dialog {

// "62.0 mm" or "2.44 in", from millimetres.
std::string amount(double millimetres, pagesettings::Unit unit);

// The unit as it stands beside a ruler.
std::string unitName(pagesettings::Unit unit);

// Width and length of the label.
std::string sizeSentence(const Label& label, pagesettings::Unit unit);

// How much tape a label takes, and how much of it stays blank.
std::string tapeUsedSentence(const Label& label, pagesettings::Unit unit);

// How the document lies on the label, or why it is not shown; empty when there is nothing to say.
// `place` is nullptr where there is no label or nothing to place.
std::string documentSentence(const Label& label, const DocumentPicture& picture,
                             const Placement* place, pagesettings::Unit unit);

// The whole picture in words, for who cannot see it; `remarks` are documentSentence's.
std::string pictureSentence(const Label& label, const std::string& remarks,
                            pagesettings::Unit unit);

// Whether the sentence tells of something that the user would want to change.
bool isWarning(const Placement& place) noexcept;

} // namespace dialog
