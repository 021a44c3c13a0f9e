#include "support/PanelTestPrinting.hpp"

#include <cstring>

namespace {

struct TapeRecord
{
    double length;
    int32_t state;
    CFStringRef paperName;
};

struct PageRangeRecord
{
    uint32_t firstPage;
    uint32_t lastPage;
};

constexpr const char* kTicketKey = "jp.co.vendor.print.PrintSettingsTicket.KmE5";

template <class... Arguments>
int32_t call(const char* name, Arguments... arguments)
{
    return exported<int32_t (*)(Arguments...)>(name)(arguments...);
}

PPDText tapes()
{
    return PPDText()
        .paper("TC24", "24 mm", 68, 72)
        .paper("DC62", "62 mm label", 176, 144)
        .paper("AV62", "62 mm address label", 176, 144)
        .paper("dc62", "lower case", 176, 144)
        .paper("XDC62", "another name", 176, 144);
}

std::string ticket(const std::string& entries)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\"><dict>" +
           entries + "</dict></plist>\n";
}

std::string ticketNaming(const std::string& paper)
{
    return ticket("<key>KmPaperName2</key><string>" + paper + "</string>");
}

// Asks about the dialog's tape; the record holds other values before.
struct Answer
{
    explicit Answer(FakeDialog& dialog)
    {
        PrintingCalls::taken();
        status = call("GetTapeInfo", dialog.session.handle(), dialog.settings.handle(),
                      dialog.format.handle(), dialog.ppd(), &record);
        takeName();
    }

    explicit Answer(printing::PrintSettings& settings)
    {
        status = call("GetTapeInfo2", intptr_t{0}, settings.handle(), &record);
        takeName();
    }

    void takeName()
    {
        hasName = record.paperName != nullptr;
        name = hasName ? textOf((NSString*)record.paperName) : "";
        CFRelease(record.paperName);
    }

    TapeRecord record{-1, -1, nullptr};
    int32_t status = -1;
    bool hasName = false;
    std::string name;
};

FakeDialog* dialogWithPaper(const char* name, double height)
{
    return new FakeDialog({.ppd = tapes(), .paper = printing::Paper{name, 68, height}});
}

int32_t stateOf(const char* paper)
{
    FakeDialog dialog({.ppd = tapes(), .paper = printing::Paper{paper, 176, 144}});
    const Answer answer(dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, paper);
    return answer.record.state;
}

} // namespace

TEST(UnitFunctions, AreExportedUnderTheirPlainNames)
{
    EXPECT_DOUBLE_EQ(exported<double (*)(double)>("MiriToInch")(100), 3.93701);
    EXPECT_NEAR(exported<double (*)(double)>("InchToMiri")(1), 25.399986284007, 1e-11);
}

TEST(RoundDouble, RoundsHalvesAwayFromZero)
{
    const auto round = exported<intptr_t (*)(double)>("RoundDouble");
    EXPECT_EQ(round(2.5), 3);
    EXPECT_EQ(round(-2.5), -3);
    EXPECT_EQ(round(2.49), 2);
    EXPECT_EQ(round(4503599627370497.0), 4503599627370497);
}

TEST(TapeInfo, MakesSeventyTwoPointsALittleLessThanAnInchOfMillimetres)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("TC24", 72));
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_NEAR(answer.record.length, 25.399986284007, 1e-11);
    EXPECT_NE(answer.record.length, 25.4);
    EXPECT_EQ(answer.record.state, 0);
    EXPECT_EQ(answer.name, "TC24");
}

TEST(TapeInfo, TakesAHundredMillimetresForAPaperWithoutHeight)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("DC62", 0));
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.record.length, 100.0);
    EXPECT_EQ(answer.record.state, 0); // the height comes before the kind
    EXPECT_EQ(answer.name, "DC62");
}

TEST(TapeInfo, KnowsALabelOfFixedLengthByItsNameInThePPD)
{
    EXPECT_EQ(stateOf("DC62"), 1);
    EXPECT_EQ(stateOf("AV62"), 1);
    EXPECT_EQ(stateOf("TC24"), 0);
}

TEST(TapeInfo, MindsTheLetterCaseAndTheBeginningOfTheName)
{
    EXPECT_EQ(stateOf("dc62"), 0);
    EXPECT_EQ(stateOf("XDC62"), 0);
}

TEST(TapeInfo, TakesALabelThatThePPDLacksForATape)
{
    EXPECT_EQ(stateOf("DC99"), 0);
    EXPECT_EQ(stateOf("DC6"), 0);   // only the beginning of one that it has
    EXPECT_EQ(stateOf("DC620"), 0); // only its beginning is one that it has
}

