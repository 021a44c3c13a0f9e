#include "dialog/ppd/PPDCheck.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

const std::string kHead = "*PPD-Adobe: \"4.3\"\n";

std::string repeated(std::string_view text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

PPDFault faultOf(const std::string& contents)
{
    return checkPPD(contents).fault;
}

TEST(PPDCheck, PassesAnOrdinaryFile)
{
    EXPECT_EQ(checkPPD(kHead + "*OpenUI *PageSize/Tape: PickOne\n*PageSize A/a: \"\"\n"
                               "*ParamCustomPageSize Width: 1 points 10 20\n"
                               "*ParamCustomPageSize Orientation: 5 int 0 1\n"),
              PPDCheckResult{});
    EXPECT_EQ(faultOf(""), PPDFault::None); // for the library to say what is missing
}

TEST(PPDCheck, RefusesCompressedFilesAndThoseAboveTwoMebibytes)
{
    EXPECT_EQ(faultOf("\x1f\x8b\x08"), PPDFault::Compressed);
    EXPECT_EQ(faultOf(std::string(2 * 1024 * 1024, '\n')), PPDFault::None);
    EXPECT_EQ(faultOf(std::string(2 * 1024 * 1024 + 1, '\n')), PPDFault::TooLarge);
}

TEST(PPDCheck, CountsOptionsUpToTwoThousand)
{
    EXPECT_EQ(faultOf(kHead + repeated("*OpenUI *A/a: PickOne\n", 2000)), PPDFault::None);
    const PPDCheckResult found = checkPPD(kHead + repeated("*OpenUI *A/a: PickOne\n", 1000) +
                                          repeated("*JCLOpenUI *A/a: PickOne\r\n", 1001));
    EXPECT_EQ(found, (PPDCheckResult{PPDFault::TooManyOptions, 2002}));
}

TEST(PPDCheck, CountsPageSizesUpToFourThousand)
{
    EXPECT_EQ(faultOf(kHead + repeated("*PageSize A/a: \"\"\n", 4000)), PPDFault::None);
    EXPECT_EQ(checkPPD(kHead + repeated("*PageSize\tA:\"\"\r", 4001)),
              (PPDCheckResult{PPDFault::TooManySizes, 4002}));
}

TEST(PPDCheck, CountsTheMeasuresOfPageSizesUpToTwiceFourThousand)
{
    EXPECT_EQ(faultOf(kHead + repeated("*PaperDimension A: \"1 2\"\n", 4000) +
                      repeated("*ImageableArea A: \"0 0 1 2\"\n", 4000)),
              PPDFault::None);
    EXPECT_EQ(checkPPD(kHead + repeated("*PaperDimension A: \"1 2\"\n", 4000) +
                       repeated("*imageableArea A: \"0 0 1 2\"\n", 4001)),
              (PPDCheckResult{PPDFault::TooManySizes, 8002}));
}

TEST(PPDCheck, CountsGroupsWithinGroupsAndWithoutUpToAThousand)
{
    EXPECT_EQ(faultOf(kHead + repeated("*OpenGroup: A/a\n*CloseGroup: A\n", 1000)), PPDFault::None);
    EXPECT_EQ(checkPPD(kHead + repeated("*OpenGroup: A/a\n", 500) +
                       repeated("*OpenSubGroup: B/b\n", 501)),
              (PPDCheckResult{PPDFault::TooManyGroups, 1002}));
}

TEST(PPDCheck, CountsCustomParametersOfAllOptionsUpToAThousand)
{
    EXPECT_EQ(faultOf(kHead + repeated("*ParamCustomA x: 1 int 0 1\n", 1000)), PPDFault::None);
    EXPECT_EQ(checkPPD(kHead + repeated("*ParamCustomA x: 1 int 0 1\n", 500) +
                       repeated("*paramCustomB y: 1 int 0 1\n", 501)),
              (PPDCheckResult{PPDFault::TooManyCustomParameters, 1002}));
}

// The library would read the two halves of such a line as one word.
TEST(PPDCheck, AllowsAnEndOfFileMarkAtTheEndAlone)
{
    EXPECT_EQ(faultOf(kHead + "\x1a"), PPDFault::None);
    EXPECT_EQ(faultOf(kHead + "\x1a\r\n\x1a\x1a"), PPDFault::None);
    EXPECT_EQ(checkPPD(kHead + "*Par\x1a"
                               "amCustomPageSize Width: 1 int 1 2\n"),
              (PPDCheckResult{PPDFault::EndMark, 0}));
}

TEST(PPDCheck, CountsChoicesUpToTwentyThousandUnderWhateverOption)
{
    EXPECT_EQ(faultOf(kHead + repeated("*A x: \"\"\n*B y/z: \"\"\n", 10000)), PPDFault::None);
    EXPECT_EQ(faultOf(kHead + repeated("*A x: \"\"\n*B y/z: \"\"\n", 10000) + "*C w: \"\"\n"),
              PPDFault::TooManyChoices);
    EXPECT_EQ(faultOf(kHead + repeated("*DefaultA: x\n*% comment here: x\n", 30000)),
              PPDFault::None);
}

TEST(PPDCheck, WantsACustomWidthAndHeightInPoints)
{
    for (const char* type : {"int", "real", "string", "curve", "Points", "pointsx", ""}) {
        for (const char* name : {"Width", "Height", "WIDTH"}) {
            EXPECT_EQ(checkPPD(kHead + "*ParamCustomPageSize " + name + "/W: 1 " + type + " 1 2\n"),
                      (PPDCheckResult{PPDFault::CustomSizeNotALength, 2}))
                << name << " " << type;
        }
    }
    EXPECT_EQ(faultOf(kHead + "*paramcustompagesize Width: 1 int 1 2\n"),
              PPDFault::CustomSizeNotALength);
    EXPECT_EQ(faultOf(kHead + "*ParamCustomPageSize Width\n"), PPDFault::CustomSizeNotALength);
    EXPECT_EQ(faultOf(kHead + "*ParamCustomPageSize WidthOffset: 3 int 0 0\n"), PPDFault::None);
    EXPECT_EQ(faultOf(kHead + "*ParamCustomPageSize Height:2\t points 1 2"), PPDFault::None);
}

TEST(PPDCheck, HasAReasonForEveryFault)
{
    for (const PPDFault fault :
         {PPDFault::TooLarge, PPDFault::Compressed, PPDFault::TooManyOptions,
          PPDFault::TooManySizes, PPDFault::TooManyChoices, PPDFault::TooManyGroups,
          PPDFault::TooManyCustomParameters, PPDFault::EndMark, PPDFault::CustomSizeNotALength}) {
        EXPECT_NE(reasonText(fault), reasonText(PPDFault::None));
        EXPECT_FALSE(reasonText(fault).empty());
    }
}

} // namespace
} // namespace dialog
