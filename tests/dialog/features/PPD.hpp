// A PPD for a test: a tape, and the options and constraints that the test is about.
#pragma once

#include "dialog/ppd/PPDFile.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace dialog {

inline std::string ppdText(std::string_view body)
{
    std::string text = "*PPD-Adobe: \"4.3\"\n"
                       "*FormatVersion: \"4.3\"\n"
                       "*FileVersion: \"1.0\"\n"
                       "*LanguageVersion: English\n"
                       "*LanguageEncoding: UTF-8\n"
                       "*PCFileName: \"TEST.PPD\"\n"
                       "*Manufacturer: \"Sample\"\n"
                       "*Product: \"(Test)\"\n"
                       "*ModelName: \"Test\"\n"
                       "*ShortNickName: \"Test\"\n"
                       "*NickName: \"Test\"\n"
                       "*PSVersion: \"(3010.000) 0\"\n"
                       "*OpenUI *PageSize/Tape: PickOne\n"
                       "*DefaultPageSize: T24\n"
                       "*PageSize T6/6 mm: \"\"\n"
                       "*PageSize T24/24 mm: \"\"\n"
                       "*CloseUI: *PageSize\n"
                       "*OpenUI *PageRegion/Tape: PickOne\n"
                       "*DefaultPageRegion: T24\n"
                       "*PageRegion T6/6 mm: \"\"\n"
                       "*PageRegion T24/24 mm: \"\"\n"
                       "*CloseUI: *PageRegion\n"
                       "*DefaultImageableArea: T24\n"
                       "*ImageableArea T6/6 mm: \"0 0 17 283\"\n"
                       "*ImageableArea T24/24 mm: \"0 0 68 283\"\n"
                       "*DefaultPaperDimension: T24\n"
                       "*PaperDimension T6/6 mm: \"17 283\"\n"
                       "*PaperDimension T24/24 mm: \"68 283\"\n";
    text += body;
    return text;
}

// *OpenUI to *CloseUI; the first choice is the default, and each choice's title its keyword in
// brackets.
inline std::string optionText(const std::string& keyword, const std::vector<std::string>& choices,
                              const std::string& kind = "PickOne")
{
    std::string text = "*OpenUI *" + keyword + "/The " + keyword + ": " + kind + "\n*Default" +
                       keyword + ": " + choices.front() + "\n";
    for (const std::string& choice : choices) {
        text += "*" + keyword + " " + choice + "/(" + choice + "): \"\"\n";
    }
    return text + "*CloseUI: *" + keyword + "\n";
}

inline PPDFile openPPD(std::string_view body)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromBytes("test", ppdText(body), failure);
    return failure ? PPDFile() : std::move(ppd);
}

} // namespace dialog
