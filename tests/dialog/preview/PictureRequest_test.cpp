#include "dialog/preview/PictureRequest.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace dialog {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

class PictureRequests : public testing::Test
{
  protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "picture-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        room_ = pattern;
        document_ = file("document", "Hello\nlabel\n");
    }
    void TearDown() override { fs::remove_all(room_); }

    std::string file(const std::string& name, const std::string& bytes)
    {
        const std::string path = room_ + "/" + name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::string script(const std::string& commands)
    {
        const std::string path = file("program", "#!/bin/sh\n" + commands + "\n");
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    std::string room_;
    std::string document_;
};

DocumentPicture waitedFor(PictureRequest& request)
{
    const auto picture = request.wait();
    EXPECT_TRUE(picture);
    return picture.value_or(DocumentPicture());
}

TEST_F(PictureRequests, GetAPictureOfText)
{
    PictureRequest request(PICTURE_PROGRAM, document_);
    const DocumentPicture picture = waitedFor(request);
    EXPECT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.kind, PictureKind::Text);
    EXPECT_EQ(picture.text, "Hello\nlabel");
}

TEST_F(PictureRequests, GetAPictureOfTheSampleLabel)
{
    PictureRequest request(PICTURE_PROGRAM, SAMPLES_FOLDER "/label.png");
    const DocumentPicture picture = waitedFor(request);
    EXPECT_EQ(picture.problem, PictureProblem::None);
    EXPECT_EQ(picture.columns, 600);
    EXPECT_EQ(picture.rows, 142);
    EXPECT_EQ(picture.ink.size(), 600u * 142);
    EXPECT_EQ(picture.ink.front(), 0); // white in the corner
    EXPECT_EQ(*std::max_element(picture.ink.begin(), picture.ink.end()), 255);
}

TEST_F(PictureRequests, GiveTheirPictureOnce)
{
    PictureRequest request(PICTURE_PROGRAM, document_);
    EXPECT_TRUE(request.wait());
    EXPECT_FALSE(request.wait());
    EXPECT_FALSE(request.poll());
}

TEST_F(PictureRequests, DoNotWaitWhenAskedInPassing)
{
    // The program answers only once it is let to.
    const std::string gate = room_ + "/gate";
    PictureRequest request(
        script("while [ ! -e '" + gate + "' ]; do sleep 0.02; done; exec " PICTURE_PROGRAM),
        document_);
    EXPECT_FALSE(request.poll());
    EXPECT_FALSE(request.poll());
    std::ofstream(gate) << "open";
    std::optional<DocumentPicture> picture;
    for (int i = 0; i < 3000 && !picture; ++i) {
        picture = request.poll();
        std::this_thread::sleep_for(10ms);
    }
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->text, "Hello\nlabel");
}

TEST_F(PictureRequests, SayThatTheProgramIsMissing)
{
    PictureRequest request(room_ + "/nothing", document_);
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::NotMade);
}

TEST_F(PictureRequests, SayThatTheDocumentIsMissing)
{
    PictureRequest request(PICTURE_PROGRAM, room_ + "/nothing");
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::NotMade);
}

TEST_F(PictureRequests, OutliveAProgramThatDies)
{
    PictureRequest request(script("kill -SEGV $$"), document_);
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::NotMade);
}

TEST_F(PictureRequests, BelieveNothingThatIsNotWhole)
{
    PictureRequest request(script("echo 'tape-print picture 1 0 0 1 0 0 9 9 0'; echo short"),
                           document_);
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::NotMade);
}

TEST_F(PictureRequests, ReadNoMoreThanAPictureHas)
{
    PictureRequest request(script("exec cat /dev/zero"), document_);
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::NotMade);
}

TEST_F(PictureRequests, GiveUpOnAProgramThatTakesTooLong)
{
    const std::string mark = room_ + "/process";
    PictureRequest request(script("echo $$ > '" + mark + ".new'; mv '" + mark + ".new' '" + mark +
                                  "'; exec sleep 1000"),
                           document_, 300ms);
    EXPECT_EQ(waitedFor(request).problem, PictureProblem::TooSlow);
    int process = 0;
    if (std::ifstream(mark) >> process) { // it may not have come so far
        EXPECT_FALSE(fs::exists("/proc/" + std::to_string(process)));
    }
}

TEST_F(PictureRequests, EndTheProgramWhenTheyAreGone)
{
    const std::string mark = room_ + "/process";
    int process = 0;
    {
        PictureRequest request(script("echo $$ > '" + mark + ".new'; mv '" + mark + ".new' '" +
                                      mark + "'; exec sleep 1000"),
                               document_);
        for (int i = 0; i < 3000 && process == 0; ++i) {
            std::ifstream(mark) >> process;
            std::this_thread::sleep_for(10ms);
        }
        ASSERT_GT(process, 0);
        EXPECT_TRUE(fs::exists("/proc/" + std::to_string(process)));
    }
    EXPECT_FALSE(fs::exists("/proc/" + std::to_string(process)));
}

} // namespace
} // namespace dialog
