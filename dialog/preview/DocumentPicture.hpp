// DocumentPicture.hpp - a document's first page as a label printer has it: ink or no ink.
//
// Made by a program of its own (PictureMaker.cpp), because documents come from anywhere and may
// take the library that reads them down; it comes here as bytes.  Plain C++.
#pragma once

#include "dialog/preview/Label.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// Why there is nothing to show.
enum class PictureProblem : std::uint8_t
{
    None,
    UnknownKind, // neither PDF nor PNG, JPEG, TIFF or text
    Damaged,
    TooLarge, // in bytes or pixels
    Locked,   // by a password
    TooSlow,
    NotMade, // the program is missing or has died
};

enum class PictureKind : std::uint8_t
{
    Pixels, // of a picture
    Page,   // of a PDF
    Text,
};

// Bounds of what is passed on.
inline constexpr int kMostPixelsASide = 2048;
inline constexpr std::size_t kMostPixels = std::size_t{2048} * 1024;
inline constexpr std::size_t kMostText = 64 * 1024;

struct DocumentPicture
{
    PictureProblem problem = PictureProblem::NotMade;
    PictureKind kind = PictureKind::Pixels;
    int pages = 1;
    double width = 0; // millimetres; 0 when it does not say, and always of text
    double height = 0;
    int columns = 0; // pixels; 0 for text
    int rows = 0;
    std::vector<std::uint8_t> ink; // rows from above: 0 for none to 255 for black
    std::string text;              // UTF-8 lines, without tabs and other control characters

    static DocumentPicture failed(PictureProblem problem);
};

// The bytes for the way between the programs.
std::string packed(const DocumentPicture& picture);
// No value for bytes that are not whole or out of bounds.
std::optional<DocumentPicture> unpacked(std::string_view bytes);

// What a page of 66 lines of ten characters to the inch has of the text, as printers have it: up to
// the first form feed, tabs widened to eights, control characters left out.
std::string firstPageOfText(std::string_view text);

// The lines of a text as it is printed, and how many columns the longest has.
struct TextSize
{
    std::vector<std::string_view> lines;
    std::size_t columns = 0;
};
TextSize measured(std::string_view text);

inline constexpr double kColumnMillimetres = 25.4 / 10; // ten characters to the inch
inline constexpr double kLineMillimetres = 25.4 / 6;    // six lines to the inch

// What placeDocument asks for.  No value where there is nothing to show.
std::optional<DocumentSize> sizeOf(const DocumentPicture& picture);

inline constexpr int kMostResampled = 65535;

// The ink in other pixels, each the mean of the area that it covers; turned clockwise on request,
// `columns` and `rows` being those of the result.  Both 1 to kMostResampled, or empty; empty for a
// picture without pixels.
std::vector<std::uint8_t> resampled(const DocumentPicture& picture, int columns, int rows,
                                    bool turned);

} // namespace dialog
