// The exported log and dump functions of the loaded bundle, by the bytes that they write.

#include "diagnostics/DebugLog.h"
#include "support/CoreFoundationCalls.hpp"
#include "support/Written.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <deque>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <unistd.h>

// What becomes of the next calls that write: a part is written, or none with an error.
struct Write
{
    std::size_t bytes = 0;
    int error = 0; // 0: errno stays what it is
};
static std::deque<Write> writes;
static int writeCalls = 0;
static std::string blockedWhileWriting; // the numbers of the signals, with a blank behind each

static std::size_t partOf(std::size_t size)
{
    ++writeCalls;
    if (writes.empty())
        return size;
    const Write next = writes.front();
    writes.pop_front();
    if (next.error != 0)
        errno = next.error;
    return std::min(next.bytes, size);
}

// In front of the library's own; they change nothing while `writes` is empty.
extern "C" __attribute__((visibility("default"))) ssize_t write(int fd, const void* bytes,
                                                                std::size_t size)
{
    const auto real =
        reinterpret_cast<ssize_t (*)(int, const void*, std::size_t)>(dlsym(RTLD_NEXT, "write"));
    const bool fails = !writes.empty() && writes.front().error != 0 && writes.front().bytes == 0;
    const std::size_t part = partOf(size);
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    blockedWhileWriting.clear();
    for (int signal = 1; signal < 32; ++signal) {
        if (sigismember(&blocked, signal) == 1)
            blockedWhileWriting += std::to_string(signal) + " ";
    }
    if (fails)
        return -1;
    return part == 0 ? 0 : real(fd, bytes, part);
}

extern "C" __attribute__((visibility("default"))) std::size_t
fwrite(const void* bytes, std::size_t size, std::size_t count, FILE* stream)
{
    const auto real =
        reinterpret_cast<std::size_t (*)(const void*, std::size_t, std::size_t, FILE*)>(
            dlsym(RTLD_NEXT, "fwrite"));
    if (writes.empty())
        return real(bytes, size, count, stream);
    const std::size_t part = partOf(count);
    if (part < count)
        stream->_flags |= _IO_ERR_SEEN;
    return part == 0 ? 0 : real(bytes, size, part, stream);
}

namespace {

// Writing that never ends must end the program: the tests take a hundredth of a second.
class Deadline : public testing::Environment
{
    void SetUp() override { alarm(60); }
};
[[maybe_unused]] testing::Environment* const deadline =
    testing::AddGlobalTestEnvironment(new Deadline);

using Log = void (*)(id, NSString*, ...);
using Message = void (*)(int, CFStringRef, ...);
using MessageFd = void (*)(int, int, CFStringRef, ...);
using Memory = void (*)(int, const void*, int);
using MemoryFd = void (*)(int, int, const void*, int);
using DumpOption = void (*)(ppd_file_t*, const char*);
using DumpSettings = void (*)(PMPrintSettings, NSString*);

const unsigned char kBytes[33] = {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08,
                                  0x09, 0x0a, 0x0b, 0x0c, 0x0d, 0x0e, 0x0f, 0xff};
const std::string kLine = "000102030405060708090a0b0c0d0e0f";
const std::string kRest = "ff000000000000000000000000000000";

CFStringRef message(NSString* string)
{
    return (CFStringRef)string;
}

} // namespace

@interface Described : NSObject
@end
@implementation Described
- (NSString*)description
{
    return @"a thing";
}
@end

@interface PercentDescribed : NSObject
@end
@implementation PercentDescribed
- (NSString*)description
{
    return @"100%%";
}
@end

// The system log.

TEST(Log, WithoutAnObjectIsTheTagAndTheMessage)
{
    const auto log = exported<Log>("_PDELog");
    EXPECT_EQ(logged([&] { log(nil, @"length %d of %@", 12, @"tape"); }),
              (Texts{"LOG length 12 of tape"}));
}

