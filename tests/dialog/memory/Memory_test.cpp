#include "dialog/memory/Memory.hpp"
#include "dialog/memory/MemoryFile.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dialog {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

KeptValues values(std::string length)
{
    return {"TC24", {{"VnTapeLength", std::move(length)}, {"Resolution", "300x600dpi"}}};
}

std::string contentsOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void write(const fs::path& path, std::string_view text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    ASSERT_TRUE(file.flush().good());
}

class MemoryInAFolder : public testing::Test
{
  protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "memory.XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        room = pattern;
        folder = room / "page-settings";
        file = folder / "presets.json";
    }
    void TearDown() override
    {
        fs::permissions(room, fs::perms::owner_all);
        if (fs::exists(folder)) {
            fs::permissions(folder, fs::perms::owner_all);
        }
        fs::remove_all(room);
    }

    Memory memory() const { return Memory(room.string()); }
    std::vector<Preset> presets() const
    {
        MemoryResult result;
        const MemoryText text = memory().read(result);
        EXPECT_TRUE(result.done());
        return text.presets();
    }

    fs::path room, folder, file;
};

TEST_F(MemoryInAFolder, HasNothingAndMakesNothingBeforeTheFirstSave)
{
    EXPECT_TRUE(presets().empty());
    EXPECT_TRUE(fs::is_empty(room));
}

TEST_F(MemoryInAFolder, BringsBackWhatWasKeptForTheUserAlone)
{
    EXPECT_TRUE(memory().keepLastUsed("tape", values("62.5")).done());
    EXPECT_TRUE(memory().savePreset({"Cables", values("40.0")}, false).done());
    MemoryResult result;
    const MemoryText text = memory().read(result);
    EXPECT_EQ(text.lastUsed("tape", "TC24"), values("62.5"));
    EXPECT_EQ(text.presets(), (std::vector<Preset>{{"Cables", values("40.0")}}));
    EXPECT_EQ(result.path, file.string());
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}

TEST_F(MemoryInAFolder, SavesAPresetOfATakenNameOnlyAsAReplacement)
{
    EXPECT_TRUE(memory().savePreset({"Cables", values("40.0")}, false).done());
    EXPECT_EQ(memory().savePreset({"Cables", values("50.0")}, false).problem,
              MemoryProblem::NameTaken);
    EXPECT_EQ(presets().front().values, values("40.0"));
    EXPECT_TRUE(memory().savePreset({"Cables", values("50.0")}, true).done());
    EXPECT_EQ(presets(), (std::vector<Preset>{{"Cables", values("50.0")}}));
}

TEST_F(MemoryInAFolder, RenamesAndDeletesWhatIsThere)
{
    memory().savePreset({"Cables", values("40.0")}, false);
    memory().savePreset({"Shelves", values("80.0")}, false);
    EXPECT_EQ(memory().renamePreset("Cables", "Shelves").problem, MemoryProblem::NameTaken);
    EXPECT_EQ(memory().renamePreset("Boxes", "Crates").problem, MemoryProblem::NoSuchPreset);
    EXPECT_TRUE(memory().renamePreset("Cables", "Cables").done());
    EXPECT_TRUE(memory().renamePreset("Cables", "Wires").done());
    EXPECT_TRUE(memory().deletePreset("Shelves").done());
    EXPECT_EQ(memory().deletePreset("Shelves").problem, MemoryProblem::NoSuchPreset);
    EXPECT_EQ(presets(), (std::vector<Preset>{{"Wires", values("40.0")}}));
}

TEST_F(MemoryInAFolder, SetsAFileAsideThatWasCutAtAnyByteAndGoesOn)
{
    memory().keepLastUsed("tape", values("62.5"));
    memory().savePreset({"Käbel \u2603", values("40.0")}, false);
    const std::string whole = contentsOf(file);
    ASSERT_EQ(whole.back(), '\n');
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        write(file, cut);
        MemoryResult result;
        EXPECT_TRUE(memory().read(result).presets().empty()) << length;
        EXPECT_TRUE(result.done()) << length;
        EXPECT_EQ(result.setAside.find(file.string() + ".damaged"), 0u) << length;
        ASSERT_EQ(contentsOf(result.setAside), cut) << length;
        ASSERT_FALSE(fs::exists(file)) << length;
        fs::remove(result.setAside);
    }
    // Without its last line break it is still whole.
    write(file, whole.substr(0, whole.size() - 1));
    EXPECT_EQ(presets().size(), 1u);
}

