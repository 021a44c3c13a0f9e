#include "dialog/preview/PictureMaker.hpp"

#include "dialog/preview/PictureRequest.hpp"
#include "tests/dialog/preview/Documents.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace dialog {
namespace {

using documents::Pixel;

const Pixel kBlack{0, 0, 0, 255};
const Pixel kWhite{255, 255, 255, 255};

// Forty by twenty, the left half black.
std::vector<Pixel> leftHalf()
{
    std::vector<Pixel> pixels;
    for (int i = 0; i < 800; ++i) {
        pixels.push_back(i % 40 < 20 ? kBlack : kWhite);
    }
    return pixels;
}

int inkAt(const DocumentPicture& picture, double x, double y)
{
    const auto column = static_cast<std::size_t>(x * picture.columns);
    const auto row = static_cast<std::size_t>(y * picture.rows);
    return picture.ink.at(row * static_cast<std::size_t>(picture.columns) + column);
}

class Images : public testing::TestWithParam<const char*>
{
};

TEST_P(Images, ComeWithTheirInkAndTheirSize)
{
    const DocumentPicture picture = makePicture(documents::image(GetParam(), 40, leftHalf(), 200));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.kind, PictureKind::Pixels);
    EXPECT_EQ(picture.columns, 40);
    EXPECT_EQ(picture.rows, 20);
    EXPECT_NEAR(picture.width, 5.08, 0.03); // 40 / 200 inches; PNG rounds to dots in a metre
    EXPECT_NEAR(picture.height, 2.54, 0.02);
    EXPECT_GE(inkAt(picture, 0.25, 0.5), 250);
    EXPECT_LE(inkAt(picture, 0.75, 0.5), 5);
    EXPECT_GE(inkAt(picture, 0.02, 0.02), 250);
    EXPECT_LE(inkAt(picture, 0.98, 0.98), 5);
}

TEST_P(Images, AreDamagedWhenTheirHeadIsCutOff)
{
    const std::string whole = documents::image(GetParam(), 40, leftHalf(), 200);
    EXPECT_EQ(makePicture(whole.substr(0, 16)).problem, PictureProblem::Damaged);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Images, testing::Values("png", "jpeg", "tiff"));

TEST(Image, HasNoSizeWhereItSaysNone)
{
    const DocumentPicture picture = makePicture(documents::image("png", 40, leftHalf()));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.width, 0);
    EXPECT_EQ(picture.height, 0);
}

TEST(Image, HasNoSizeWhereItsResolutionCannotBe)
{
    EXPECT_EQ(makePicture(documents::image("png", 40, leftHalf(), 6)).width, 0);
    EXPECT_EQ(makePicture(documents::image("png", 40, leftHalf(), 9000)).width, 0);
    EXPECT_GT(makePicture(documents::image("png", 40, leftHalf(), 4800)).width, 0);
}

TEST(Image, IsInkByItsBrightnessAndItsCover)
{
    const DocumentPicture picture = makePicture(documents::image(
        "png", 6,
        {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {128, 128, 128}, {0, 0, 0, 0}, {0, 0, 0, 102}}, 0,
        true));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    // 255 less 0.299, 0.587 and 0.114 of it; the last is covered by two fifths.
    EXPECT_EQ(picture.ink, (std::vector<std::uint8_t>{179, 105, 226, 127, 0, 102}));
}

TEST(Image, IsMadeSmallerWhenItHasMorePixelsThanAreShown)
{
    const DocumentPicture picture = makePicture(
        documents::image("png", 5000, std::vector<Pixel>(std::size_t{5000} * 100, kBlack), 300));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.columns, 2048);
    EXPECT_EQ(picture.rows, 40); // 100 * 2048 / 5000
    EXPECT_EQ(picture.ink.size(), std::size_t{2048} * 40);
    EXPECT_NEAR(picture.width, 5000 / 300.0 * 25.4, 0.1); // its size stays
    EXPECT_EQ(inkAt(picture, 0.5, 0.5), 255);
}

TEST(Image, IsRefusedBeforeItIsReadWhenItHasTooManyPixels)
{
    // Only the head of it, which says 20,000 by 20,000.
    std::string bytes = documents::image("png", 1, {kBlack});
    const std::string side("\x00\x00\x4E\x20", 4);
    bytes.replace(16, 8, side + side);
    const DocumentPicture picture = makePicture(bytes);
    EXPECT_NE(picture.problem, PictureProblem::None);
    EXPECT_TRUE(picture.ink.empty());

    EXPECT_EQ(makePicture(documents::image("tiff", 8000,
                                           std::vector<Pixel>(std::size_t{8000} * 5001, kWhite)))
                  .problem,
              PictureProblem::TooLarge);
}

TEST(Page, IsDrawnWithItsSize)
{
    const DocumentPicture picture = makePicture(documents::pdf());
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.kind, PictureKind::Page);
    EXPECT_EQ(picture.pages, 1);
    EXPECT_DOUBLE_EQ(picture.width, 50.8);
    EXPECT_DOUBLE_EQ(picture.height, 25.4);
    EXPECT_EQ(picture.columns, 1200); // 600 to the inch
    EXPECT_EQ(picture.rows, 600);
    EXPECT_EQ(inkAt(picture, 0.25, 0.5), 255);
    EXPECT_EQ(inkAt(picture, 0.75, 0.5), 0);
}

