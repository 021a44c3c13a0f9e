#include "dialog/printers/PrintServer.hpp"
#include "dialog/printers/Printers.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

TEST(Printers, ArePPDFilesThenQueuesThenTheSample)
{
    CommandLine line;
    line.ppdFiles = {"/x/label.ppd", "odd"};
    line.deviceURI = "socket://host";
    const auto printers =
        printersToOffer(line, {{"Office", "Second floor", "usb://A/B"}, {"Lab", "", ""}});
    ASSERT_EQ(printers.size(), 5u);
    EXPECT_EQ(printers[0].name, "label");
    EXPECT_EQ(printers[0].deviceURI, "socket://host");
    EXPECT_EQ(printers[0].ppdPath, "/x/label.ppd");
    EXPECT_EQ(printers[1].name, "odd");
    EXPECT_EQ(printers[2].title, "Second floor");
    EXPECT_EQ(printers[2].deviceURI, "usb://A/B");
    EXPECT_EQ(printers[3].title, "Lab");
    EXPECT_EQ(printers[4].kind, PrinterKind::Sample);
    EXPECT_EQ(printers[4].deviceURI, "usb://Sample/Tape");
}

TEST(Printers, AreFoundByNameFirstAndThenByTheirPPDsPath)
{
    CommandLine line;
    line.ppdFiles = {"/x/label.ppd"};
    const auto printers = printersToOffer(line, {{"Office", "", ""}});
    EXPECT_EQ(findPrinter(printers, "Office"), 1u);
    EXPECT_EQ(findPrinter(printers, "label"), 0u);
    EXPECT_EQ(findPrinter(printers, "/x/label.ppd"), 0u);
    EXPECT_EQ(findPrinter(printers, "Sample Tape"), 2u);
    EXPECT_FALSE(findPrinter(printers, "office"));
    EXPECT_FALSE(findPrinter(printers, ""));
}

TEST(PPDResource, EscapesWhatAServerCouldReadOtherwise)
{
    EXPECT_EQ(ppdResource("Office-2_a.b~"), "/printers/Office-2_a.b~.ppd");
    EXPECT_EQ(ppdResource("a b?c%/d\xc3\xa9"), "/printers/a%20b%3Fc%25%2Fd%C3%A9.ppd");
}

} // namespace
} // namespace dialog