TEST_F(MemoryInAFolder, NeverLosesADamagedFileNotEvenTheSecond)
{
    fs::create_directory(folder);
    for (const char* text : {"first", "second", "third"}) {
        write(file, text);
        const MemoryResult result = memory().savePreset({text, values("40.0")}, false);
        EXPECT_TRUE(result.done());
        EXPECT_FALSE(result.setAside.empty());
        EXPECT_EQ(presets(), (std::vector<Preset>{{text, values("40.0")}}));
    }
    EXPECT_EQ(contentsOf(folder / "presets.json.damaged"), "first");
    EXPECT_EQ(contentsOf(folder / "presets.json.damaged-2"), "second");
    EXPECT_EQ(contentsOf(folder / "presets.json.damaged-3"), "third");
}

TEST_F(MemoryInAFolder, LeavesTheFileOfANewerReleaseAlone)
{
    fs::create_directory(folder);
    const std::string newer = R"({"version": 2, "presets": [{"name": "A"}]})";
    write(file, newer);
    MemoryResult result;
    EXPECT_TRUE(memory().read(result).presets().empty());
    EXPECT_EQ(result.problem, MemoryProblem::Newer);
    EXPECT_EQ(memory().savePreset({"B", values("1")}, true).problem, MemoryProblem::Newer);
    EXPECT_EQ(memory().keepLastUsed("tape", values("1")).problem, MemoryProblem::Newer);
    EXPECT_EQ(contentsOf(file), newer);
}

TEST_F(MemoryInAFolder, DoesNotWriteOverWhatItCannotRead)
{
    fs::create_directories(file);
    MemoryResult result;
    (void)memory().read(result);
    EXPECT_EQ(result.problem, MemoryProblem::NotReadable);
    EXPECT_EQ(memory().savePreset({"B", values("1")}, true).problem, MemoryProblem::NotReadable);
    fs::remove(file);

    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(memory().deletePreset("B").problem, MemoryProblem::NotReadable);
    fs::remove(file);

    write(file, std::string(kMostMemoryBytes + 1, ' '));
    (void)memory().read(result);
    EXPECT_EQ(result.problem, MemoryProblem::NotReadable);
    EXPECT_EQ(fs::file_size(file), kMostMemoryBytes + 1);
}

TEST_F(MemoryInAFolder, WritesNothingThatWouldBeTooLargeToReadAgain)
{
    memory().savePreset({"Small", values("40.0")}, false);
    const Preset large{"Large", values(std::string(kMostMemoryBytes, '1'))};
    EXPECT_EQ(memory().savePreset(large, false).problem, MemoryProblem::NotWritable);
    EXPECT_EQ(presets().size(), 1u);
}

// The superuser may write anywhere, so the folder is made impossible for everyone: a file.
TEST_F(MemoryInAFolder, SaysWhyAFolderCannotBeMade)
{
    write(folder, "in the way");
    const MemoryResult result = memory().savePreset({"A", values("1")}, false);
    EXPECT_EQ(result.problem, MemoryProblem::NotWritable);
    EXPECT_EQ(result.detail, "Not a directory");
    EXPECT_EQ(contentsOf(folder), "in the way");
}

class MemoryOfAnotherUser : public MemoryInAFolder
{
  protected:
    // In a process of its own, which gives up the superuser's rights for good.
    int asNobody(int (*action)(const Memory&)) const
    {
        const pid_t child = fork();
        if (child == 0) {
            constexpr uid_t kNobody = 65534;
            if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
                _exit(99);
            }
            _exit(action(memory()));
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
    }
};

TEST_F(MemoryOfAnotherUser, ReadsAFolderItCannotWriteAndSaysSoOnSaving)
{
    memory().savePreset({"Cables", values("40.0")}, false);
    fs::permissions(room, fs::perms(0755));
    fs::permissions(folder, fs::perms(0555));
    fs::permissions(file, fs::perms(0444));
    fs::permissions(folder / "presets.lock", fs::perms(0444));
    EXPECT_EQ(asNobody([](const Memory& memory) {
                  MemoryResult result;
                  const bool read = memory.read(result).presets().size() == 1 && result.done();
                  const MemoryResult saved = memory.savePreset({"B", values("1")}, false);
                  return read && saved.problem == MemoryProblem::NotWritable &&
                                 saved.detail == "Permission denied"
                             ? 7
                             : 1;
              }),
              7);
    EXPECT_EQ(presets().size(), 1u);
}

TEST_F(MemoryOfAnotherUser, LeavesADamagedFileWhereItCannotBeRenamed)
{
    fs::create_directory(folder);
    write(file, "{");
    fs::permissions(room, fs::perms(0755));
    fs::permissions(folder, fs::perms(0555));
    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(asNobody([](const Memory& memory) {
                  MemoryResult result;
                  (void)memory.read(result);
                  return result.problem == MemoryProblem::LeftDamaged && result.setAside.empty()
                             ? 7
                             : 1;
              }),
              7);
    EXPECT_EQ(contentsOf(file), "{");
}

