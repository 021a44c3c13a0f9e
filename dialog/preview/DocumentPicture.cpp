#include "dialog/preview/DocumentPicture.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>

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

// One edge of the picture cut into `count` pieces, measured in parts: an old pixel has `count` of
// them, and a piece as many as there are old pixels.  Where a piece begins, then:
struct Place
{
    std::uint32_t pixel;
    std::uint32_t parts; // of that pixel, which lie before
};

// Of every piece, and of the end.
std::vector<Place> places(int old, int count)
{
    std::vector<Place> result;
    result.reserve(static_cast<std::size_t>(count) + 1);
    for (int piece = 0; piece <= count; ++piece) {
        const int parts = piece * old;
        result.push_back(
            {static_cast<std::uint32_t>(parts / count), static_cast<std::uint32_t>(parts % count)});
    }
    return result;
}

// Ink times parts of a row of pieces, column by column of the old picture.
void addRow(std::vector<std::uint32_t>& line, const std::uint8_t* row, std::uint16_t parts)
{
    for (std::size_t x = 0; x < line.size(); ++x) {
        line[x] += static_cast<std::uint32_t>(parts) * row[x];
    }
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
    if (columns <= 0 || rows <= 0 || std::max(columns, rows) > kMostResampled || pixels == 0 ||
        picture.ink.size() != pixels) {
        return {};
    }
    // Of the picture as it stands: after the turn its rows run along the result's columns.
    const int across = turned ? rows : columns;
    const int down = turned ? columns : rows;
    const std::vector<Place> horizontal = places(picture.columns, across);
    const std::vector<Place> vertical = places(picture.rows, down);

    std::vector<std::uint8_t> result(static_cast<std::size_t>(columns) *
                                     static_cast<std::size_t>(rows));
    // Half a part more than half, so that a product just below a whole number is not cut to the
    // next.
    const double half = static_cast<double>(pixels / 2) + 0.5;
    const double each = 1.0 / static_cast<double>(pixels);
    const auto width = static_cast<std::size_t>(picture.columns);
    std::vector<std::uint32_t> line(width);
    std::vector<std::uint32_t> before(width + 1); // the sum of the line up to each column
    for (int y = 0; y < down; ++y) {
        std::fill(line.begin(), line.end(), 0);
        const Place top = vertical[static_cast<std::size_t>(y)];
        const Place end = vertical[static_cast<std::size_t>(y) + 1];
        for (std::uint32_t row = top.pixel; row <= end.pixel; ++row) {
            const std::uint32_t from = row == top.pixel ? top.parts : 0;
            const std::uint32_t to =
                row == end.pixel ? end.parts : static_cast<std::uint32_t>(down);
            if (to > from) {
                addRow(line, picture.ink.data() + row * width,
                       static_cast<std::uint16_t>(to - from));
            }
        }
        std::partial_sum(line.begin(), line.end(), before.begin() + 1);
        const auto sumUntil = [&](const Place& place) {
            const std::uint64_t whole = static_cast<std::uint64_t>(across) * before[place.pixel];
            return place.parts == 0
                       ? whole
                       : whole + static_cast<std::uint64_t>(place.parts) * line[place.pixel];
        };
        std::uint64_t left = 0;
        for (int x = 0; x < across; ++x) {
            const std::uint64_t right = sumUntil(horizontal[static_cast<std::size_t>(x) + 1]);
            const auto column = static_cast<std::size_t>(turned ? columns - 1 - y : x);
            const auto row = static_cast<std::size_t>(turned ? x : y);
            result[row * static_cast<std::size_t>(columns) + column] =
                static_cast<std::uint8_t>((static_cast<double>(right - left) + half) * each);
            left = right;
        }
    }
    return result;
}

} // namespace dialog
