#include "dialog/preview/DocumentPicture.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>

namespace dialog {

namespace {

constexpr std::string_view kMark = "tape-print picture 1";
constexpr std::size_t kMostLines = 66;
constexpr std::size_t kMostColumns = 1000;
constexpr std::size_t kTab = 8;

template <class Number>
void append(std::string& text, Number number)
{
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text += ' ';
    text.append(digits.data(), written.ptr);
}

template <class Number>
bool take(std::string_view& text, Number& number)
{
    if (!text.starts_with(' ')) {
        return false;
    }
    text.remove_prefix(1);
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc()) {
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool isLength(double millimetres) noexcept
{
    return millimetres >= 0 && millimetres <= 1e6;
}

bool continuesCharacter(char c) noexcept
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t characters(std::string_view line) noexcept
{
    return line.size() -
           static_cast<std::size_t>(std::count_if(line.begin(), line.end(), continuesCharacter));
}

// One edge of the picture cut into `count` pieces: how much of each old pixel falls into a piece,
// in parts of which an old pixel has `count` and a piece as many as there are old pixels.
struct Share
{
    int pixel;
    std::uint16_t parts;
};

// Of each piece, one after the other.
struct Shares
{
    std::vector<Share> all;
    std::vector<std::size_t> ends;

    std::span<const Share> of(int piece) const
    {
        const auto index = static_cast<std::size_t>(piece);
        const std::size_t begin = index == 0 ? 0 : ends[index - 1];
        return {all.data() + begin, ends[index] - begin};
    }
};

Shares shares(int old, int count)
{
    Shares result;
    result.ends.reserve(static_cast<std::size_t>(count));
    result.all.reserve(static_cast<std::size_t>(old) + static_cast<std::size_t>(count));
    for (int piece = 0; piece < count; ++piece) {
        const int from = piece * old;
        const int to = from + old;
        for (int pixel = from / count; pixel * count < to; ++pixel) {
            const int parts = std::min(to, (pixel + 1) * count) - std::max(from, pixel * count);
            result.all.push_back({pixel, static_cast<std::uint16_t>(parts)});
        }
        result.ends.push_back(result.all.size());
    }
    return result;
}

} // namespace

DocumentPicture DocumentPicture::failed(PictureProblem problem)
{
    DocumentPicture picture;
    picture.problem = problem;
    return picture;
}

std::string packed(const DocumentPicture& picture)
{
    std::string bytes(kMark);
    append(bytes, static_cast<int>(picture.problem));
    append(bytes, static_cast<int>(picture.kind));
    append(bytes, picture.pages);
    append(bytes, picture.width);
    append(bytes, picture.height);
    append(bytes, picture.columns);
    append(bytes, picture.rows);
    append(bytes, picture.text.size());
    bytes += '\n';
    bytes.append(picture.ink.begin(), picture.ink.end());
    bytes += picture.text;
    return bytes;
}

std::optional<DocumentPicture> unpacked(std::string_view bytes)
{
    if (!bytes.starts_with(kMark)) {
        return std::nullopt;
    }
    bytes.remove_prefix(kMark.size());
    DocumentPicture picture;
    int problem = 0;
    int kind = 0;
    std::size_t text = 0;
    if (!take(bytes, problem) || !take(bytes, kind) || !take(bytes, picture.pages) ||
        !take(bytes, picture.width) || !take(bytes, picture.height) ||
        !take(bytes, picture.columns) || !take(bytes, picture.rows) || !take(bytes, text) ||
        !bytes.starts_with('\n')) {
        return std::nullopt;
    }
    bytes.remove_prefix(1);
    if (problem < 0 || problem > static_cast<int>(PictureProblem::NotMade) || kind < 0 ||
        kind > static_cast<int>(PictureKind::Text) || picture.pages < 1 ||
        !isLength(picture.width) || !isLength(picture.height) || picture.columns < 0 ||
        picture.columns > kMostPixelsASide || picture.rows < 0 || picture.rows > kMostPixelsASide ||
        text > kMostText) {
        return std::nullopt;
    }
    picture.problem = static_cast<PictureProblem>(problem);
    picture.kind = static_cast<PictureKind>(kind);
    const std::size_t pixels =
        static_cast<std::size_t>(picture.columns) * static_cast<std::size_t>(picture.rows);
    const bool isText = picture.kind == PictureKind::Text;
    const bool isShown = picture.problem == PictureProblem::None;
    if (pixels > kMostPixels || bytes.size() != pixels + text ||
        (isShown && (isText ? pixels != 0 : pixels == 0))) {
        return std::nullopt;
    }
    picture.ink.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(pixels));
    picture.text = bytes.substr(pixels);
    return picture;
}

std::string firstPageOfText(std::string_view text)
{
    std::string page;
    std::size_t lines = 1;
    std::size_t column = 0;
    bool cut = false; // within a character that had no room
    for (const char c : text.substr(0, text.find('\f'))) {
        // Room for a tab or a whole character.
        if (page.size() + kTab + 4 > kMostText &&
            (!continuesCharacter(c) || page.size() == kMostText)) {
            break;
        }
        if (c == '\n') {
            if (lines == kMostLines) {
                break;
            }
            ++lines;
            column = 0;
            cut = false;
            page += c;
        } else if (c == '\t') {
            const std::size_t next = std::min(kMostColumns, (column / kTab + 1) * kTab);
            page.append(next - column, ' ');
            column = next;
        } else if (continuesCharacter(c)) {
            if (!cut) {
                page += c;
            }
        } else if (static_cast<unsigned char>(c) >= ' ' && c != 0x7F) {
            cut = column >= kMostColumns;
            if (!cut) {
                page += c;
                ++column;
            }
        }
    }
    while (page.ends_with('\n') || page.ends_with(' ')) {
        page.pop_back();
    }
    return page;
}

TextSize measured(std::string_view text)
{
    TextSize size;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        size.lines.push_back(text.substr(0, end));
        size.columns = std::max(size.columns, characters(size.lines.back()));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return size;
}

std::optional<DocumentSize> sizeOf(const DocumentPicture& picture)
{
    if (picture.problem != PictureProblem::None) {
        return std::nullopt;
    }
    DocumentSize size;
    if (picture.kind == PictureKind::Text) {
        const TextSize text = measured(picture.text);
        if (text.columns == 0) {
            return std::nullopt;
        }
        size.width = static_cast<double>(text.columns) * kColumnMillimetres;
        size.height = static_cast<double>(text.lines.size()) * kLineMillimetres;
        size.mayTurn = false;
        return size;
    }
    if (picture.columns <= 0 || picture.rows <= 0) {
        return std::nullopt;
    }
    if (picture.width > 0 && picture.height > 0) {
        size.width = picture.width;
        size.height = picture.height;
    }
    size.aspect = static_cast<double>(picture.columns) / picture.rows;
    return size;
}

std::vector<std::uint8_t> resampled(const DocumentPicture& picture, int columns, int rows,
                                    bool turned)
{
    const std::size_t pixels =
        static_cast<std::size_t>(picture.columns) * static_cast<std::size_t>(picture.rows);
    if (columns <= 0 || rows <= 0 || pixels == 0 || picture.ink.size() != pixels) {
        return {};
    }
    // Of the picture as it stands: after the turn its rows run along the result's columns.
    const int across = turned ? rows : columns;
    const int down = turned ? columns : rows;
    const Shares horizontal = shares(picture.columns, across);
    const Shares vertical = shares(picture.rows, down);

    std::vector<std::uint8_t> result(static_cast<std::size_t>(columns) *
                                     static_cast<std::size_t>(rows));
    std::vector<std::uint32_t> line(static_cast<std::size_t>(picture.columns));
    for (int y = 0; y < down; ++y) {
        std::fill(line.begin(), line.end(), 0);
        for (const Share& share : vertical.of(y)) {
            const std::uint8_t* const row =
                picture.ink.data() +
                static_cast<std::size_t>(share.pixel) * static_cast<std::size_t>(picture.columns);
            for (std::size_t x = 0; x < line.size(); ++x) {
                line[x] += static_cast<std::uint32_t>(share.parts) * row[x];
            }
        }
        for (int x = 0; x < across; ++x) {
            std::uint64_t sum = 0;
            for (const Share& share : horizontal.of(x)) {
                sum += std::uint64_t{share.parts} * line[static_cast<std::size_t>(share.pixel)];
            }
            const auto column = static_cast<std::size_t>(turned ? columns - 1 - y : x);
            const auto row = static_cast<std::size_t>(turned ? x : y);
            result[row * static_cast<std::size_t>(columns) + column] =
                static_cast<std::uint8_t>((sum + pixels / 2) / pixels);
        }
    }
    return result;
}

} // namespace dialog
