// Documents.hpp - documents of every kind, made for a test.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace documents {

struct Pixel
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

// `type` is "png", "jpeg" or "tiff"; rows from above.  A resolution of 0 is left out.
std::string image(const char* type, int columns, const std::vector<Pixel>& pixels,
                  int resolution = 0, bool hasAlpha = false);

struct PDF
{
    std::string box = "0 0 144 72"; // points
    std::string drawing = "0 g 0 0 72 72 re f";
    int pages = 1;
    int rotation = 0;
    std::string page;    // more entries of the page
    std::string trailer; // more entries of the trailer
};
std::string pdf(const PDF& document = {});

} // namespace documents
