// PPDText.hpp - a PPD written in the test that needs it, with only what that test is about.
//
//     PPDFile ppd = PPDText()
//                       .attribute("VnUnitType", "inch")
//                       .option("Resolution", "Resolution", {{"300dpi", "300 dpi"}}, "300dpi")
//                       .open();
//
// Texts go in as they are: the PPD says that it is UTF-8, and bytes that are not reach the reader.
#pragma once

#include <cups/ppd.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

struct PPDChoiceText
{
    std::string keyword;
    std::string text; // what the user sees; empty: CUPS shows the keyword
};

struct ClosePPD
{
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using PPDFile = std::unique_ptr<ppd_file_t, ClosePPD>;

class PPDText
{
  public:
    // A page size with its "PageSize" choice, in points.  The first one is the default.
    PPDText& paper(const std::string& keyword, const std::string& text, double width,
                   double height);

    // An option with its choices in order.  An empty `defaultChoice` writes no default line.
    PPDText& option(const std::string& keyword, const std::string& text,
                    const std::vector<PPDChoiceText>& choices, const std::string& defaultChoice);

    PPDText& attribute(const std::string& keyword, const std::string& value);

    // Written as it is, with a line end.
    PPDText& line(const std::string& text);

    std::string text() const;

    // Opened with the defaults marked.  A text that CUPS refuses is a failure of the test, told on
    // standard error, and answers null.
    PPDFile open() const;

  private:
    struct Paper
    {
        std::string keyword;
        std::string text;
        double width;
        double height;
    };
    std::vector<Paper> papers_;
    std::string body_;
};

// Opens a PPD given as text, without marking anything.
PPDFile openPPD(const std::string& text);

// The option's record; null when the PPD has none.
ppd_option_t* optionOf(const PPDFile& ppd, const char* keyword);
