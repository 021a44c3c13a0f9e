#include "support/PPDText.hpp"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

namespace {

// Always with a point: a test may run under any locale.
std::string points(double value)
{
    const long hundredths = static_cast<long>(value * 100 + 0.5);
    std::string fraction = std::to_string(hundredths % 100);
    if (fraction.size() < 2)
        fraction.insert(0, "0");
    return std::to_string(hundredths / 100) + "." + fraction;
}

std::string withText(const std::string& keyword, const std::string& text)
{
    return text.empty() ? keyword : keyword + "/" + text;
}

} // namespace

PPDText& PPDText::paper(const std::string& keyword, const std::string& text, double width,
                        double height)
{
    papers_.push_back({keyword, text, width, height});
    return *this;
}

PPDText& PPDText::option(const std::string& keyword, const std::string& text,
                         const std::vector<PPDChoiceText>& choices,
                         const std::string& defaultChoice)
{
    line("*OpenUI *" + withText(keyword, text) + ": PickOne");
    line("*OrderDependency: 10 AnySetup *" + keyword);
    if (!defaultChoice.empty())
        line("*Default" + keyword + ": " + defaultChoice);
    for (const PPDChoiceText& choice : choices)
        line("*" + keyword + " " + withText(choice.keyword, choice.text) + ": \"\"");
    return line("*CloseUI: *" + keyword);
}

PPDText& PPDText::attribute(const std::string& keyword, const std::string& value)
{
    return line("*" + keyword + ": \"" + value + "\"");
}

PPDText& PPDText::line(const std::string& text)
{
    body_ += text + "\n";
    return *this;
}

std::string PPDText::text() const
{
    std::string whole = "*PPD-Adobe: \"4.3\"\n"
                        "*FormatVersion: \"4.3\"\n"
                        "*LanguageVersion: English\n"
                        "*LanguageEncoding: UTF-8\n"
                        "*Manufacturer: \"Vendor\"\n"
                        "*ModelName: \"Vendor Label Printer\"\n"
                        "*NickName: \"Vendor Label Printer\"\n"
                        "*ShortNickName: \"Label Printer\"\n"
                        "*PCFileName: \"LABEL.PPD\"\n"
                        "*Product: \"(Label)\"\n"
                        "*PSVersion: \"(3010) 0\"\n";
    if (!papers_.empty()) {
        const std::string& first = papers_.front().keyword;
        whole += "*OpenUI *PageSize/Tape: PickOne\n*OrderDependency: 10 AnySetup *PageSize\n";
        whole += "*DefaultPageSize: " + first + "\n";
        for (const Paper& p : papers_)
            whole += "*PageSize " + withText(p.keyword, p.text) + ": \"\"\n";
        whole += "*CloseUI: *PageSize\n*DefaultImageableArea: " + first + "\n";
        for (const Paper& p : papers_) {
            const std::string size = points(p.width) + " " + points(p.height);
            whole += "*ImageableArea " + p.keyword + ": \"0 0 " + size + "\"\n";
        }
        whole += "*DefaultPaperDimension: " + first + "\n";
        for (const Paper& p : papers_) {
            const std::string size = points(p.width) + " " + points(p.height);
            whole += "*PaperDimension " + p.keyword + ": \"" + size + "\"\n";
        }
    }
    return whole + body_;
}

PPDFile PPDText::open() const
{
    PPDFile ppd = openPPD(text());
    if (ppd)
        ppdMarkDefaults(ppd.get());
    return ppd;
}

PPDFile openPPD(const std::string& text)
{
    const int file = memfd_create("test.ppd", MFD_CLOEXEC);
    if (file < 0 || write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        lseek(file, 0, SEEK_SET) != 0) {
        ADD_FAILURE() << "the PPD text could not be kept in memory";
        if (file >= 0)
            close(file);
        return nullptr;
    }
    PPDFile ppd(ppdOpenFd(file)); // closes the file
    if (!ppd) {
        int lineNumber = 0;
        const ppd_status_t status = ppdLastError(&lineNumber);
        ADD_FAILURE() << "CUPS refuses line " << lineNumber
                      << " of the PPD: " << ppdErrorString(status) << "\n"
                      << text;
    }
    return ppd;
}

ppd_option_t* optionOf(const PPDFile& ppd, const char* keyword)
{
    return ppdFindOption(ppd.get(), keyword);
}