TEST(Log, WithAnObjectHasItsDescriptionInParentheses)
{
    const auto log = exported<Log>("_PDELog");
    id object = [[[Described alloc] init] autorelease];
    EXPECT_EQ(logged([&] { log(object, @"length %d", 12); }),
              (Texts{"LOG self(a thing) length 12"}));
}

TEST(Log, TagsTheBeginningAndTheEnd)
{
    const auto begin = exported<Log>("_PDEProlog");
    const auto end = exported<Log>("_PDEEpilog");
    id object = [[[Described alloc] init] autorelease];
    EXPECT_EQ(logged([&] { begin(nil, @"%s", "x"); }), (Texts{"BEGIN x"}));
    EXPECT_EQ(logged([&] { begin(object, @"x"); }), (Texts{"BEGIN self(a thing) x"}));
    EXPECT_EQ(logged([&] { end(nil, @"x"); }), (Texts{"END x"}));
    EXPECT_EQ(logged([&] { end(object, @"%d", 3); }), (Texts{"END self(a thing) 3"}));
}

TEST(Log, ReadsAPercentSignInTheDescriptionAsADirective)
{
    const auto log = exported<Log>("_PDELog");
    id object = [[[PercentDescribed alloc] init] autorelease];
    EXPECT_EQ(logged([&] { log(object, @"x"); }), (Texts{"LOG self(100%) x"}));
}

TEST(Log, SurvivesAMissingFormat)
{
    const auto log = exported<Log>("_PDELog");
    EXPECT_EQ(logged([&] { log(nil, nil); }).size(), 1u);
}

TEST(Log, ExportsTheFormatHelperToNobody)
{
    EXPECT_EQ(exportedSymbol("Format"), nullptr);
    // As C++ calls it.
    EXPECT_EQ(exportedSymbol("_Z6FormatP11objc_objectP8NSStringS2_"), nullptr);
}

// One option.

TEST(OptionDump, SaysWhatIsMissing)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    EXPECT_EQ(logged([&] { dump(nullptr, "VnMargin"); }), (Texts{"PPD file is not loaded!!"}));
    EXPECT_EQ(logged([&] { dump(nullptr, nullptr); }), (Texts{"PPD file is not loaded!!"}));
    ppd_file_t ppd{};
    EXPECT_EQ(logged([&] { dump(&ppd, nullptr); }), (Texts{"ppdOptionName is NULL!!"}));
}

namespace {

// A PPD record of one option, as libcups looks it up.
struct OptionRecord
{
    OptionRecord()
    {
        std::strcpy(option.keyword, "VnMargin");
        std::strcpy(option.defchoice, "2.5");
        std::strcpy(option.text, "Margin");
        option.ui = PPD_UI_PICKONE;
        option.section = PPD_ORDER_DOCUMENT;
        option.order = 10.5f;
        std::strcpy(choices[0].choice, "2.5");
        std::strcpy(choices[0].text, "Narrow");
        std::strcpy(choices[1].choice, "5");
        option.choices = choices;
        option.num_choices = 2;
        group.options = &option;
        group.num_options = 1;
        ppd.groups = &group;
        ppd.num_groups = 1;
        options = cupsArrayNew([](void* one, void* other, void*) {
            return strcasecmp(static_cast<ppd_option_t*>(one)->keyword,
                              static_cast<ppd_option_t*>(other)->keyword);
        }, nullptr);
        cupsArrayAdd(options, &option);
        ppd.options = options;
    }
    ~OptionRecord() { cupsArrayDelete(options); }