TEST(TapeInfo, TakesEveryNameForATapeWithoutAPPD)
{
    FakeDialog dialog({.paper = printing::Paper{"DC62", 176, 144}});
    const Answer answer(dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.record.state, 0);
    EXPECT_EQ(answer.name, "DC62");
    EXPECT_NEAR(answer.record.length, 50.799972568, 1e-8);
}

TEST(TapeInfo, TakesEveryNameForATapeWhenThePPDListsNoPaper)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("DC62", 144));
    for (const int count : {0, -1}) {
        ppd_file_t empty{};
        empty.num_sizes = count;
        TapeRecord record{-1, -1, nullptr};
        EXPECT_EQ(call("GetTapeInfo", dialog->session.handle(), dialog->settings.handle(),
                       dialog->format.handle(), &empty, &record),
                  0);
        EXPECT_EQ(record.state, 0) << count;
        CFRelease(record.paperName);
    }
}

TEST(TapeInfo, AsksTheFrameworkInOrder)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("TC24", 72));
    const Answer answer(*dialog);
    EXPECT_EQ(PrintingCalls::taken(),
              (Texts{"PMGetPageFormatPaper", "PMPaperGetPPDPaperName", "PMPaperGetHeight"}));
}

TEST(TapeInfo, LooksIntoTheTicketBetweenNameAndHeight)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("", 72));
    const Answer answer(*dialog);
    EXPECT_EQ(PrintingCalls::taken(), (Texts{"PMGetPageFormatPaper", "PMPaperGetPPDPaperName",
                                             "PMPrintSettingsGetValue", "PMPaperGetHeight"}));
    EXPECT_FALSE(answer.hasName);
    EXPECT_NEAR(answer.record.length, 25.399986284007, 1e-11);
}

TEST(TapeInfo, PassesOnTheErrorOfThePageFormat)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("DC62", 144));
    PrintingCalls::fail("PMGetPageFormatPaper", -30876);
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, -30876);
    EXPECT_EQ(answer.record.length, 100.0);
    EXPECT_EQ(answer.record.state, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(TapeInfo, AnswersTheDefaultsWithoutAPaper)
{
    FakeDialog dialog({.ppd = tapes()});
    const Answer answer(dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.record.length, 100.0);
    EXPECT_EQ(answer.record.state, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(TapeInfo, AnswersTheDefaultsWithoutAPageFormat)
{
    FakeDialog dialog({.ppd = tapes()});
    TapeRecord record{-1, -1, nullptr};
    const int32_t status = call("GetTapeInfo", PMPrintSession{}, PMPrintSettings{}, PMPageFormat{},
                                static_cast<ppd_file_t*>(nullptr), &record);
    EXPECT_EQ(status, -30876); // the framework's answer for no page format
    EXPECT_EQ(record.length, 100.0);
    EXPECT_EQ(record.state, 0);
    EXPECT_EQ(record.paperName, nullptr);
}

TEST(TapeInfo, PassesOnTheErrorOfTheHeightAndKeepsTheName)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("DC62", 144));
    PrintingCalls::fail("PMPaperGetHeight", -30897);
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, -30897);
    EXPECT_EQ(answer.name, "DC62");
    EXPECT_EQ(answer.record.length, 100.0);
    EXPECT_EQ(answer.record.state, 0);
}

TEST(TapeInfo, TakesTheNameFromTheTicketWhenThePaperHasNone)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("", 144));
    dialog->settings.setData(kTicketKey, ticketNaming("DC62"));
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, "DC62");
    EXPECT_EQ(answer.record.state, 0); // a name out of the ticket never makes a label
    EXPECT_NEAR(answer.record.length, 50.799972568, 1e-8);
}

TEST(TapeInfo, TakesTheNameFromTheTicketWhenAskingForThePapersFails)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("AV62", 144));
    dialog->settings.setData(kTicketKey, ticketNaming("TC24"));
    PrintingCalls::fail("PMPaperGetPPDPaperName", -30897);
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, "TC24");
    EXPECT_EQ(answer.record.state, 0);
}

TEST(TapeInfo, PrefersThePapersOwnNameToTheTickets)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("DC62", 144));
    dialog->settings.setData(kTicketKey, ticketNaming("TC24"));
    const Answer answer(*dialog);
    EXPECT_EQ(answer.name, "DC62");
    EXPECT_EQ(answer.record.state, 1);
}

TEST(TapeInfo, KeepsAPaperNameThatIsTooLongToCompare)
{
    const std::string longName = "DC" + std::string(400, 'x');
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper(longName.c_str(), 144));
    const Answer answer(*dialog);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, longName);
    EXPECT_EQ(answer.record.state, 0);
}

