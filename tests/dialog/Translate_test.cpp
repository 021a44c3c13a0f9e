#include "dialog/Translate.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

using dialog::filled;
using dialog::tr;

TEST(Filled, PutsEachPartInItsPlaceInAnyOrder)
{
    EXPECT_EQ(filled("{2} before {1}", {"a", "b"}), "b before a");
    EXPECT_EQ(filled("{1}{1}", {"twice "}), "twice twice ");
}

TEST(Filled, LeavesPlacesWithoutAPartAndBracesThatAreNoPlace)
{
    EXPECT_EQ(filled("{1} {2} {0} {x} {1", {"a"}), "a {2} {0} {x} {1");
}

TEST(Filled, NeverReadsAPartAsAPattern)
{
    EXPECT_EQ(filled("{1} {2}", {"{2}", "%s"}), "{2} %s");
}

TEST(Tr, AnswersTheEnglishTextWithoutACatalogue)
{
    dialog::openCatalogue("/dev/null", "de");
    EXPECT_STREQ(tr("Printer:"), "Printer:");
    EXPECT_STREQ(tr(""), "");
}

TEST(Tr, LeavesNumbersAndSortingOfTheProcessAlone)
{
    dialog::openCatalogue("/dev/null", "de");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_COLLATE, nullptr), "C");
}
