#include "dialog/preview/Label.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace dialog {
namespace {

// A tape of 24 mm with 1 mm at either edge that is not printed on.
Label label(double length, double margin = 3)
{
    return {24, length, margin, 1, 1};
}

DocumentSize page(double width, double height)
{
    return {width, height, width / height, true};
}

DocumentSize withoutSize(double aspect)
{
    return {0, 0, aspect, true};
}

TEST(PlaceDocument, PutsASmallDocumentInTheMiddleAtItsOwnSize)
{
    const Placement place = placeDocument(label(100), page(50, 12));
    EXPECT_DOUBLE_EQ(place.x, 25); // (100 - 50) / 2
    EXPECT_DOUBLE_EQ(place.y, 6);  // 1 + (22 - 12) / 2
    EXPECT_DOUBLE_EQ(place.along, 50);
    EXPECT_DOUBLE_EQ(place.across, 12);
    EXPECT_FALSE(place.turned);
    EXPECT_DOUBLE_EQ(place.share, 1);
    EXPECT_DOUBLE_EQ(place.beyondLabel, 0);
    EXPECT_DOUBLE_EQ(place.intoMargins, 0);
}

TEST(PlaceDocument, StaysInTheMiddleOfABandThatIsNotTheTapes)
{
    const Label uneven{24, 100, 3, 4, 0};
    EXPECT_DOUBLE_EQ(placeDocument(uneven, page(50, 12)).y, 8); // 4 + (20 - 12) / 2
}

TEST(PlaceDocument, TurnsAPageThatFitsOnlyOnItsSide)
{
    const Placement place = placeDocument(label(100), page(24, 90));
    EXPECT_TRUE(place.turned);
    EXPECT_DOUBLE_EQ(place.along, 90);
    EXPECT_DOUBLE_EQ(place.across, 24);
    EXPECT_DOUBLE_EQ(place.ownAcross, 24);
    EXPECT_DOUBLE_EQ(place.y, 0); // as wide as the tape
}

TEST(PlaceDocument, KeepsUprightWhatFitsBothWays)
{
    EXPECT_FALSE(placeDocument(label(100), page(10, 20)).turned);
}

TEST(PlaceDocument, NeverTurnsText)
{
    DocumentSize text = page(24, 90);
    text.mayTurn = false;
    const Placement place = placeDocument(label(100), text);
    EXPECT_FALSE(place.turned);
    EXPECT_DOUBLE_EQ(place.across, 22); // scaled to the band
    EXPECT_DOUBLE_EQ(place.share, 22 / 90.0);
}

TEST(PlaceDocument, SaysHowMuchLongerThanTheLabelADocumentIs)
{
    const Placement place = placeDocument(label(100), page(112.3, 20));
    EXPECT_NEAR(place.beyondLabel, 12.3, 1e-9);
    EXPECT_DOUBLE_EQ(place.x, 0); // begins where the label begins
    EXPECT_DOUBLE_EQ(place.along, 112.3);
    EXPECT_DOUBLE_EQ(place.intoMargins, 0);
}

TEST(PlaceDocument, SaysHowFarADocumentReachesIntoTheMargins)
{
    const Placement place = placeDocument(label(100), page(98, 20));
    EXPECT_DOUBLE_EQ(place.intoMargins, 2); // (98 - 94) / 2
    EXPECT_DOUBLE_EQ(place.x, 1);
    EXPECT_DOUBLE_EQ(place.beyondLabel, 0);
}

TEST(PlaceDocument, SaysNothingOfAQuarterOfAMillimetre)
{
    EXPECT_DOUBLE_EQ(placeDocument(label(100), page(100.25, 20)).beyondLabel, 0);
    EXPECT_NEAR(placeDocument(label(100), page(100.26, 20)).beyondLabel, 0.26, 1e-9);
    EXPECT_DOUBLE_EQ(placeDocument(label(100), page(94.5, 20)).intoMargins, 0);
    EXPECT_NEAR(placeDocument(label(100), page(94.52, 20)).intoMargins, 0.26, 1e-9);
}

TEST(PlaceDocument, ScalesAPageThatFitsNeitherWayToThePrintableBand)
{
    // Its longer side lies along the tape: 210 mm across become 22.
    const Placement place = placeDocument(label(100), page(210, 297));
    EXPECT_TRUE(place.turned);
    EXPECT_DOUBLE_EQ(place.across, 22);
    EXPECT_NEAR(place.along, 297 * 22 / 210.0, 1e-9);
    EXPECT_DOUBLE_EQ(place.ownAcross, 210);
    EXPECT_DOUBLE_EQ(place.share, 22 / 210.0);
    EXPECT_DOUBLE_EQ(place.y, 1);
}

TEST(PlaceDocument, TakesAPageThatIsAsWideAsTheTapeButForRoundingAsItIs)
{
    EXPECT_DOUBLE_EQ(placeDocument(label(100), page(80, 24.5)).share, 1);
    EXPECT_LT(placeDocument(label(100), page(80, 24.51)).share, 1);
}

TEST(PlaceDocument, MakesWhatHasNoSizeAsLargeAsThePrintableAreaAllows)
{
    const Placement wide = placeDocument(label(100), withoutSize(10));
    EXPECT_DOUBLE_EQ(wide.along, 94); // between the margins
    EXPECT_DOUBLE_EQ(wide.across, 9.4);
    EXPECT_DOUBLE_EQ(wide.share, 0);
    EXPECT_DOUBLE_EQ(wide.ownAcross, 0);

    const Placement tall = placeDocument(label(100), withoutSize(2));
    EXPECT_DOUBLE_EQ(tall.across, 22);
    EXPECT_DOUBLE_EQ(tall.along, 44);

    const Placement upended = placeDocument(label(100), withoutSize(0.25));
    EXPECT_TRUE(upended.turned);
    EXPECT_DOUBLE_EQ(upended.along, 88); // 22 * 4

    EXPECT_FALSE(placeDocument(label(100), withoutSize(1)).turned);
}

TEST(PlaceDocument, KeepsEveryDocumentThatFitsInsideTheLabel)
{
    std::mt19937 random(20240711);
    std::uniform_real_distribution<double> side(0.5, 400);
    std::uniform_real_distribution<double> long_(10, 500);
    for (int i = 0; i < 20'000; ++i) {
        const Label tape = label(long_(random));
        const DocumentSize document = page(side(random), side(random));
        const Placement place = placeDocument(tape, document);
        // The area keeps its shape whichever way it lies.
        const double aspect = place.along / place.across;
        ASSERT_NEAR(place.turned ? 1 / aspect : aspect, document.aspect, document.aspect * 1e-9);
        ASSERT_LE(place.across, tape.width + 0.5);
        ASSERT_NEAR(place.y + place.across / 2, 12, 1e-9);
        ASSERT_EQ(place.beyondLabel > 0, place.along > tape.length + 0.25);
        if (place.beyondLabel == 0) {
            ASSERT_NEAR(place.x + place.along / 2, tape.length / 2, 0.13);
        }
        ASSERT_LE(place.share, 1);
    }
}

TEST(IsDrawable, RefusesWhatHasNoLengthOrNoBand)
{
    EXPECT_TRUE(isDrawable(label(100)));
    EXPECT_TRUE(isDrawable(label(6, 3)));
    EXPECT_FALSE(isDrawable(label(5.9, 3)));
    EXPECT_FALSE(isDrawable(label(0, 0)));
    EXPECT_FALSE(isDrawable(label(-1, 0)));
    EXPECT_FALSE(isDrawable(label(100, -1)));
    EXPECT_FALSE(isDrawable({2, 100, 3, 1, 1}));
    EXPECT_TRUE(isDrawable({2.1, 100, 3, 1, 1}));
}

TEST(IsDrawable, RefusesNumbersThatAreNone)
{
    EXPECT_FALSE(isDrawable(label(std::numeric_limits<double>::infinity())));
    EXPECT_FALSE(isDrawable(label(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_FALSE(isDrawable(label(100, std::numeric_limits<double>::quiet_NaN())));
    EXPECT_TRUE(isDrawable(label(100'000)));
    EXPECT_FALSE(isDrawable(label(100'001)));
}

} // namespace
} // namespace dialog