TEST(MemoryWithoutAHome, SaysThatThereIsNoFolder)
{
    const Memory memory{std::string()};
    MemoryResult result;
    (void)memory.read(result);
    EXPECT_EQ(result.problem, MemoryProblem::NoFolder);
    EXPECT_EQ(memory.savePreset({"A", values("1")}, false).problem, MemoryProblem::NoFolder);
}

TEST_F(MemoryInAFolder, FollowsALinkToTheFileAndLeavesItALink)
{
    const fs::path other = room / "dotfiles.json";
    fs::create_directory(folder);
    fs::create_symlink("../dotfiles.json", file); // leads nowhere yet
    EXPECT_TRUE(memory().savePreset({"A", values("1")}, false).done());
    EXPECT_TRUE(memory().savePreset({"B", values("2")}, false).done());
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(other)));
    EXPECT_EQ(presets().size(), 2u);
}

TEST_F(MemoryInAFolder, KeepsTheModeThatAnOldFileHas)
{
    memory().savePreset({"A", values("1")}, false);
    fs::permissions(file, fs::perms(0640));
    memory().savePreset({"B", values("2")}, false);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
}

TEST_F(MemoryInAFolder, GivesUpOnAnotherDialogThatDoesNotLetGo)
{
    fs::create_directory(folder);
    const int lock = open((folder / "presets.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_EQ(Memory(room.string(), 20ms).savePreset({"A", values("1")}, false).problem,
              MemoryProblem::Busy);
    EXPECT_FALSE(fs::exists(file));
    close(lock);
    EXPECT_TRUE(Memory(room.string(), 20ms).savePreset({"A", values("1")}, false).done());
}

// Two processes.

constexpr int kSaves = 100;

void saveMany(const fs::path& room, const std::string& who)
{
    const Memory memory(room.string(), 60s);
    for (int i = 0; i < kSaves; ++i) {
        const std::string number = std::to_string(i);
        if (!memory.savePreset({who + number, values(number)}, false).done()) {
            _exit(1);
        }
    }
    _exit(0);
}

TEST_F(MemoryInAFolder, KeepsEverySaveOfTwoDialogsAtOnce)
{
    std::vector<pid_t> children;
    for (const char* who : {"left ", "right "}) {
        const pid_t child = fork();
        if (child == 0) {
            saveMany(room, who);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const std::vector<Preset> kept = presets();
    EXPECT_EQ(kept.size(), 2u * kSaves);
    for (const char* who : {"left ", "right "}) {
        // Each dialog's own in the order in which it saved them.
        int next = 0;
        for (const Preset& preset : kept) {
            if (preset.name.starts_with(who)) {
                const std::string number = std::to_string(next++);
                EXPECT_EQ(preset, (Preset{who + number, values(number)}));
            }
        }
        EXPECT_EQ(next, kSaves);
    }
}

TEST_F(MemoryInAFolder, IsWholeWheneverAProgramIsKilledWhileItSaves)
{
    constexpr int kKills = 60;
    memory().savePreset({"Cables", values("40.0")}, false);
    for (int kill_after = 0; kill_after < kKills; ++kill_after) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            const Memory mine(room.string(), 60s);
            for (int i = 0;; ++i) {
                const KeptValues kept = values(std::to_string(i) + std::string(20000, '1'));
                if (!mine.keepLastUsed("tape", kept).done()) {
                    _exit(1);
                }
                if (i == 0 && ::write(ready[1], "x", 1) != 1) {
                    _exit(2);
                }
            }
        }
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);
        close(ready[0]);
        close(ready[1]);
        // Each time at another moment of a save.
        usleep(static_cast<useconds_t>(kill_after) * 37);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));

        MemoryResult result;
        const MemoryText text = memory().read(result);
        ASSERT_TRUE(result.done());
        ASSERT_TRUE(result.setAside.empty());
        ASSERT_EQ(text.presets().size(), 1u);
        ASSERT_TRUE(text.lastUsed("tape", "TC24"));
        ASSERT_GT(text.lastUsed("tape", "TC24")->options.front().choice.size(), 20000u);
    }
    EXPECT_TRUE(memory().savePreset({"After", values("1")}, false).done());
    // The file, its lock, and at most what the last one killed was writing.
    EXPECT_FALSE(fs::exists(file.string() + ".damaged"));
    EXPECT_FALSE(fs::exists(file.string() + ".new"));
}

} // namespace
} // namespace dialog