    ppd_file_t ppd{};
    ppd_group_t group{};
    ppd_option_t option{};
    ppd_choice_t choices[2]{};
    cups_array_t* options;
};

Texts expectedDump(const char* conflicted, const char* marked)
{
    return {"+-+-+-+-+-+-+-+-+-+- start is VnMargin",
            std::string("***** conflicted | ") + conflicted,
            "***** keyword | VnMargin",
            "***** defchoice | 2.5",
            "***** text | Margin",
            "***** ui == 1",
            "***** section == 1",
            "***** order == 10.500000",
            "***** num_choices == 2",
            std::string("***** choices->marked | ") + marked,
            "***** choices->choice | 2.5",
            "***** choices->text | Narrow",
            "+-+-+-+-+-+-+-+-+-+- end is VnMargin"};
}

} // namespace

TEST(OptionDump, ListsTheFieldsAndTheFirstChoice)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    ASSERT_EQ(static_cast<int>(PPD_UI_PICKONE), 1);
    ASSERT_EQ(static_cast<int>(PPD_ORDER_DOCUMENT), 1);
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), expectedDump("", ""));
}

TEST(OptionDump, ReadsTheFlagBytesAsTheBeginningOfText)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    record.option.conflicted = 1;
    record.choices[0].marked = 1;
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), expectedDump("\x01VnMargin", "\x01"
                                                                                           "2.5"));
}

TEST(OptionDump, StaysInsideRecordsWithoutATerminator)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    std::memset(record.option.defchoice, 'd', sizeof record.option.defchoice);
    std::memset(record.option.text, 't', sizeof record.option.text);
    std::memset(record.choices[0].choice, 'c', sizeof record.choices[0].choice);
    const Texts lines = logged([&] { dump(&record.ppd, "VnMargin"); });
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[3], "***** defchoice | " + std::string(41, 'd'));
    EXPECT_EQ(lines[4], "***** text | " + std::string(81, 't'));
    EXPECT_EQ(lines[10], "***** choices->choice | " + std::string(41, 'c'));
}

TEST(OptionDump, LeavesOutTheChoiceOfAnOptionWithoutAny)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    record.option.num_choices = 0;
    record.option.choices = nullptr;
    Texts expected = expectedDump("", "");
    expected.erase(expected.begin() + 9, expected.begin() + 12);
    expected[8] = "***** num_choices == 0";
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), expected);
}

TEST(OptionDump, GoesByTheNumberOfChoicesAndByTheListAlike)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    Texts withoutChoice = expectedDump("", "");
    withoutChoice.erase(withoutChoice.begin() + 9, withoutChoice.begin() + 12);

    record.option.num_choices = 0; // the list is there
    withoutChoice[8] = "***** num_choices == 0";
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), withoutChoice);

    record.option.num_choices = 2;
    record.option.choices = nullptr;
    withoutChoice[8] = "***** num_choices == 2";
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), withoutChoice);

    record.option.num_choices = 1;
    record.option.choices = record.choices;
    Texts one = expectedDump("", "");
    one[8] = "***** num_choices == 1";
    EXPECT_EQ(logged([&] { dump(&record.ppd, "VnMargin"); }), one);
}

TEST(OptionDump, LogsNothingForAnOptionThatIsNotThere)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    EXPECT_EQ(logged([&] { dump(&record.ppd, "Duplex"); }), Texts{});
}

TEST(OptionDump, SurvivesTextThatIsNoneInTheSystemEncoding)
{
    const auto dump = exported<DumpOption>("_PDELog_ppd_option_t");
    OptionRecord record;
    std::strcpy(record.option.text, "\xff\xfe");
    const Texts lines = logged([&] { dump(&record.ppd, "VnMargin"); });
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[5], "***** ui == 1");
}

// Print settings.

