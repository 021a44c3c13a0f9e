#include "dialog/preview/Sentences.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace dialog {
namespace {

using pagesettings::Unit;

const Label kLabel{24, 62, 3, 1, 1};

DocumentPicture shown(PictureKind kind = PictureKind::Page)
{
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.kind = kind;
    return picture;
}

std::string sentence(const Placement& place, const DocumentPicture& picture = shown(),
                     Unit unit = Unit::Millimetres)
{
    return documentSentence(kLabel, picture, &place, unit);
}

TEST(Amount, HasOneDecimalInMillimetresAndTwoInInches)
{
    EXPECT_EQ(amount(62, Unit::Millimetres), "62.0 mm");
    EXPECT_EQ(amount(12.34, Unit::Millimetres), "12.3 mm");
    EXPECT_EQ(amount(62, Unit::Inches), "2.44 in"); // 62 * 0.0393701 = 2.44095
}

TEST(TapeUsedSentence, TellsTheLengthAndBothMargins)
{
    EXPECT_EQ(tapeUsedSentence(kLabel, Unit::Millimetres),
              "Tape used 62.0 mm, of it 6.0 mm margins");
    EXPECT_EQ(tapeUsedSentence(kLabel, Unit::Inches), "Tape used 2.44 in, of it 0.24 in margins");
}

TEST(TapeUsedSentence, SaysNothingOfMarginsWhereThereAreNone)
{
    EXPECT_EQ(tapeUsedSentence({24, 62, 0, 1, 1}, Unit::Millimetres), "Tape used 62.0 mm");
}

TEST(SizeSentence, TellsWidthAndLength)
{
    EXPECT_EQ(sizeSentence(kLabel, Unit::Millimetres), "24.0 mm × 62.0 mm");
}

TEST(DocumentSentence, IsEmptyForADocumentThatLiesWell)
{
    EXPECT_EQ(sentence({}), "");
}

TEST(DocumentSentence, TellsHowMuchLongerTheDocumentIsAndWhoDecides)
{
    Placement place;
    place.beyondLabel = 12.3;
    EXPECT_EQ(sentence(place), "The document is longer than the label by 12.3 mm. The printer's "
                               "filter may cut or scale it.");
    EXPECT_TRUE(isWarning(place));
    EXPECT_FALSE(isWarning({}));
}

TEST(DocumentSentence, TellsHowFarItIsScaled)
{
    Placement place;
    place.share = 22 / 210.0;
    place.ownAcross = 210;
    EXPECT_EQ(sentence(place), "The document is 210.0 mm wide, the tape 24.0 mm. It is shown at "
                               "10 %; the printer's filter may cut it instead.");
    place.share = 0.0001;
    EXPECT_NE(sentence(place).find("at 1 %"), std::string::npos);
}

TEST(DocumentSentence, TellsThatAPictureHasNoSize)
{
    Placement place;
    place.share = 0;
    EXPECT_EQ(sentence(place, shown(PictureKind::Pixels)),
              "The picture does not tell its size; it is shown as large as fits.");
}

TEST(DocumentSentence, TellsHowFarItReachesIntoTheMargins)
{
    Placement place;
    place.intoMargins = 25.4;
    EXPECT_EQ(sentence(place, shown(), Unit::Inches),
              "The document reaches 1.00 in into each margin.");
}

TEST(DocumentSentence, TellsWhatTheFilterDoesToTextAndHowManyPagesThereAre)
{
    EXPECT_EQ(sentence({}, shown(PictureKind::Text)),
              "How text is set is up to the printer's filter.");
    DocumentPicture picture = shown();
    picture.pages = 3;
    Placement place;
    place.beyondLabel = 1;
    EXPECT_EQ(sentence(place, picture), "The document is longer than the label by 1.0 mm. The "
                                        "printer's filter may cut or scale it. Page 1 of 3.");
}

TEST(DocumentSentence, HasItsOwnWordsForEveryProblem)
{
    std::set<std::string> sentences;
    for (const PictureProblem problem :
         {PictureProblem::UnknownKind, PictureProblem::Damaged, PictureProblem::TooLarge,
          PictureProblem::Locked, PictureProblem::TooSlow, PictureProblem::NotMade}) {
        const std::string text =
            documentSentence(kLabel, DocumentPicture::failed(problem), nullptr, Unit::Millimetres);
        EXPECT_TRUE(text.ends_with("."));
        sentences.insert(text);
    }
    EXPECT_EQ(sentences.size(), 6u);
}

TEST(PictureSentence, TellsAllOfIt)
{
    EXPECT_EQ(pictureSentence(kLabel, "Page 1 of 3.", Unit::Millimetres),
              "Picture of the label, 24.0 mm × 62.0 mm. Tape used 62.0 mm, of it 6.0 mm margins. "
              "Page 1 of 3.");
    EXPECT_TRUE(pictureSentence(kLabel, "", Unit::Millimetres).ends_with("margins."));
}

} // namespace
} // namespace dialog
