#include "dialog/start/LibraryFiles.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace dialog {
namespace {

namespace fs = std::filesystem;

class LibraryFilesTest : public testing::Test
{
  protected:
    LibraryFilesTest() : room_(testing::TempDir() + "libraries.XXXXXX")
    {
        if (mkdtemp(room_.data()) == nullptr) {
            ADD_FAILURE() << "no folder";
        }
    }
    ~LibraryFilesTest() override
    {
        std::error_code problem;
        fs::remove_all(room_, problem);
    }

    std::string path(const std::string& name) const { return room_ + '/' + name; }
    void write(const std::string& name) const
    {
        fs::create_directories(fs::path(path(name)).parent_path());
        std::ofstream(path(name)) << "x";
    }
    LibraryFiles files() const { return {{path("user"), path("system")}, "Images"}; }

    std::string room_;
};

TEST_F(LibraryFilesTest, FindAFileInALibrary)
{
    write("system/Images/arrow.tiff");
    EXPECT_EQ(files().find("arrow.tiff"), path("system/Images/arrow.tiff"));
}

TEST_F(LibraryFilesTest, FindNothingWhereThereIsNoLibrary)
{
    EXPECT_EQ(files().find("arrow.tiff"), "");
    EXPECT_EQ(LibraryFiles().find("arrow.tiff"), "");
}

TEST_F(LibraryFilesTest, FindOnlyTheWholeName)
{
    write("system/Images/arrow.tiff");
    const LibraryFiles found = files();
    EXPECT_EQ(found.find("arrow"), "");
    EXPECT_EQ(found.find("arrow.tif"), "");
    EXPECT_EQ(found.find("Arrow.tiff"), "");
    EXPECT_EQ(found.find(""), "");
}

TEST_F(LibraryFilesTest, PreferTheLibraryThatIsSearchedFirst)
{
    write("system/Images/arrow.tiff");
    write("user/Images/arrow.tiff");
    EXPECT_EQ(files().find("arrow.tiff"), path("user/Images/arrow.tiff"));
}

TEST_F(LibraryFilesTest, PreferALibrarysResources)
{
    write("system/Images/arrow.tiff");
    write("system/Resources/Images/arrow.tiff");
    EXPECT_EQ(files().find("arrow.tiff"), path("system/Resources/Images/arrow.tiff"));
}

TEST_F(LibraryFilesTest, PreferAnEarlierLibraryToResourcesOfALaterOne)
{
    write("system/Resources/Images/arrow.tiff");
    write("user/Images/arrow.tiff");
    EXPECT_EQ(files().find("arrow.tiff"), path("user/Images/arrow.tiff"));
}

TEST_F(LibraryFilesTest, PassOverAFileThatHasGone)
{
    write("user/Images/arrow.tiff");
    write("system/Images/arrow.tiff");
    const LibraryFiles found = files();
    fs::remove(path("user/Images/arrow.tiff"));
    EXPECT_EQ(found.find("arrow.tiff"), path("system/Images/arrow.tiff"));
}

TEST_F(LibraryFilesTest, LookIntoNoOtherFolder)
{
    write("system/Sounds/arrow.tiff");
    write("system/Images/More/arrow.tiff");
    EXPECT_EQ(files().find("arrow.tiff"), "");
}

TEST_F(LibraryFilesTest, AreWholeWithoutFilesOfLanguages)
{
    EXPECT_TRUE(files().isWhole());
    write("system/Images/arrow.tiff");
    write("user/German.lproj/arrow.tiff");
    EXPECT_TRUE(files().isWhole());
}

TEST_F(LibraryFilesTest, AreNotWholeWhereALanguageHasItsOwn)
{
    write("system/Images/arrow.tiff");
    write("system/Images/German.lproj/arrow.tiff");
    EXPECT_FALSE(files().isWhole());
    write("user/Images/arrow.tiff"); // no matter in which library
    EXPECT_FALSE(files().isWhole());
}

} // namespace
} // namespace dialog