TEST(SettingsDump, WritesThePropertyListIntoTheRootFolder)
{
    const auto dump = exported<DumpSettings>("_PDELog_PMPrintSettings_WriteToFile");
    printing::PrintSettings settings;
    settings.setString("com.example.key", "value");
    const std::string name = "test-" + std::to_string(getpid());
    const std::string path = "/VnPDE_" + name + ".plist";
    ASSERT_NE(access(path.c_str(), F_OK), 0);
    CoreFoundationCalls::reset();
    dump(settings.handle(), @(name.c_str()));
    EXPECT_EQ(CoreFoundationCalls::released(), 1);
    EXPECT_EQ(CoreFoundationCalls::owned(), 0);
    if (access("/", W_OK) != 0) { // not root: the failure is ignored
        EXPECT_NE(access(path.c_str(), F_OK), 0);
        return;
    }
    const int fd = open(path.c_str(), O_RDONLY);
    ASSERT_GE(fd, 0) << path;
    // In one piece: who reads the file while it is written anew has the whole old one.
    printing::PrintSettings others;
    dump(others.handle(), @(name.c_str()));
    const std::string written = readAll(fd);
    close(fd);
    unlink(path.c_str());
    CFDataRef data = nullptr;
    ASSERT_EQ(
        PMPrintSettingsCreateDataRepresentation(settings.handle(), &data, kPMDataFormatXMLDefault),
        noErr);
    EXPECT_EQ(written, std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                                   static_cast<std::size_t>(CFDataGetLength(data))));
    CFRelease(data);
    EXPECT_EQ(written.substr(0, 5), "<?xml");
}

TEST(SettingsDump, WritesNothingWithoutSettingsOrNameOrFolder)
{
    const auto dump = exported<DumpSettings>("_PDELog_PMPrintSettings_WriteToFile");
    printing::PrintSettings settings;
    const std::string name = "test-" + std::to_string(getpid());
    const char* const nameless = "/VnPDE_(null).plist";
    unlink(nameless); // of a run that failed
    CoreFoundationCalls::reset();
    dump(nullptr, @(name.c_str()));
    EXPECT_NE(access(("/VnPDE_" + name + ".plist").c_str(), F_OK), 0);
    EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
    dump(settings.handle(), nil);
    EXPECT_NE(access(nameless, F_OK), 0);
    unlink(nameless);
    dump(settings.handle(), @"no/such/folder");
}

// Messages.

TEST(DebugLog, WritesThePrefixTheMessageAndALineEnd)
{
    const auto log = exported<Message>("debugLog");
    EXPECT_EQ(onStandardError([&] { log(0, message(@"%d of %@"), 3, @"five"); }),
              "DEBUG: 3 of five\n");
}

TEST(DebugLog, IsSilencedByALevelAboveZeroAlone)
{
    const auto log = exported<Message>("debugLog");
    const auto logFd = exported<MessageFd>("debugLogFd");
    EXPECT_EQ(onStandardError([&] { log(1, message(@"x")); }), "");
    EXPECT_EQ(onStandardError([&] { log(-1, message(@"x")); }), "DEBUG: x\n");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(1, fd, message(@"x")); }), "");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(0, fd, message(@"x")); }), "x\n");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(-5, fd, message(@"x")); }), "x\n");
}

TEST(DebugLog, WritesUTF8WithAQuestionMarkForWhatIsNoCharacter)
{
    const auto log = exported<Message>("debugLog");
    const auto logFd = exported<MessageFd>("debugLogFd");
    EXPECT_EQ(onStandardError([&] { log(0, message(@"%@"), @"\u00e9\u3042"); }),
              "DEBUG: \xc3\xa9\xe3\x81\x82\n");
    NSString* half = [NSString stringWithFormat:@"a%Cb", static_cast<unichar>(0xd83d)];
    ASSERT_EQ([half length], 3u);
    EXPECT_EQ(onStandardError([&] { log(0, message(@"%@"), half); }), "DEBUG: a?b\n");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(0, fd, message(@"%@"), half); }), "a?b\n");
}

TEST(DebugLog, StopsAtANulOnStandardErrorButNotOnADescriptor)
{
    const auto log = exported<Message>("debugLog");
    const auto logFd = exported<MessageFd>("debugLogFd");
    const unichar units[] = {'a', 0, 'b'};
    NSString* text = [NSString stringWithCharacters:units length:3];
    EXPECT_EQ(onStandardError([&] { log(0, message(@"%@"), text); }), "DEBUG: a\n");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(0, fd, message(@"%@"), text); }),
              std::string("a\0b\n", 4));
}

