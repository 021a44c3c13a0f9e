// The string tables, read by a parser of the test's own: one wrong line makes the toolkit drop a
// whole table without a word.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Table = std::map<std::string, std::string>;

const fs::path kRoot = SOURCE_FOLDER;
const std::set<std::string> kLanguages = {"de", "en", "es", "fr",      "it",     "ja",
                                          "ko", "nl", "pt", "zh-Hans", "zh-Hant"};

std::string contentsOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The place of the first byte that is not UTF-8 (shortest form, no surrogates).
std::optional<std::size_t> firstBadByte(const std::string& text)
{
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80                   ? 1
                                   : lead >= 0xC2 && lead < 0xE0 ? 2
                                   : lead >= 0xE0 && lead < 0xF0 ? 3
                                   : lead >= 0xF0 && lead < 0xF5 ? 4
                                                                 : 0;
        if (length == 0 || i + length > text.size())
            return i;
        for (std::size_t k = 1; k < length; ++k) {
            const auto byte = static_cast<unsigned char>(text[i + k]);
            const bool tooLow =
                k == 1 && ((lead == 0xE0 && byte < 0xA0) || (lead == 0xF0 && byte < 0x90));
            const bool tooHigh =
                k == 1 && ((lead == 0xED && byte >= 0xA0) || (lead == 0xF4 && byte >= 0x90));
            if (byte < 0x80 || byte >= 0xC0 || tooLow || tooHigh)
                return i;
        }
        i += length;
    }
    return std::nullopt;
}

// Lines are blank, comments of one line, or "key" = "text"; anything else is a failure.
Table tableOf(const std::string& text, const std::string& name)
{
    static const std::regex kEntry(R"re("((?:[^"\\]|\\.)*)" = "((?:[^"\\]|\\.)*)";)re");
    static const std::regex kComment(R"(/\*.*\*/)");
    Table table;
    std::istringstream lines(text);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        std::smatch found;
        if (line.empty() || std::regex_match(line, kComment))
            continue;
        if (!std::regex_match(line, found, kEntry)) {
            ADD_FAILURE() << name << ":" << number << ": " << line;
            continue;
        }
        EXPECT_TRUE(table.emplace(found[1], found[2]).second)
            << name << ":" << number << " repeats " << found[1];
    }
    return table;
}

fs::path tablePath(const std::string& language)
{
    return kRoot / "resources" / (language + ".lproj") / "Localizable.strings";
}

Table tableIn(const std::string& language)
{
    return tableOf(contentsOf(tablePath(language)), language);
}

std::set<std::string> keysOf(const Table& table)
{
    std::set<std::string> keys;
    for (const auto& entry : table)
        keys.insert(entry.first);
    return keys;
}

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::set<std::string> keysNamedInCode()
{
    static const std::regex kKey("\"(RS_[A-Za-z0-9_]+|PS_PANEL_NAME)\"");
    std::set<std::string> keys;
    for (const char* const folder : {"plugin", "ppd", "tape", "pagesettings", "textentry"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
            const std::string text = contentsOf(entry.path());
            for (std::sregex_iterator it(text.begin(), text.end(), kKey), end; it != end; ++it)
                keys.insert((*it)[1]);
        }
    }
    return keys;
}

// Titles that the sample printers show in the panel, other than plain measures.
std::set<std::string> titlesInSamples()
{
    static const std::regex kTitle(
        R"(^\*(?:OpenUI \*(?:Vn\w+|Resolution)/([^:]+):|(?:VnPriority|VnCompress|VnResolution|Resolution|PageSize) [^/]+/([^:]+):))");
    std::set<std::string> titles;
    for (const auto& entry : fs::directory_iterator(kRoot / "samples")) {
        if (entry.path().extension() != ".ppd")
            continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch found;
            if (std::regex_search(line, found, kTitle))
                titles.insert(found[1].matched ? found[1] : found[2]);
        }
    }
    return titles;
}

