#include "dialog/job/OutputFolder.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace dialog {
namespace {

namespace fs = std::filesystem;

class OutputFolder : public testing::Test
{
  protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "output-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        room_ = pattern;
        std::ofstream(document()) << "label\n";
    }
    void TearDown() override { fs::remove_all(room_); }

    std::string document() const { return (room_ / "doc").string(); }
    std::string folder() const { return (room_ / "a/b").string(); }
    static std::string contents(const fs::path& path)
    {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t entries() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder()), fs::directory_iterator()));
    }

    fs::path room_;
};

TEST_F(OutputFolder, GetsAFolderForEachJobWithDocumentOptionsAndSummary)
{
    const JobFolder first = writeJobFolder(folder(), document(), "my.PNG", "A=1\n", "S: 1\n");
    ASSERT_EQ(first.path, folder() + "/job-1") << first.reason;
    EXPECT_EQ(contents(first.path + "/document.png"), "label\n");
    EXPECT_EQ(contents(first.path + "/options"), "A=1\n");
    EXPECT_EQ(contents(first.path + "/summary"), "S: 1\n");
    EXPECT_EQ(writeJobFolder(folder(), document(), "x", "", "").path, folder() + "/job-2");
    EXPECT_TRUE(fs::exists(folder() + "/job-2/document"));
    EXPECT_EQ(entries(), 2u);
}

TEST_F(OutputFolder, LeavesWhatIsThereAlone)
{
    fs::create_directories(folder());
    std::ofstream(folder() + "/job-1") << "mine";
    fs::create_directory_symlink(room_ / "missing", folder() + "/job-2");
    EXPECT_EQ(writeJobFolder(folder(), document(), "x", "", "").path, folder() + "/job-3");
    EXPECT_EQ(contents(folder() + "/job-1"), "mine");
}

TEST_F(OutputFolder, HoldsNothingOfAJobWhoseDocumentCannotBeRead)
{
    const JobFolder job = writeJobFolder(folder(), document() + "/missing", "doc", "A=1\n", "");
    EXPECT_EQ(job.path, "");
    EXPECT_NE(job.reason, "");
    EXPECT_EQ(entries(), 0u);
}

TEST_F(OutputFolder, SaysWhyItCannotBeMade)
{
    const JobFolder job = writeJobFolder(document() + "/out", document(), "doc", "", "");
    EXPECT_EQ(job.path, "");
    EXPECT_NE(job.reason, "");
}

TEST(DocumentExtension, IsPlainAndSmall)
{
    EXPECT_EQ(documentExtension("labels/a.PNG"), ".png");
    EXPECT_EQ(documentExtension("a.tar.gz"), ".gz");
    EXPECT_EQ(documentExtension("folder.d/name"), "");
    EXPECT_EQ(documentExtension(".hidden"), "");
    EXPECT_EQ(documentExtension("dot."), "");
    EXPECT_EQ(documentExtension("a.p n"), "");
    EXPECT_EQ(documentExtension(""), "");
}

} // namespace
} // namespace dialog
