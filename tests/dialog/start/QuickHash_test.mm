#include "dialog/start/QuickHash.h"

#include "support/FoundationTest.h"

#include <Foundation/Foundation.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

namespace {

// A constant text as the compiler lays it down, but one that can be changed.
struct Constant
{
    Class isa;
    const char* bytes;
    unsigned int length;
};

class QuickHash : public testing::Test
{
  protected:
    QuickHash() : pool_([[NSAutoreleasePool alloc] init]) { dialog::keepHashesOfConstantTexts(); }
    ~QuickHash() override { [pool_ drain]; }

  private:
    NSAutoreleasePool* pool_;
};

NSUInteger hashOfAnEqualText(const char* bytes)
{
    return [[NSMutableString stringWithUTF8String:bytes] hash];
}

TEST_F(QuickHash, IsThatOfAnEqualTextTheFirstTimeAndLater)
{
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ([@"" hash], hashOfAnEqualText(""));
        EXPECT_EQ([@"NSFont" hash], hashOfAnEqualText("NSFont"));
        EXPECT_EQ([@"Breite: 24 mm" hash], hashOfAnEqualText("Breite: 24 mm"));
    }
}

TEST_F(QuickHash, IsFoundOutOnce)
{
    std::array<char, 6> bytes = {'f', 'i', 'r', 's', 't', '\0'};
    Constant constant = {[@"" class], bytes.data(), 5};
    const id text = reinterpret_cast<id>(&constant);
    const NSUInteger before = [text hash];
    EXPECT_EQ(before, hashOfAnEqualText("first"));
    bytes[0] = 'F';
    EXPECT_EQ([text hash], before);
}

TEST_F(QuickHash, IsRightForMoreTextsThanAreKept)
{
    constexpr std::size_t kTexts = 5000;
    std::vector<std::string> bytes;
    std::vector<Constant> constants;
    for (std::size_t i = 0; i < kTexts; ++i) {
        bytes.push_back("text " + std::to_string(i * i));
    }
    for (const std::string& text : bytes) {
        constants.push_back({[@"" class], text.c_str(), static_cast<unsigned int>(text.size())});
    }
    for (int time = 0; time < 2; ++time) {
        for (std::size_t i = 0; i < kTexts; ++i) {
            ASSERT_EQ([reinterpret_cast<id>(&constants[i]) hash],
                      hashOfAnEqualText(bytes[i].c_str()))
                << bytes[i];
        }
    }
}

TEST_F(QuickHash, IsRightOnAnotherThread)
{
    EXPECT_EQ([@"NSFont" hash], hashOfAnEqualText("NSFont"));
    NSUInteger elsewhere = 0;
    std::thread([&] { elsewhere = [@"NSFont" hash]; }).join();
    EXPECT_EQ(elsewhere, hashOfAnEqualText("NSFont"));
}

} // namespace

int main(int argc, char** argv)
{
    return runFoundationTests(argc, argv);
}
