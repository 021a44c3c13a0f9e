#include "dialog/Places.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class Places : public testing::Test
{
  protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "places-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        prefix_ = pattern;
        fs::create_directory(fs::path(prefix_) / "bin");
        bin_ = prefix_ + "/bin";
    }
    void TearDown() override { fs::remove_all(prefix_); }

    std::string prefix_;
    std::string bin_;
};

} // namespace

TEST_F(Places, AreBesideTheProgramWhereTheyAreThere)
{
    fs::create_directory(bin_ + "/PageSettings.plugin");
    fs::create_directory(bin_ + "/locale");
    fs::create_directory(bin_ + "/tape-print-picture");
    EXPECT_EQ(dialog::bundlePath(bin_), bin_ + "/PageSettings.plugin");
    EXPECT_EQ(dialog::cataloguesFolder(bin_), bin_ + "/locale");
    EXPECT_EQ(dialog::pictureProgram(bin_), bin_ + "/tape-print-picture");
}

TEST_F(Places, AreUnderTheSamePrefixOtherwise)
{
    EXPECT_EQ(dialog::bundlePath(bin_), prefix_ + "/lib/GNUstep/Bundles/PageSettings.plugin");
    EXPECT_EQ(dialog::cataloguesFolder(bin_), prefix_ + "/share/locale");
    EXPECT_EQ(dialog::pictureProgram(bin_), prefix_ + "/lib/page-settings/tape-print-picture");
}

TEST_F(Places, KnowTheFolderOfTheRunningProgram)
{
    EXPECT_TRUE(fs::exists(dialog::programFolder() + "/Places_test"));
}