TEST(DebugLog, WritesAnEmptyMessageAsAnEmptyLine)
{
    const auto log = exported<Message>("debugLog");
    const auto logFd = exported<MessageFd>("debugLogFd");
    EXPECT_EQ(onStandardError([&] { log(0, message(@"")); }), "DEBUG: \n");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(0, fd, message(@"")); }), "\n");
}

TEST(DebugLog, WithoutAFormatWritesNoMoreThanThePrefix)
{
    const auto log = exported<Message>("debugLog");
    const auto logFd = exported<MessageFd>("debugLogFd");
    EXPECT_EQ(onStandardError([&] { log(0, nullptr); }), "DEBUG: ");
    EXPECT_EQ(writtenTo([&](int fd) { logFd(0, fd, nullptr); }), "");
}

TEST(DebugLog, ReleasesTheTextsThatItMakes)
{
    CoreFoundationCalls::reset();
    onStandardError([&] { exported<Message>("debugLog")(0, message(@"%d"), 1); });
    EXPECT_EQ(CoreFoundationCalls::released(), 2); // the message and its bytes
    EXPECT_EQ(CoreFoundationCalls::owned(), 0);
}

namespace {

std::string writtenIn(const std::deque<Write>& parts, int errorBefore = 0)
{
    const auto logFd = exported<MessageFd>("debugLogFd");
    return writtenTo([&](int fd) {
        writes = parts;
        writeCalls = 0;
        errno = errorBefore;
        logFd(0, fd, message(@"message"));
        writes.clear();
    });
}

std::string onStandardErrorIn(const std::deque<Write>& parts, int errorBefore = 0)
{
    const auto log = exported<Message>("debugLog");
    return onStandardError([&] {
        writes = parts;
        writeCalls = 0;
        errno = errorBefore;
        log(0, message(@"message"));
        writes.clear();
    });
}

} // namespace

TEST(DebugLogFd, GoesOnAfterAPartWasWrittenOrASignalCame)
{
    EXPECT_EQ(writtenIn({{3}, {1}, {2}}), "message\n");
    EXPECT_EQ(writtenIn({{0, EINTR}, {1}, {0, EINTR}}), "message\n");
    EXPECT_EQ(writeCalls, 5); // two signals, two parts and the line end
}

TEST(DebugLogFd, GivesUpOnAnyOtherErrorAndWhereNothingCanBeWritten)
{
    EXPECT_EQ(writtenIn({{3}, {0, EIO}}), "mes\n");
    EXPECT_EQ(writtenIn({{3}, {0}}, EINTR), "mes\n");
    EXPECT_EQ(writeCalls, 3); // a part, nothing, and the line end
}

TEST(DebugLog, GoesOnAfterASignalAndForgetsItsError)
{
    EXPECT_EQ(onStandardErrorIn({{2, EINTR}, {0, EINTR}, {5}, {3, EINTR}}), "DEBUG: message\n");
    EXPECT_EQ(writeCalls, 4);
    EXPECT_EQ(ferror(stderr), 0);
}

TEST(DebugLog, GivesUpOnAnyOtherError)
{
    EXPECT_EQ(onStandardErrorIn({{2, EIO}}), "DEmessage\n");
    clearerr(stderr);
    EXPECT_EQ(onStandardErrorIn({{7}, {4}}, EINTR), "DEBUG: mess\n"); // errno is an older call's
    clearerr(stderr);
}

// What lies on the stack must not come into it.
__attribute__((noinline)) static void fillStack()
{
    volatile unsigned char filled[8192];
    for (volatile unsigned char& byte : filled)
        byte = 0xff;
}