TEST(TapeInfo, KeepsACopyThatOutlivesThePaper)
{
    const std::unique_ptr<FakeDialog> dialog(dialogWithPaper("TC24", 72));
    TapeRecord record{};
    {
        const ScopedPool pool;
        call("GetTapeInfo", dialog->session.handle(), dialog->settings.handle(),
             dialog->format.handle(), dialog->ppd(), &record);
        dialog->format.clearPaper();
    }
    EXPECT_EQ(textOf((NSString*)record.paperName), "TC24");
    CFRelease(record.paperName);
}

TEST(Ticket, GivesThePaperName)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticketNaming("TC24"));
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, "TC24");
    EXPECT_EQ(answer.record.length, -1); // the name alone is filled
    EXPECT_EQ(answer.record.state, -1);
}

TEST(Ticket, GivesTheNameBeyondASCII)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticketNaming("テープ24"));
    EXPECT_EQ(Answer(settings).name, "テープ24");
}

TEST(Ticket, IsLeftAloneWhenTheFrameworkAnswersAnError)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticketNaming("TC24"));
    PrintingCalls::failAfterAnswering("PMPrintSettingsGetValue", -30870);
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(Ticket, IsReadWithoutLeavingAnythingBehind)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticketNaming("TC24"));
    CFTypeRef data = nullptr;
    ASSERT_EQ(PMPrintSettingsGetValue(settings.handle(),
                                      CFSTR("jp.co.vendor.print."
                                            "PrintSettingsTicket.KmE5"),
                                      &data),
              0);
    const NSUInteger owners = [(id)data retainCount];
    const LivingObjects dictionaries("GSMutableDictionary");
    const LivingObjects readOnly("GSDictionary");
    {
        const ScopedPool pool;
        EXPECT_EQ(Answer(settings).name, "TC24");
    }
    EXPECT_EQ(dictionaries.count() + readOnly.count(), 0);
    EXPECT_EQ([(id)data retainCount], owners);
}

TEST(Ticket, IsOptional)
{
    printing::PrintSettings settings;
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(Ticket, ForgetsAnEarlierNameWithoutReleasingIt)
{
    printing::PrintSettings settings;
    NSString* earlier = [[NSString alloc] initWithFormat:@"earlier %d", 1];
    TapeRecord record{1, 2, (CFStringRef)earlier};
    EXPECT_EQ(call("GetTapeInfo2", intptr_t{0}, settings.handle(), &record), 0);
    EXPECT_EQ(record.paperName, nullptr);
    EXPECT_EQ([earlier retainCount], 1u);
    [earlier release];
}

TEST(Ticket, NeedsNoPrintSettings)
{
    TapeRecord record{1, 2, CFSTR("earlier")};
    PrintingCalls::taken();
    EXPECT_EQ(call("GetTapeInfo2", intptr_t{0}, PMPrintSettings{}, &record), 0);
    EXPECT_EQ(record.paperName, nullptr);
    EXPECT_EQ(PrintingCalls::taken(), Texts{}); // nothing to ask
}

TEST(Ticket, WithoutTheEntryGivesNoName)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticket("<key>KmPaperName</key><string>TC24</string>"));
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(Ticket, ThatIsNoPropertyListGivesNoName)
{
    const std::string damaged[] = {"", "KmPaperName2", "<plist", std::string("\0\xff\xfe\0", 4),
                                   ticketNaming("TC24").substr(0, 180)};
    for (const std::string& bytes : damaged) {
        printing::PrintSettings settings;
        settings.setData(kTicketKey, bytes);
        const Answer answer(settings);
        EXPECT_EQ(answer.status, 0);
        EXPECT_FALSE(answer.hasName) << bytes;
    }
}

