// The panel and the dialog's own host with PPDs that have one fault each (cases.py): every one is
// opened, shown, edited, saved, summed up and made ready to print, and ends as its case says.

#include "hostile/HostedPanel.hpp"

#include "dialog/Messages.hpp"
#include "pagesettings/PageSettingsTest.hpp"

#include <clocale>
#include <filesystem>
#include <fstream>
#include <map>

namespace {

struct Case
{
    std::string name;
    std::string path;
    std::string uri;
    std::string refusal; // empty: the PPD is used
    std::vector<std::pair<std::string, std::string>> seen;
};

void PrintTo(const Case& hostile, std::ostream* out)
{
    *out << hostile.path;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::vector<Case> readCases()
{
    std::vector<Case> cases;
    std::ifstream file(HOSTILE_FOLDER "/cases");
    std::string line;
    while (std::getline(file, line)) {
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        std::string rest = line.substr(blank + 1);
        if (word == "case") {
            cases.push_back({rest, {}, {}, {}, {}});
            continue;
        }
        Case& last = cases.back();
        if (word == "file") {
            last.path = rest.front() == '/' ? rest : HOSTILE_FOLDER "/" + rest;
        } else if (word == "uri") {
            last.uri = rest;
        } else if (word == "refused") {
            // The dialog does not say the whole of a long path.
            replaceAll(rest, "{path}", dialog::shown(last.path));
            last.refusal = rest;
        } else if (word == "see") {
            const std::size_t colon = rest.find(": ");
            last.seen.emplace_back(rest.substr(0, colon), rest.substr(colon + 2));
        }
    }
    return cases;
}

// The same spelling as in the file of cases.
std::string spelled(const std::string& text)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte > 126 || std::string_view("%{}|").find(c) != std::string_view::npos) {
            result += '%';
            result += kDigits[byte >> 4];
            result += kDigits[byte & 15];
        } else {
            result += c;
        }
    }
    return result;
}

std::string spelled(NSString* text)
{
    return spelled(bytesOf(text));
}

// {KEY} becomes the panel's own text for the key.
std::string withWordings(const std::string& text)
{
    std::string result;
    std::size_t at = 0;
    for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{', at)) {
        const std::size_t close = text.find('}', open);
        result += text.substr(at, open - at);
        result += spelled(localized(text.substr(open + 1, close - open - 1).c_str()));
        at = close + 1;
    }
    return result + text.substr(at);
}

std::string joined(const Texts& texts, const char* between = "|")
{
    std::string result;
    for (const std::string& text : texts)
        result += (result.empty() ? "" : between) + text;
    return result;
}

// The reason behind a colon is the system's or the print library's, in the locale's language.
std::string asFarAsOurs(const std::string& sentence)
{
    const std::string locale = std::setlocale(LC_MESSAGES, nullptr);
    return locale.front() == 'C' ? sentence : sentence.substr(0, sentence.find(": ") + 1);
}

// The panel as the dialog opens it.
class OpenPanel
{
  public:
    OpenPanel(const Case& hostile, dialog::PPDFile ppd)
        : hosted_(PLUGIN_PATH, hostile.name, hostile.uri, std::move(ppd))
    {
    }

    const std::string& failure() const { return hosted_.failure(); }
    id<PageSettingsUnderTest> panel() const { return hosted_.panel(); }

    void show() const
    {
        hosted_.show();
        draw();
    }

    void draw() const
    {
        static NSWindow* const window =
            [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 700, 600)
                                        styleMask:NSTitledWindowMask
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
        [window orderFront:nil];
        [[window contentView] addSubview:hosted_.view()];
        [window display];
        [hosted_.view() removeFromSuperview];
    }

    template <class T>
    T control(const char* name) const
    {
        return ivarOf<T>(panel(), name);
    }
    NSTextField* field(const char* name) const { return control<NSTextField*>(name); }
    std::string text(const char* name) const { return spelled([field(name) stringValue]); }

    void edit(const char* name, const char* entry) const
    {
        if (![field(name) isEnabled])
            return;
        [field(name) setStringValue:[NSString stringWithUTF8String:entry]];
        [panel() controlTextDidChange:ShownPanel::notification(field(name))];
        setCurrentEvent(NSKeyDown);
        [panel() controlTextDidEndEditing:ShownPanel::notification(field(name))];
        setCurrentEvent(0);
    }

    void editEverything() const
    {
        const bool inches = [panel() getPDEUnit] != 0;
        edit("mLengthTxFld", inches ? "2.19" : "55.5");
        edit("mMarginTxFld", inches ? "0.17" : "4.2");
        NSMatrix* const quality = control<NSMatrix*>("mPrintQualityRdBtn");
        if (![quality isHidden] && [quality isEnabled] && [quality numberOfRows] > 1) {
            [quality selectCellAtRow:1 column:0];
            [panel() changeQuality:quality];
        }
        NSMatrix* const compress = control<NSMatrix*>("mCompressRdBtn");
        if (![compress isHidden] && [compress isEnabled]) {
            [compress selectCellAtRow:0 column:0];
            [panel() changeCompress:compress];
        }
        NSPopUpButton* const mode = control<NSPopUpButton*>("mVnResolutionPUBtn");
        if (![mode isHidden] && [mode isEnabled] && [mode numberOfItems] > 1) {
            [mode selectItemAtIndex:1];
            [panel() changeVnResolution:mode];
        }
        NSError* error = nil;
        EXPECT_TRUE([panel() saveValuesAndReturnError:&error]);
        EXPECT_TRUE([panel() shouldPrint]);
        draw();
    }