TEST(DebugLogFd, KeepsThePipeSignalAwayAndNoOtherWhileItWrites)
{
    fillStack();
    writtenIn({});
    EXPECT_EQ(blockedWhileWriting, std::to_string(SIGPIPE) + " ");
}

TEST(DebugLogFd, LeavesTheHostsSignalsAsTheyWere)
{
    sigset_t hosts, before, after;
    sigemptyset(&hosts);
    sigaddset(&hosts, SIGPIPE);
    sigaddset(&hosts, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &hosts, &before);
    raise(SIGPIPE);
    writtenIn({});
    sigset_t pending;
    sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGPIPE), 1) << "the host's own signal is gone";
    pthread_sigmask(SIG_BLOCK, nullptr, &after);
    EXPECT_EQ(sigismember(&after, SIGPIPE), 1);
    EXPECT_EQ(sigismember(&after, SIGUSR1), 1);
    EXPECT_EQ(sigismember(&after, SIGTERM), 0);
    sigwaitinfo(&hosts, nullptr);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST(DebugLog, NeverFailsItsCaller)
{
    const auto logFd = exported<MessageFd>("debugLogFd");
    logFd(0, -1, message(@"x"));
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const auto before = signal(SIGPIPE, SIG_DFL); // the toolkit ignores it, a host may not
    logFd(0, ends[1], message(@"nobody reads this"));
    close(ends[1]);
    sigset_t pending;
    sigpending(&pending);
    signal(SIGPIPE, before);
    EXPECT_EQ(sigismember(&pending, SIGPIPE), 0);
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGPIPE), 0);
}

// Hex dumps.

TEST(MemoryCheck, EndsSixteenBytesWithAnEmptyGroup)
{
    const auto check = exported<Memory>("memoryCheck");
    EXPECT_EQ(onStandardError([&] { check(0, kBytes, 16); }), "DEBUG:" + kLine + "DEBUG:");
    EXPECT_EQ(onStandardError([&] { check(-1, kBytes, 32); }),
              "DEBUG:" + kLine + "DEBUG:" + kRest + "DEBUG:");
}

TEST(MemoryCheck, PutsTheSeventeenthByteIntoAGroupOfItsOwn)
{
    const auto check = exported<Memory>("memoryCheck");
    EXPECT_EQ(onStandardError([&] { check(0, kBytes, 17); }), "DEBUG:" + kLine + "DEBUG:ff");
    EXPECT_EQ(onStandardError([&] { check(0, kBytes, 1); }), "DEBUG:00");
}

TEST(MemoryCheck, PrintsNothingForALevelNoPointerOrNoBytes)
{
    const auto check = exported<Memory>("memoryCheck");
    EXPECT_EQ(onStandardError([&] {
                  check(1, kBytes, 16);
                  check(0, nullptr, 16);
                  check(0, kBytes, 0);
                  check(0, kBytes, -1);
              }), "");
}

TEST(MemoryCheckFd, WritesALineForEachSixteenBytes)
{
    const auto check = exported<MemoryFd>("memoryCheckFd");
    EXPECT_EQ(writtenTo([&](int fd) { check(0, fd, kBytes, 16); }), kLine + "\n");
    EXPECT_EQ(writtenTo([&](int fd) { check(0, fd, kBytes, 17); }), kLine + "\nff\n");
    EXPECT_EQ(writtenTo([&](int fd) { check(0, fd, kBytes, 32); }), kLine + "\n" + kRest + "\n");
    EXPECT_EQ(writtenTo([&](int fd) { check(-3, fd, kBytes, 3); }), "000102\n");
}

TEST(MemoryCheckFd, WritesNothingForALevelNoPointerOrNoBytes)
{
    const auto check = exported<MemoryFd>("memoryCheckFd");
    EXPECT_EQ(writtenTo([&](int fd) {
                  check(1, fd, kBytes, 16);
                  check(0, fd, nullptr, 16);
                  check(0, fd, kBytes, 0);
                  check(0, fd, kBytes, -1);
              }), "");
}
