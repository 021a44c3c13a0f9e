#include "dialog/preview/DocumentPicture.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace dialog {
namespace {

using Ink = std::vector<std::uint8_t>;

DocumentPicture pixels(int columns, int rows, Ink ink)
{
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.columns = columns;
    picture.rows = rows;
    picture.ink = std::move(ink);
    return picture;
}

DocumentPicture text(std::string words)
{
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.kind = PictureKind::Text;
    picture.text = std::move(words);
    return picture;
}

void expectSame(const DocumentPicture& a, const DocumentPicture& b)
{
    EXPECT_EQ(a.problem, b.problem);
    EXPECT_EQ(a.kind, b.kind);
    EXPECT_EQ(a.pages, b.pages);
    EXPECT_EQ(a.width, b.width);
    EXPECT_EQ(a.height, b.height);
    EXPECT_EQ(a.columns, b.columns);
    EXPECT_EQ(a.rows, b.rows);
    EXPECT_EQ(a.ink, b.ink);
    EXPECT_EQ(a.text, b.text);
}

TEST(Packing, BringsAPictureAcrossAsItIs)
{
    DocumentPicture picture = pixels(3, 2, {0, 1, 127, 128, 254, 255});
    picture.kind = PictureKind::Page;
    picture.pages = 12;
    picture.width = 50.8;
    picture.height = 25.4 / 3;
    const auto back = unpacked(packed(picture));
    ASSERT_TRUE(back);
    expectSame(*back, picture);
}

TEST(Packing, BringsTextAcross)
{
    const DocumentPicture picture = text("one\ntwo 3 \xC3\xA4");
    const auto back = unpacked(packed(picture));
    ASSERT_TRUE(back);
    expectSame(*back, picture);
}

TEST(Packing, BringsEveryProblemAcross)
{
    for (const PictureProblem problem :
         {PictureProblem::UnknownKind, PictureProblem::Damaged, PictureProblem::TooLarge,
          PictureProblem::Locked, PictureProblem::TooSlow, PictureProblem::NotMade}) {
        const auto back = unpacked(packed(DocumentPicture::failed(problem)));
        ASSERT_TRUE(back);
        EXPECT_EQ(back->problem, problem);
    }
}

TEST(Unpacking, RefusesBytesThatAreNotWhole)
{
    const std::string bytes = packed(pixels(3, 2, {0, 1, 127, 128, 254, 255}));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(unpacked(bytes.substr(0, size))) << size;
    }
    EXPECT_TRUE(unpacked(bytes));
    EXPECT_FALSE(unpacked(bytes + "x"));
}

TEST(Unpacking, RefusesNumbersOutOfBounds)
{
    const auto header = [](const std::string& numbers, std::size_t bytes = 0) {
        return unpacked("tape-print picture 1 " + numbers + "\n" + std::string(bytes, 'x'));
    };
    // problem, kind, pages, width, height, columns, rows, length of the text
    EXPECT_TRUE(header("0 0 1 0 0 2 3 0", 6));
    EXPECT_FALSE(header("7 0 1 0 0 2 3 0", 6));
    EXPECT_FALSE(header("-1 0 1 0 0 2 3 0", 6));
    EXPECT_FALSE(header("0 3 1 0 0 2 3 0", 6));
    EXPECT_FALSE(header("0 0 0 0 0 2 3 0", 6));
    EXPECT_FALSE(header("0 0 1 -1 0 2 3 0", 6));
    EXPECT_FALSE(header("0 0 1 nan 0 2 3 0", 6));
    EXPECT_FALSE(header("0 0 1 0 inf 2 3 0", 6));
    EXPECT_FALSE(header("0 0 1 0 0 -2 -3 0", 6));
    EXPECT_FALSE(header("0 0 1 0 0 2049 1 0", 2049));
    EXPECT_TRUE(header("0 0 1 0 0 2048 1 0", 2048));
    EXPECT_FALSE(header("0 0 1 0 0 2048 2048 0", std::size_t{2048} * 2048));
    EXPECT_FALSE(header("0 0 1 0 0 0 0 0"));    // pixels that are none
    EXPECT_FALSE(header("0 2 1 0 0 2 3 0", 6)); // text with pixels
    EXPECT_TRUE(header("0 2 1 0 0 0 0 65536", 65536));
    EXPECT_FALSE(header("0 2 1 0 0 0 0 65537", 65537));
    EXPECT_FALSE(header("0 0 1 0 0 99999999999 1 0"));
    EXPECT_FALSE(unpacked("tape-print picture 2 0 0 1 0 0 1 1 0\nx"));
}