class Strings : public testing::TestWithParam<std::string>
{
};

} // namespace

TEST(StringTables, AreThereForExactlyTheLanguagesOffered)
{
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(kRoot / "resources")) {
        if (entry.path().extension() == ".lproj")
            found.insert(entry.path().stem());
    }
    EXPECT_EQ(found, kLanguages);
}

TEST(StringTables, HaveEveryKeyThatTheCodeNames)
{
    const std::set<std::string> named = keysNamedInCode();
    // Fewer would mean that the search above found nothing.
    EXPECT_GE(named.size(), 29u);
    const Table english = tableIn("en");
    for (const std::string& key : named)
        EXPECT_EQ(english.count(key), 1u) << key;
}

TEST(StringTables, HaveEveryTitleOfTheSamplePrinters)
{
    const std::set<std::string> titles = titlesInSamples();
    EXPECT_GE(titles.size(), 20u);
    const Table english = tableIn("en");
    for (const std::string& title : titles)
        EXPECT_EQ(english.count(title), 1u) << title;
}

TEST(StringTables, ShowTitlesOfThePPDUnchangedInEnglish)
{
    for (const auto& [key, text] : tableIn("en")) {
        if (key.compare(0, 3, "RS_") != 0 && key != "PS_PANEL_NAME") {
            EXPECT_EQ(key, text);
        }
    }
}

TEST_P(Strings, AreValidUtf8)
{
    const std::string text = contentsOf(tablePath(GetParam()));
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(firstBadByte(text), std::nullopt);
}

TEST_P(Strings, HaveTheKeysOfAnotherTable)
{
    const std::string other = GetParam() == "en" ? "de" : "en";
    EXPECT_EQ(keysOf(tableIn(GetParam())), keysOf(tableIn(other))) << other;
}

TEST_P(Strings, AreNowhereEmpty)
{
    for (const auto& [key, text] : tableIn(GetParam()))
        EXPECT_FALSE(text.empty()) << key;
}

TEST_P(Strings, HoldNoPlaceholder)
{
    // The alert's text is used as a format; nothing is ever inserted into the others.
    for (const auto& [key, text] : tableIn(GetParam()))
        EXPECT_EQ(text.find('%'), std::string::npos) << key;
}

TEST_P(Strings, EndCaptionsAndOnlyCaptionsWithAColon)
{
    const std::set<std::string> captions = {"RS_TapeWidth", "RS_TapeLength", "RS_Margin",
                                            "RS_Quality",   "RS_Resolution", "RS_Compress"};
    for (const auto& [key, text] : tableIn(GetParam())) {
        const bool isCaption = captions.count(key) != 0 || endsWith(key, " : ");
        EXPECT_EQ(endsWith(text, " : "), isCaption) << key << " = " << text;
    }
}

TEST_P(Strings, TellChoicesOfOneGroupApart)
{
    const Table table = tableIn(GetParam());
    const std::vector<std::vector<std::string>> groups = {
        {"RS_QualitySpeed", "RS_QualityQuality"},
        {"RS_Resol180360", "RS_Resol360360", "RS_Resol360720"},
        {"RS_Resol300300", "RS_Resol300600"},
        {"RS_CompressOFF", "RS_CompressON"},
        {"RS_VnResolS300300", "RS_VnResolQ300300", "RS_VnResolQ300600"},
        {"RS_mm", "RS_Inch"},
        {"Draft", "Fast", "Normal", "Fine", "Finest"},
        {"Off", "Low", "Medium", "High", "Highest"},
    };
    for (const auto& group : groups) {
        std::set<std::string> texts;
        for (const std::string& key : group)
            texts.insert(table.at(key));
        EXPECT_EQ(texts.size(), group.size()) << group.front();
    }
}

INSTANTIATE_TEST_SUITE_P(Every, Strings, testing::ValuesIn(kLanguages),
                         [](const testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             std::erase(name, '-');
                             return name;
                         });