TEST(Ticket, WhoseRootIsNoDictionaryGivesNoName)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, "<?xml version=\"1.0\"?><plist version=\"1.0\"><array>"
                                 "<string>KmPaperName2</string></array></plist>");
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(Ticket, WhoseEntryIsNoTextGivesNoName)
{
    printing::PrintSettings settings;
    settings.setData(kTicketKey, ticket("<key>KmPaperName2</key><integer>24</integer>"));
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(Ticket, ThatIsATextInPlaceOfDataGivesNoName)
{
    printing::PrintSettings settings;
    settings.setString(kTicketKey, ticketNaming("TC24"));
    const Answer answer(settings);
    EXPECT_EQ(answer.status, 0);
    EXPECT_FALSE(answer.hasName);
}

TEST(PageRange, IsSetAgainAsItIsAndNotLocked)
{
    printing::PrintSettings settings;
    PMSetLastPage(settings.handle(), 7, false);
    PMSetFirstPage(settings.handle(), 3, false);
    PrintingCalls::taken();
    PageRangeRecord range{9, 9};
    EXPECT_EQ(call("GetTapeInfo3", settings.handle(), &range), 0);
    EXPECT_EQ(range.firstPage, 3u);
    EXPECT_EQ(range.lastPage, 7u);
    EXPECT_EQ(PrintingCalls::taken(), (Texts{"PMGetFirstPage", "PMSetFirstPage 3 lock=0",
                                             "PMGetLastPage", "PMSetLastPage 7 lock=0"}));
    EXPECT_EQ(settings.firstPage(), 3u);
    EXPECT_EQ(settings.lastPage(), 7u);
}

TEST(PageRange, GoesOnWithoutAFirstPage)
{
    printing::PrintSettings settings;
    PMSetLastPage(settings.handle(), 7, false);
    PrintingCalls::taken();
    PrintingCalls::fail("PMGetFirstPage", -30875);
    PageRangeRecord range{9, 9};
    EXPECT_EQ(call("GetTapeInfo3", settings.handle(), &range), 0);
    EXPECT_EQ(range.firstPage, 0u);
    EXPECT_EQ(range.lastPage, 7u);
    EXPECT_EQ(PrintingCalls::taken(),
              (Texts{"PMGetFirstPage", "PMGetLastPage", "PMSetLastPage 7 lock=0"}));
}

TEST(PageRange, PassesOnTheErrorOfTheLastPage)
{
    printing::PrintSettings settings;
    PrintingCalls::fail("PMGetLastPage", -30875);
    PageRangeRecord range{9, 9};
    EXPECT_EQ(call("GetTapeInfo3", settings.handle(), &range), -30875);
    EXPECT_EQ(range.firstPage, 1u);
    EXPECT_EQ(range.lastPage, 0u);
    EXPECT_EQ(PrintingCalls::taken(),
              (Texts{"PMGetFirstPage", "PMSetFirstPage 1 lock=0", "PMGetLastPage"}));
}

TEST(PageRange, AnswersTheStatusOfSettingTheLastPage)
{
    printing::PrintSettings settings;
    PMSetLastPage(settings.handle(), 7, false);
    PrintingCalls::fail("PMSetLastPage", -30877);
    PageRangeRecord range{9, 9};
    EXPECT_EQ(call("GetTapeInfo3", settings.handle(), &range), -30877);
    EXPECT_EQ(range.lastPage, 7u);
}

TEST(PageRange, IsZeroWithoutPrintSettings)
{
    PageRangeRecord range{9, 9};
    EXPECT_EQ(call("GetTapeInfo3", PMPrintSettings{}, &range), -30875);
    EXPECT_EQ(range.firstPage, 0u);
    EXPECT_EQ(range.lastPage, 0u);
}

TEST(SessionTicket, GivesItsNumber)
{
    printing::PrintSession session;
    session.setNumber("jp.co.vendor.number", -5);
    int32_t value = 9;
    EXPECT_EQ(call("GetTicketFromSession", session.handle(), CFSTR("jp.co.vendor.number"), &value),
              0);
    EXPECT_EQ(value, -5);
}

TEST(SessionTicket, AnswersTheTicketErrorWithoutDataUnderTheKey)
{
    printing::PrintSession session;
    int32_t value = 9;
    EXPECT_EQ(call("GetTicketFromSession", session.handle(), CFSTR("jp.co.vendor.number"), &value),
              -30891);
    EXPECT_EQ(value, 9);
}

TEST(SessionTicket, AnswersTheTicketErrorWhateverTheFrameworkAnswers)
{
    printing::PrintSession session;
    session.setNumber("jp.co.vendor.number", 5);
    int32_t value = 9;
    PrintingCalls::fail("PMSessionGetDataFromSession", -30879);
    EXPECT_EQ(call("GetTicketFromSession", session.handle(), CFSTR("jp.co.vendor.number"), &value),
              -30891);
    PrintingCalls::reset();
    PrintingCalls::answerNull("PMSessionGetDataFromSession");
    EXPECT_EQ(call("GetTicketFromSession", session.handle(), CFSTR("jp.co.vendor.number"), &value),
              -30891);
    PrintingCalls::reset();
    EXPECT_EQ(call("GetTicketFromSession", PMPrintSession{}, CFSTR("jp.co.vendor.number"), &value),
              -30891);
    EXPECT_EQ(value, 9);
}
