// A host that has taken up a locale with a decimal comma changes no text of the formatter.

#include "textentry/FormatterTest.hpp"

#include <clocale>
#include <cstdlib>
#include <filesystem>

namespace {

// setlocale(LC_ALL, ...) as a German host calls it, for the length of a scope.
class CommaLocale
{
  public:
    CommaLocale()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "locale.XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            return;
        folder_ = pattern;
        const std::string command =
            "localedef -i de_DE -f UTF-8 " + folder_ + "/de_DE.UTF-8 >/dev/null 2>&1";
        if (std::system(command.c_str()) != 0)
            return;
        setenv("LOCPATH", folder_.c_str(), 1);
        isSet_ = setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    }
    ~CommaLocale()
    {
        setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        if (!folder_.empty())
            std::filesystem::remove_all(folder_);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool isSet() const { return isSet_; }

  private:
    std::string folder_;
    bool isSet_ = false;
};

} // namespace

TEST(DisplayTextAbroad, KeepsItsPointUnderACommaLocale)
{
    PDEFormatter* formatter =
        [[[classNamed("PDEFormatter") alloc] initWithFormatString:@"%@ mm"] autorelease];
    const CommaLocale comma;
    ASSERT_TRUE(comma.isSet()) << "localedef (package locales) made no locale";
    ASSERT_EQ(textOf([NSString stringWithFormat:@"%.1f", 12.5]), "12,5");
    EXPECT_EQ(textOf([formatter stringForObjectValue:@12.5]), "12.5 mm");
    EXPECT_EQ(textOf([formatter stringForObjectValue:@"12.5"]), "12.5 mm");
}
