#include "dialog/ppd/PPDSizes.hpp"

#include "dialog/ppd/PPDFile.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include <sys/mman.h>
#include <unistd.h>

namespace dialog {
namespace {

struct Close
{
    void operator()(ppd_file_t* record) const { ppdClose(record); }
};
using Record = std::unique_ptr<ppd_file_t, Close>;

Record openByLibcups(std::string_view contents)
{
    const int memory = memfd_create("ppd", MFD_CLOEXEC);
    EXPECT_EQ(write(memory, contents.data(), contents.size()),
              static_cast<ssize_t>(contents.size()));
    lseek(memory, 0, SEEK_SET);
    return Record(ppdOpenFd(memory));
}

std::string block(std::string_view option, std::size_t count)
{
    std::string text = "*OpenUI *" + std::string(option) + "/Tape: PickOne\n*Default" +
                       std::string(option) + ": T7\n";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += "*" + std::string(option) + " T" + number + "/" + number +
                " mm tape: \"<</PageSize[" + number + ".5 200]>>setpagedevice\"\n";
    }
    return text + "*CloseUI: *" + std::string(option) + "\n";
}

std::string measures(std::string_view keyword, std::string_view head, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += "*" + std::string(keyword) + " T" + std::to_string(i) + ": \"" + std::string(head) +
                std::to_string(i + 10) + "." + std::to_string(i % 1000) + " 283.465\"\n";
    }
    return text;
}

const char* const kCustom = "*VariablePaperSize: True\n"
                            "*CustomPageSize True: \"pop pop\"\n"
                            "*ParamCustomPageSize Width: 1 points 10 100\n"
                            "*ParamCustomPageSize Height: 2 points 10 1000\n";

enum class CustomPlace
{
    None,
    First,
    BetweenTheBlocks,
    Last
};

std::string ppd(std::size_t count, CustomPlace custom = CustomPlace::Last)
{
    return std::string("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
                       "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n"
                       "*PCFileName: \"TAPE.PPD\"\n*Manufacturer: \"Sample\"\n"
                       "*Product: \"(Sample)\"\n*ModelName: \"Sample\"\n*ShortNickName: \"S\"\n"
                       "*NickName: \"Sample\"\n*PSVersion: \"(3010) 0\"\n") +
           (custom == CustomPlace::First ? kCustom : "") + block("PageSize", count) +
           (custom == CustomPlace::BetweenTheBlocks ? kCustom : "") + block("PageRegion", count) +
           "*DefaultImageableArea: T7\n" + measures("ImageableArea", "1.5 2 ", count) +
           "*DefaultPaperDimension: T7\n" + measures("PaperDimension", "", count) +
           "*OpenUI *Resolution/Resolution: PickOne\n*DefaultResolution: 300dpi\n"
           "*Resolution 300dpi/300 dpi: \"a\"\n*Resolution 600dpi/600 dpi: \"b\"\n"
           "*CloseUI: *Resolution\n" +
           (custom == CustomPlace::Last ? kCustom : "") + "*VnMinTapeLength: \"10.0\"\n";
}

// Everything that the record says, as text.
std::string described(ppd_file_t& record)
{
    std::string text = "variable " + std::to_string(record.variable_sizes) + "\n";
    for (int g = 0; g < record.num_groups; ++g) {
        const ppd_group_t& group = record.groups[g];
        text += std::string("group ") + group.name + "\n";
        for (int o = 0; o < group.num_options; ++o) {
            const ppd_option_t& option = group.options[o];
            text += std::string("option ") + option.keyword + " " + option.defchoice + "\n";
            for (int c = 0; c < option.num_choices; ++c) {
                const ppd_choice_t& choice = option.choices[c];
                text += std::string(choice.choice) + "/" + choice.text + "=" +
                        (choice.code == nullptr ? "(none)" : choice.code) +
                        (choice.option == &option ? "" : " of another option") + "\n";
            }
        }
    }
    for (int i = 0; i < record.num_sizes; ++i) {
        const ppd_size_t& size = record.sizes[i];
        text += std::string("size ") + size.name;
        for (const float number :
             {size.width, size.length, size.left, size.bottom, size.right, size.top}) {
            char exact[40];
            std::snprintf(exact, sizeof exact, " %a", static_cast<double>(number));
            text += exact;
        }
        text += "\n";
    }
    for (int i = 0; i < record.num_attrs; ++i) {
        const ppd_attr_t& attribute = *record.attrs[i];
        text += std::string("attribute ") + attribute.name + " " + attribute.spec + " " +
                attribute.text + " " + (attribute.value == nullptr ? "" : attribute.value) + "\n";
    }
    return text;
}

std::string describedAsRead(const PPDSizes& many)
{
    const Record record = openByLibcups(many.rest());
    if (record == nullptr || !many.addTo(*record)) {
        return "not opened";
    }
    return described(*record);
}

class WhereverTheCustomSizeStands : public testing::TestWithParam<CustomPlace>
{
};

TEST_P(WhereverTheCustomSizeStands, TheRecordIsTheOneThatLibcupsMakes)
{
    const std::string contents = ppd(300, GetParam());
    const auto many = PPDSizes::take(contents);
    ASSERT_TRUE(many.has_value());
    EXPECT_LT(many->rest().size(), contents.size() / 4);
    EXPECT_EQ(describedAsRead(*many), described(*openByLibcups(contents)));
}