TEST(Page, IsDrawnAsItIsTurned)
{
    documents::PDF document;
    document.rotation = 90; // clockwise: the left half comes to lie above
    const DocumentPicture picture = makePicture(documents::pdf(document));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_DOUBLE_EQ(picture.width, 25.4);
    EXPECT_DOUBLE_EQ(picture.height, 50.8);
    EXPECT_EQ(inkAt(picture, 0.5, 0.25), 255);
    EXPECT_EQ(inkAt(picture, 0.5, 0.75), 0);
}

TEST(Page, IsCutToItsCropBox)
{
    documents::PDF document;
    document.page = "/CropBox [36 0 108 72]"; // black is the left half of what is left
    const DocumentPicture picture = makePicture(documents::pdf(document));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_DOUBLE_EQ(picture.width, 25.4);
    EXPECT_DOUBLE_EQ(picture.height, 25.4);
    EXPECT_EQ(inkAt(picture, 0.25, 0.5), 255);
    EXPECT_EQ(inkAt(picture, 0.75, 0.5), 0);
}

TEST(Page, KnowsHowManyThereAre)
{
    documents::PDF document;
    document.pages = 7;
    EXPECT_EQ(makePicture(documents::pdf(document)).pages, 7);
}

TEST(Page, IsDrawnCoarserWhenItIsLarge)
{
    documents::PDF document;
    document.box = "0 0 7200 72"; // a hundred inches
    const DocumentPicture picture = makePicture(documents::pdf(document));
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_DOUBLE_EQ(picture.width, 2540);
    EXPECT_EQ(picture.columns, 2048);
    EXPECT_EQ(picture.rows, 20);
}

TEST(Page, IsDamagedWithoutPagesAndWithoutAnythingElse)
{
    documents::PDF document;
    document.pages = 0;
    EXPECT_EQ(makePicture(documents::pdf(document)).problem, PictureProblem::Damaged);
    EXPECT_EQ(makePicture("%PDF-1.4\nnothing").problem, PictureProblem::Damaged);
}

TEST(Page, IsLockedByAPassword)
{
    documents::PDF document;
    const std::string thirtyTwo(32, 'x'); // fits no password, the empty one neither
    document.trailer = "/ID [(a) (a)] /Encrypt << /Filter /Standard /V 1 /R 2 /P -4 /O (" +
                       thirtyTwo + ") /U (" + thirtyTwo + ") >>";
    EXPECT_EQ(makePicture(documents::pdf(document)).problem, PictureProblem::Locked);
}

TEST(Text, IsTakenWhateverItsLanguage)
{
    const DocumentPicture picture = makePicture("\xE3\x83\xA9\xE3\x83\x99\xE3\x83\xAB\nb\n");
    ASSERT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.kind, PictureKind::Text);
    EXPECT_EQ(picture.text, "\xE3\x83\xA9\xE3\x83\x99\xE3\x83\xAB\nb");
}

TEST(Text, MayBeEmpty)
{
    EXPECT_EQ(makePicture("").problem, PictureProblem::None);
}

TEST(MakePicture, KnowsNothingElse)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(makePicture("a\0b"sv).problem, PictureProblem::UnknownKind);
    EXPECT_EQ(makePicture("Gr\xFC\xDF").problem, PictureProblem::UnknownKind); // Latin-1
    EXPECT_EQ(makePicture("GIF89a\x01\x00\x01\x00"sv).problem, PictureProblem::UnknownKind);
}

TEST(MakePicture, RefusesMoreThanItLooksAt)
{
    EXPECT_EQ(makePicture(std::string(kMostDocumentBytes + 1, ' ')).problem,
              PictureProblem::TooLarge);
}

// Whatever a document does, the answer is one of those there are.
TEST(DamagedDocuments, NeverGoUnanswered)
{
    std::string pattern = (std::filesystem::temp_directory_path() / "damaged-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const std::string path = pattern + "/document";
    const std::vector<std::string> whole{
        documents::image("png", 40, leftHalf(), 200), documents::image("jpeg", 40, leftHalf(), 200),
        documents::image("tiff", 40, leftHalf(), 200), documents::pdf()};
    std::mt19937 random(4711);
    int shown = 0;
    int refused = 0;
    for (int run = 0; run < 36; ++run) {
        std::string bytes = whole[static_cast<std::size_t>(run) % whole.size()];
        if (run % 3 == 0) {
            bytes.resize(random() % bytes.size());
        }
        for (unsigned i = random() % 8; i > 0 && !bytes.empty(); --i) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
        PictureRequest request(PICTURE_PROGRAM, path);
        const auto picture = request.wait();
        ASSERT_TRUE(picture) << run;
        ++(picture->problem == PictureProblem::None ? shown : refused);
        if (picture->problem == PictureProblem::None && picture->kind != PictureKind::Text) {
            EXPECT_EQ(picture->ink.size(), static_cast<std::size_t>(picture->columns) *
                                               static_cast<std::size_t>(picture->rows))
                << run;
        }
    }
    EXPECT_GT(shown, 0);
    EXPECT_GT(refused, 0);
    std::filesystem::remove_all(pattern);
}

} // namespace
} // namespace dialog