TEST(FirstPageOfText, EndsAtTheFormFeed)
{
    EXPECT_EQ(firstPageOfText("one\ntwo\n\fthree"), "one\ntwo");
}

TEST(FirstPageOfText, WidensTabsToEights)
{
    EXPECT_EQ(firstPageOfText("a\tb\n\tc\n12345678\td"), "a       b\n        c\n12345678        d");
    // A letter of two bytes is one column.
    EXPECT_EQ(firstPageOfText("\xC3\xA4\tb"), "\xC3\xA4       b");
}

TEST(FirstPageOfText, LeavesOutControlCharacters)
{
    EXPECT_EQ(firstPageOfText("a\r\nb\x1B\x7F"), "a\nb");
}

TEST(FirstPageOfText, HasNoEmptyEnd)
{
    EXPECT_EQ(firstPageOfText("\n a \n\n  \n"), "\n a");
    EXPECT_EQ(firstPageOfText(" \n"), "");
}

TEST(FirstPageOfText, HasSixtySixLinesAtMost)
{
    std::string lines;
    std::string expected;
    for (int i = 1; i <= 70; ++i) {
        lines += std::to_string(i) + '\n';
        expected += i <= 66 ? (i == 1 ? "" : "\n") + std::to_string(i) : "";
    }
    EXPECT_EQ(firstPageOfText(lines), expected);
}

TEST(FirstPageOfText, HasAThousandColumnsAtMostAndNoHalfCharacters)
{
    std::string line;
    for (int i = 0; i < 1500; ++i) {
        line += "\xE2\x82\xAC";
    }
    EXPECT_EQ(firstPageOfText(line + "\nb"), line.substr(0, 3000) + "\nb");
    EXPECT_EQ(firstPageOfText(std::string(999, 'x') + "\ty"), std::string(999, 'x'));
}

TEST(FirstPageOfText, StaysWithinItsBytes)
{
    std::string lines;
    for (int i = 0; i < 66; ++i) {
        for (int j = 0; j < 1000; ++j) {
            lines += "\xF0\x9F\x8F\xB7";
        }
        lines += '\n';
    }
    const std::string page = firstPageOfText(lines);
    EXPECT_LE(page.size(), kMostText);
    EXPECT_GT(page.size(), kMostText - 32);
    EXPECT_EQ(lines.compare(0, page.size(), page), 0);
    EXPECT_EQ(static_cast<unsigned char>(page[page.size() - 4]), 0xF0); // the last one is whole
}

TEST(Measured, CountsLinesAndCharacters)
{
    const TextSize size = measured("one\n\n\xC3\xA4\xC3\xB6\xC3\xBC 4");
    EXPECT_EQ(size.lines, (std::vector<std::string_view>{"one", "", "\xC3\xA4\xC3\xB6\xC3\xBC 4"}));
    EXPECT_EQ(size.columns, 5u);
    EXPECT_TRUE(measured("").lines.empty());
}

TEST(SizeOf, IsWhatAPictureSays)
{
    DocumentPicture picture = pixels(4, 2, Ink(8));
    picture.width = 50;
    picture.height = 20;
    const auto size = sizeOf(picture);
    ASSERT_TRUE(size);
    EXPECT_EQ(size->width, 50);
    EXPECT_EQ(size->height, 20);
    EXPECT_TRUE(size->mayTurn);
}

TEST(SizeOf, IsTheShapeOfTheOneThatSaysNothing)
{
    const auto size = sizeOf(pixels(4, 2, Ink(8)));
    ASSERT_TRUE(size);
    EXPECT_EQ(size->width, 0);
    EXPECT_EQ(size->aspect, 2);
}

