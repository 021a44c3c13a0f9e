#include "platform/StringEncodings.hpp"

namespace printing {

namespace {

struct Pair
{
    std::uint32_t foundation;
    unsigned long toolkit;
};

// The toolkit's numbers up to 30 are the original's; those from 50 on are its own.
constexpr Pair kPairs[] = {
    {0x0600, 1},               // ASCII
    {0x0B01, 2},               // NeXTSTEP
    {0x0920, 3},               // EUC Japanese
    {0x08000100, 4},           // UTF-8
    {0x0201, 5},               // ISO 8859-1
    {0x0021, 6},               // Symbol
    {0x0BFF, 7},               // non-lossy ASCII
    {0x0A01, 8},               // Shift JIS
    {0x0202, 9},               // ISO 8859-2
    {0x0100, 10},              // UTF-16
    {0x0502, 11},              // Windows 1251, Cyrillic
    {0x0500, 12},              // Windows 1252, Latin 1
    {0x0503, 13},              // Windows 1253, Greek
    {0x0504, 14},              // Windows 1254, Turkish
    {0x0501, 15},              // Windows 1250, Latin 2
    {0x0820, 21},              // ISO 2022-JP
    {0x0205, 22},              // ISO 8859-5, Cyrillic
    {0x0000, 30},              // Mac OS Roman
    {0x0A02, 50},              // KOI8-R
    {0x0203, 51},              // ISO 8859-3
    {0x0204, 52},              // ISO 8859-4
    {0x0206, 53},              // ISO 8859-6, Arabic
    {0x0207, 54},              // ISO 8859-7, Greek
    {0x0208, 55},              // ISO 8859-8, Hebrew
    {0x0930, 56},              // EUC Chinese
    {0x0209, 57},              // ISO 8859-9, Turkish
    {0x020A, 58},              // ISO 8859-10, Nordic
    {0x020B, 59},              // ISO 8859-11, Thai
    {0x020D, 61},              // ISO 8859-13
    {0x020E, 62},              // ISO 8859-14
    {0x020F, 63},              // ISO 8859-15
    {0x0A03, 66},              // Big 5
    {0x0940, 67},              // EUC Korean
    {0x10000100, 0x90000100u}, // UTF-16, big-endian
    {0x14000100, 0x94000100u}, // UTF-16, little-endian
    {0x0c000100, 0x8c000100u}, // UTF-32
    {0x18000100, 0x98000100u}, // UTF-32, big-endian
    {0x1c000100, 0x9c000100u}, // UTF-32, little-endian
};

} // namespace

unsigned long toolkitEncoding(std::uint32_t foundationEncoding) noexcept
{
    for (const Pair& pair : kPairs)
        if (pair.foundation == foundationEncoding)
            return pair.toolkit;
    return kNoToolkitEncoding;
}

std::uint32_t foundationEncoding(unsigned long toolkitEncoding) noexcept
{
    for (const Pair& pair : kPairs)
        if (pair.toolkit == toolkitEncoding)
            return pair.foundation;
    return kNoFoundationEncoding;
}

} // namespace printing