    std::string job() const
    {
        Texts told;
        for (const dialog::JobOption& option : hosted_.job().all())
            told.push_back(option.keyword + "=" + spelled(option.choice));
        return joined(told);
    }

    std::string summary() const
    {
        Texts lines;
        NSDictionary* const summary = [panel() summaryInfo];
        for (NSString* title in [summary objectForKey:@"Summary Display Order"])
            lines.push_back(spelled(title) + ": " + spelled([summary objectForKey:title]));
        return joined(lines);
    }

    std::string row(const char* label, const char* name) const
    {
        NSControl* const control = this->control<NSControl*>(name);
        if ([control isHidden])
            return "hidden";
        Texts titles;
        NSInteger selected = -1;
        if ([control isKindOfClass:[NSPopUpButton class]]) {
            for (NSString* title in [(NSPopUpButton*)control itemTitles])
                titles.push_back(spelled(title));
            selected = [(NSPopUpButton*)control indexOfSelectedItem];
        } else {
            NSMatrix* const matrix = (NSMatrix*)control;
            for (NSInteger i = 0; i < [matrix numberOfRows]; ++i)
                titles.push_back(spelled([[matrix cellAtRow:i column:0] title]));
            selected = [matrix selectedRow];
        }
        return std::string([control isEnabled] ? "on " : "off ") + std::to_string(selected) + " " +
               text(label) + ": " + joined(titles);
    }

    std::map<std::string, std::string> look() const
    {
        Texts editable;
        if ([field("mLengthTxFld") isEnabled])
            editable.push_back("length");
        if ([field("mMarginTxFld") isEnabled])
            editable.push_back("margin");
        return {
            {"shown length", text("mLengthTxFld")},
            {"shown margin", text("mMarginTxFld")},
            {"shown width", text("mWidthTxFld")},
            {"shown unit", text("mLengthUnitStr")},
            {"length range", text("mLengthMinStr") + " " + text("mLengthMaxStr")},
            {"margin range", text("mMarginMinStr") + " " + text("mMarginMaxStr")},
            {"editable", joined(editable, " ")},
            {"length caption", text("mLengthStr")},
            {"margin caption", text("mMarginStr")},
            {"keys", joined(textsOf([panel() supportedPPDOptionKeys]), " ")},
            {"quality", row("mPrintQualityStr", "mPrintQualityRdBtn")},
            {"resolution", row("mPrintResolutionStr", "mResolutionRdBtn")},
            {"compress", row("mPrintCompressStr", "mCompressRdBtn")},
            {"mode", row("mPrintVnResolutionStr", "mVnResolutionPUBtn")},
            {"first job", job()},
            {"first summary", summary()},
        };
    }

  private:
    HostedPanel hosted_;
};

class HostilePPD : public testing::TestWithParam<Case>
{
  protected:
    static void SetUpTestSuite()
    {
        // As a host does that minds its user's language.
        ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr) << "this locale is not installed";
    }
    static void TearDownTestSuite() { std::setlocale(LC_ALL, "C"); }
};

} // namespace

TEST_P(HostilePPD, EndsAsItsCaseSays)
{
    const Case& hostile = GetParam();
    dialog::Failure failure;
    dialog::PPDFile ppd = dialog::PPDFile::fromPath(hostile.path, failure);
    EXPECT_EQ(asFarAsOurs(failure.text), asFarAsOurs(hostile.refusal));
    EXPECT_EQ(ppd.record() == nullptr, !hostile.refusal.empty());
    if (ppd.record() == nullptr)
        return;

    const OpenPanel open(hostile, std::move(ppd));
    ASSERT_EQ(open.failure(), "");
    open.show();
    std::map<std::string, std::string> found = open.look();
    open.editEverything();
    found["edited length"] = open.text("mLengthTxFld");
    found["edited margin"] = open.text("mMarginTxFld");
    found["last job"] = open.job();
    found["last summary"] = open.summary();
    for (const auto& [what, text] : hostile.seen)
        EXPECT_EQ(found.at(what), withWordings(text)) << what;
    // A row without an option is not there at all.
    for (const char* row : {"quality", "resolution", "compress", "mode"}) {
        const bool expected = std::any_of(hostile.seen.begin(), hostile.seen.end(),
                                          [&](const auto& seen) { return seen.first == row; });
        if (!expected)
            EXPECT_EQ(found.at(row), "hidden") << row;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, HostilePPD, testing::ValuesIn(readCases()), [](const auto& info) {
    std::string name = info.param.name;
    replaceAll(name, "-", "_");
    return name;
});

// Of at least 300, or the folder was not made.
TEST(HostilePPDs, AreManyAndEachHasItsOwnName)
{
    std::map<std::string, int> names;
    for (const Case& hostile : readCases())
        ++names[hostile.name];
    EXPECT_GE(names.size(), 300u);
    for (const auto& [name, count] : names)
        EXPECT_EQ(count, 1) << name;
}
