#include "dialog/background/RememberedPrinters.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

namespace dialog {
namespace {

namespace fs = std::filesystem;

const std::vector<Queue> kTwo = {{"Office", "Second floor", "usb://A/B"}, {"Lab", "", ""}};
const std::string kText = "tape-print printers 1\n"
                          "server print.example\n"
                          "queue Office\ninfo Second floor\ndevice usb://A/B\n"
                          "queue Lab\ninfo \ndevice \n"
                          "queues 2\n";

class Folder
{
  public:
    Folder()
    {
        std::string pattern = (fs::temp_directory_path() / "printers.XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~Folder() { fs::remove_all(path_); }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

  private:
    fs::path path_;
};

void write(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string read(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

TEST(RememberedPrinters, AreWrittenOnLinesThatAPersonCanRead)
{
    EXPECT_EQ(rememberedText("print.example", kTwo), kText);
}

TEST(RememberedPrinters, AreReadAsTheyWereWritten)
{
    EXPECT_EQ(queuesOfText(kText, "print.example"), kTwo);
    EXPECT_EQ(queuesOfText(rememberedText("s", {}), "s"), std::vector<Queue>{});
}

TEST(RememberedPrinters, OfAnotherServerDoNotCount)
{
    EXPECT_FALSE(queuesOfText(kText, "other.example"));
    EXPECT_FALSE(queuesOfText(kText, ""));
}

TEST(RememberedPrinters, CutShortAnywhereDoNotCount)
{
    for (std::size_t length = 0; length < kText.size(); ++length) {
        EXPECT_FALSE(queuesOfText(kText.substr(0, length), "print.example")) << length;
    }
}

TEST(RememberedPrinters, WithALineTooManyOrTooFewDoNotCount)
{
    EXPECT_FALSE(queuesOfText(kText + "\n", "print.example"));
    EXPECT_FALSE(queuesOfText(kText + kText, "print.example"));
    for (const char* line : {"server print.example\n", "queue Lab\n", "info \n", "device \n",
                             "queues 2\n", "tape-print printers 1\n"}) {
        std::string text = kText;
        text.erase(text.find(line), std::string(line).size());
        EXPECT_FALSE(queuesOfText(text, "print.example")) << line;
    }
}

TEST(RememberedPrinters, WithANullByteDoNotCount)
{
    std::string text = kText;
    text[text.find("Office") + 2] = '\0';
    EXPECT_FALSE(queuesOfText(text, "print.example"));
}

TEST(RememberedPrinters, LeaveOutAQueueThatWouldBreakTheLines)
{
    const std::vector<Queue> queues = {{"a\nqueue b", "", ""}, {"c", "two\nlines", ""}, kTwo[0]};
    EXPECT_EQ(queuesOfText(rememberedText("s", queues), "s"), std::vector<Queue>{kTwo[0]});
}

TEST(RememberedPrinters, AreKeptInAFileWhoseFolderIsMade)
{
    const Folder folder;
    const std::string path = folder.file("cache/page-settings/printers");
    EXPECT_TRUE(rememberPrinters(path, "print.example", kTwo));
    EXPECT_EQ(read(path), kText);
    EXPECT_EQ(recallPrinters(path, "print.example"), kTwo);
    EXPECT_TRUE(rememberPrinters(path, "print.example", {kTwo[1]}));
    EXPECT_EQ(recallPrinters(path, "print.example"), std::vector<Queue>{kTwo[1]});
    const auto files = fs::directory_iterator(fs::path(path).parent_path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "something is left beside the file";
}

TEST(RememberedPrinters, AreNotWrittenAgainWhenNothingChanged)
{
    const Folder folder;
    const std::string path = folder.file("printers");
    ASSERT_TRUE(rememberPrinters(path, "s", kTwo));
    struct stat before = {};
    ASSERT_EQ(stat(path.c_str(), &before), 0);
    EXPECT_TRUE(rememberPrinters(path, "s", kTwo));
    struct stat after = {};
    ASSERT_EQ(stat(path.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(RememberedPrinters, OfADamagedFileAreNoneAndTheFileIsReplaced)
{
    const Folder folder;
    const std::string path = folder.file("printers");
    write(path, "garbage\n");
    EXPECT_TRUE(recallPrinters(path, "s").empty());
    EXPECT_TRUE(rememberPrinters(path, "s", kTwo));
    EXPECT_EQ(recallPrinters(path, "s"), kTwo);
}

TEST(RememberedPrinters, AreNotReadFromWhatIsNoFileAndNeverWaitForOne)
{
    const Folder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_TRUE(recallPrinters(pipe, "s").empty());
    EXPECT_TRUE(recallPrinters(folder.file("missing"), "s").empty());
    EXPECT_TRUE(recallPrinters("", "s").empty());
}

TEST(RememberedPrinters, AreNotReadFromAHugeFile)
{
    const Folder folder;
    const std::string path = folder.file("printers");
    std::string queues;
    int count = 0;
    while (queues.size() < (std::size_t{1} << 20)) {
        queues += "queue q" + std::to_string(count++) + "\ninfo \ndevice \n";
    }
    write(path,
          "tape-print printers 1\nserver s\n" + queues + "queues " + std::to_string(count) + "\n");
    EXPECT_TRUE(recallPrinters(path, "s").empty());
}

TEST(RememberedPrinters, ThatCannotBeWrittenDoNoHarm)
{
    const Folder folder;
    write(folder.file("file"), "");
    EXPECT_FALSE(rememberPrinters(folder.file("file/printers"), "s", kTwo));
    EXPECT_FALSE(rememberPrinters("", "s", kTwo));
}

} // namespace
} // namespace dialog