INSTANTIATE_TEST_SUITE_P(PPDSizes, WhereverTheCustomSizeStands,
                         testing::Values(CustomPlace::None, CustomPlace::First,
                                         CustomPlace::BetweenTheBlocks, CustomPlace::Last));

TEST(PPDSizes, LeaveFewSizesToLibcups)
{
    EXPECT_FALSE(PPDSizes::take(ppd(kManySizes - 1)).has_value());
    const std::string contents = ppd(kManySizes);
    EXPECT_TRUE(PPDSizes::take(contents).has_value());
}

TEST(PPDSizes, KeepTheNumberOfEveryLine)
{
    const std::string contents = ppd(200);
    const auto many = PPDSizes::take(contents);
    ASSERT_TRUE(many.has_value());
    const auto lineOf = [](std::string_view text) {
        return std::count(text.begin(),
                          text.begin() + static_cast<std::ptrdiff_t>(text.find("*VnMinTapeLength")),
                          '\n');
    };
    EXPECT_EQ(lineOf(many->rest()), lineOf(contents));
}

// Whatever is done to the lines: either they are left to libcups, or the record is the same.
TEST(PPDSizes, AreNeverReadOtherwiseThanLibcupsReadsThem)
{
    std::mt19937 random(7);
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    constexpr std::string_view kBytes = "\":/*% \t<>.,-+eE\r\nTP\x80\xC3(1";
    constexpr std::string_view kLines[] = {
        "*pagesize T3/x: \"y\"",
        "*PageSize\tQ/x: \"y\"",
        "*End",
        "*JCLBegin: \"a",
        "*OpenUI *Duplex/D: PickOne",
        "*CloseUI: *PageSize",
        "*% \"",
        "*PageSize T500/x: \"y\"",
        "*ImageableArea Custom: \"1 2 3 4\"",
        "*de.PageSize T3/x: \"\"",
        "*CustomPageSize True: \"p\"",
    };
    int same = 0;
    int left = 0;
    for (int run = 0; run < 3000; ++run) {
        std::string contents = ppd(kManySizes + 5, static_cast<CustomPlace>(below(4)));
        for (std::size_t faults = below(3) + (run % 4 == 0 ? 0 : 1); faults > 0; --faults) {
            const std::size_t begin = contents.rfind('\n', below(contents.size() - 300) + 200) + 1;
            const std::size_t end = contents.find('\n', begin) + 1;
            const std::string line = contents.substr(begin, end - begin);
            switch (below(5)) {
            case 0:
                contents[begin + below(line.size())] = kBytes[below(kBytes.size())];
                break;
            case 1:
                contents.erase(begin, line.size());
                break;
            case 2:
                contents.insert(below(2) == 0 ? begin : end, line);
                break;
            case 3:
                contents.insert(begin, std::string(kLines[below(std::size(kLines))]) + "\n");
                break;
            case 4:
                contents.insert(begin + below(line.size()), 1, kBytes[below(kBytes.size())]);
                break;
            }
        }
        const auto many = PPDSizes::take(contents);
        if (!many) {
            ++left;
            continue;
        }
        ++same;
        const Record whole = openByLibcups(contents);
        ASSERT_EQ(describedAsRead(*many), whole == nullptr ? "not opened" : described(*whole))
            << "run " << run << "\n"
            << contents;
    }
    EXPECT_GT(same, 300);
    EXPECT_GT(left, 300);
}

TEST(PPDSizes, OfTenThousandCanBeChosen)
{
    Failure failure;
    PPDFile file = PPDFile::fromBytes("many", ppd(10000), failure);
    ASSERT_NE(file.record(), nullptr) << failure.text;
    EXPECT_EQ(file.sizes().size(), 10000u);
    EXPECT_EQ(file.marked("PageSize"), "T7");
    EXPECT_TRUE(file.mark("PageSize", "T9999"));
    EXPECT_EQ(file.marked("PageSize"), "T9999");
    const ppd_size_t* const size = ppdPageSize(file.record(), nullptr);
    ASSERT_NE(size, nullptr);
    EXPECT_FLOAT_EQ(size->width, 10009.999F);
}

TEST(PPDSizes, AreStillThereWhenThePPDIsReopened)
{
    Failure failure;
    const PPDFile file = PPDFile::fromBytes("many", ppd(150), failure);
    ASSERT_EQ(file.sizes().size(), 150u) << failure.text;
    const PPDFile again = file.reopened();
    ASSERT_EQ(again.sizes().size(), 150u);
    EXPECT_EQ(again.sizes().back().name, "T149");
}

TEST(PPDSizes, ThatAreNotPlainKeepTheLimitOfLibcups)
{
    std::string contents = ppd(5000);
    contents.insert(contents.find("*PageSize T3/"), "*PageSize Twice/a<41>: \"c\"\n");
    Failure failure;
    EXPECT_EQ(PPDFile::fromBytes("many", contents, failure).record(), nullptr);
    EXPECT_NE(failure.text.find("more than 4000 page sizes"), std::string::npos) << failure.text;
}

} // namespace
} // namespace dialog
