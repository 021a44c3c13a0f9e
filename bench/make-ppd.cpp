// make-ppd SIZES CHOICES - writes the PPD of a label printer to standard output.
#include "bench/LabelPrinter.hpp"

#include <charconv>
#include <cstdio>
#include <string_view>

static int number(std::string_view text)
{
    int value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() ? value : 0;
}

int main(int argc, char** argv)
{
    const int sizes = argc == 3 ? number(argv[1]) : 0;
    const int choices = argc == 3 ? number(argv[2]) : 0;
    if (sizes < 1 || choices < 2) {
        std::fputs("usage: make-ppd SIZES CHOICES   (at least 1 and 2)\n", stderr);
        return 2;
    }
    const std::string text = bench::labelPrinter(sizes, choices).text();
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