TEST(SizeOf, CountsTextInTenthsAndSixthsOfAnInch)
{
    const auto size = sizeOf(text("1234567890\nb"));
    ASSERT_TRUE(size);
    EXPECT_DOUBLE_EQ(size->width, 25.4);
    EXPECT_DOUBLE_EQ(size->height, 25.4 / 3);
    EXPECT_FALSE(size->mayTurn);
}

TEST(SizeOf, IsNothingForWhatCannotBeShown)
{
    EXPECT_FALSE(sizeOf(DocumentPicture::failed(PictureProblem::Damaged)));
    EXPECT_FALSE(sizeOf(text("")));
    EXPECT_FALSE(sizeOf(text("\n\n")));
    EXPECT_FALSE(sizeOf(pixels(0, 0, {})));
}

TEST(Resampled, LeavesThePixelsAloneAtTheirOwnSize)
{
    const Ink ink{0, 50, 100, 150, 200, 250};
    EXPECT_EQ(resampled(pixels(3, 2, ink), 3, 2, false), ink);
}

TEST(Resampled, TakesTheMeanOfWhatAPixelCovers)
{
    // Two by two become one; then three columns two: the middle one belongs half to either.
    EXPECT_EQ(resampled(pixels(2, 2, {0, 100, 200, 40}), 1, 1, false), (Ink{85}));
    EXPECT_EQ(resampled(pixels(3, 1, {90, 30, 240}), 2, 1, false), (Ink{70, 170}));
}

TEST(Resampled, RepeatsPixelsWhereThereAreTooFew)
{
    EXPECT_EQ(resampled(pixels(2, 1, {10, 20}), 4, 2, false),
              (Ink{10, 10, 20, 20, 10, 10, 20, 20}));
}

TEST(Resampled, TurnsClockwise)
{
    // 1 2 3      4 1
    // 4 5 6  ->  5 2
    //            6 3
    EXPECT_EQ(resampled(pixels(3, 2, {1, 2, 3, 4, 5, 6}), 2, 3, true), (Ink{4, 1, 5, 2, 6, 3}));
}

TEST(Resampled, IsEmptyWithoutPixels)
{
    EXPECT_TRUE(resampled(pixels(0, 0, {}), 3, 2, false).empty());
    EXPECT_TRUE(resampled(pixels(1, 1, {9}), 0, 2, false).empty());
    EXPECT_TRUE(resampled(pixels(1, 1, {9}), 2, -1, false).empty());
    EXPECT_TRUE(resampled(pixels(1, 1, {9}), 65536, 1, false).empty()); // more than there can be
    EXPECT_TRUE(resampled(pixels(1, 1, {9}), 1, 65536, false).empty());
    EXPECT_EQ(resampled(pixels(1, 1, {9}), 1, 65535, false), Ink(65535, 9));
    EXPECT_TRUE(resampled(pixels(2, 2, {9}), 2, 2, false).empty()); // fewer than it says
}

// The same another way: every small pixel is looked at a hundred times by itself.
TEST(Resampled, KeepsToTheMeanAtEverySize)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> side(1, 9);
    for (int run = 0; run < 60; ++run) {
        const int oldColumns = side(random);
        const int oldRows = side(random);
        const int columns = side(random);
        const int rows = side(random);
        Ink ink(static_cast<std::size_t>(oldColumns * oldRows));
        for (std::uint8_t& value : ink) {
            value = static_cast<std::uint8_t>(random() % 256);
        }
        const Ink result = resampled(pixels(oldColumns, oldRows, ink), columns, rows, false);
        ASSERT_EQ(result.size(), static_cast<std::size_t>(columns * rows));
        // Both grids' edges fall on multiples of 1 / (old * new).
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                double sum = 0;
                for (int j = 0; j < oldRows; ++j) {
                    for (int i = 0; i < oldColumns; ++i) {
                        const int row = (y * oldRows + j) / rows;
                        const int column = (x * oldColumns + i) / columns;
                        sum += ink[static_cast<std::size_t>(row * oldColumns + column)];
                    }
                }
                ASSERT_NEAR(result[static_cast<std::size_t>(y * columns + x)],
                            sum / (oldRows * oldColumns), 0.5001);
            }
        }
    }
}

} // namespace
} // namespace dialog
