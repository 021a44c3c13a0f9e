// PanelSession.hpp - one print dialog from opening to closing, as a user works it.
//
//     PanelSession session(dialog, dialog.callback());
//     session.open();
//     session.work();
//     session.print();
//     EXPECT_EQ(session.escaped, Texts());
//
// Every message goes to the panel as a print dialog sends it, and what comes out of it as an
// exception is noted.  The panel is released with the session.
#pragma once

#include "pagesettings/PageSettingsTest.hpp"

class PanelSession
{
  public:
    // The host answers and is told; the dialog owns what it hands out.
    PanelSession(FakeDialog& dialog, id host) : dialog_(dialog)
    {
        send("initWithCallback:andBundle:", [&] {
            panel_ = [[classNamed("PageSettingPDE13_v100_") alloc] initWithCallback:host
                                                                          andBundle:pluginBundle()];
        });
    }
    ~PanelSession()
    {
        const ScopedPool pool;
        send("release", [&] { [panel_ release]; });
        [view_ release];
    }
    PanelSession(const PanelSession&) = delete;
    PanelSession& operator=(const PanelSession&) = delete;

    void open()
    {
        const ScopedPool pool;
        send("panelView", [&] { view_ = [[panel_ panelView] retain]; });
        send("panelName", [&] { [panel_ panelName]; });
        send("panelKind", [&] { [panel_ panelKind]; });
        send("supportedPPDOptionKeys", [&] { [panel_ supportedPPDOptionKeys]; });
        send("willShow", [&] { [panel_ willShow]; });
        send("restore", [&] { [panel_ restoreValuesAndReturnError:nullptr]; });
    }

    // Ends with a length of 62.5, a margin of 4.2, the second row everywhere, on the wider tape.
    void work()
    {
        const ScopedPool pool;
        type("mLengthTxFld", "9"); // below the minimum
        type("mMarginTxFld", "60");
        type("mMarginTxFld", "49"); // makes the length longer, with an alert
        drag("mLengthSlider", 80, [&] { [panel_ changeLength:control("mLengthSlider")]; });
        drag("mMarginSlider", 7, [&] { [panel_ changeMargin:control("mMarginSlider")]; });
        type("mLengthTxFld", "62.5");
        type("mMarginTxFld", "4.2");
        choose("mPrintQualityRdBtn", [&](id row) { [panel_ changeQuality:row]; });
        choose("mCompressRdBtn", [&](id row) { [panel_ changeCompress:row]; });
        choose("mVnResolutionPUBtn", [&](id row) { [panel_ changeVnResolution:row]; });
        choose("mResolutionRdBtn", [&](id row) { [panel_ changeResolution:row]; });
        resize();
        dialog_.format.setPaper(paperOf(120, "TC36"));
        send("updateUI", [&] { [panel_ updateUI]; });
        send("PPDOptionKeyValueDidChange", [&] {
            [panel_ PPDOptionKeyValueDidChange:@"VnCompress" ppdChoice:@"On"];
            [panel_ updateUI];
        });
        send("summaryInfo", [&] { [panel_ summaryInfo]; });
    }

    void print()
    {
        const ScopedPool pool;
        send("save", [&] { [panel_ saveValuesAndReturnError:nullptr]; });
        send("shouldPrint", [&] { mayPrint = [panel_ shouldPrint]; });
        send("printWindowWillClose", [&] { [panel_ printWindowWillClose:YES]; });
    }

    id<PageSettingsUnderTest> panel() const { return panel_; }
    NSView* view() const { return view_; }

    // Messages out of which an exception came to the dialog.
    Texts escaped;
    bool mayPrint = false;

  private:
    template <class Send>
    void send(const char* message, Send send)
    {
        @try {
            send();
        } @catch (NSObject* raised) {
            escaped.push_back(std::string(message) + ": " + textOf([raised description]));
        }
    }
    id control(const char* name) { return panel_ == nil ? nil : ivarOf<id>(panel_, name); }
    void type(const char* name, const char* text)
    {
        send(name, [&] {
            NSTextField* const field = control(name);
            NSNotification* const note = ShownPanel::notification(field);
            [field setStringValue:[NSString stringWithUTF8String:text]];
            [panel_ controlTextDidChange:note];
            setCurrentEvent(NSKeyDown);
            [panel_ controlTextDidEndEditing:note];
            setCurrentEvent(0);
        });
    }
    template <class Change>
    void drag(const char* name, float millimetres, Change change)
    {
        send(name, [&] {
            [control(name) setFloatValue:millimetres];
            setCurrentEvent(NSLeftMouseUp);
            change();
            setCurrentEvent(0);
        });
    }
    template <class Change>
    void choose(const char* name, Change change)
    {
        send(name, [&] {
            id const rows = control(name);
            if ([rows isKindOfClass:[NSPopUpButton class]]) {
                if ([rows numberOfItems] > 1)
                    [rows selectItemAtIndex:1];
            } else if ([rows numberOfRows] > 1) {
                [rows selectCellAtRow:1 column:0];
            }
            change(rows);
        });
    }
    // Once in a window that is large enough, once in one that has to grow first.
    void resize()
    {
        send("resize", [&] {
            const NSSize size = [view_ frame].size;
            {
                const ScopedKeyWindow large(size.height + 200);
                [panel_ setViewFrameSize:size];
            }
            const ScopedKeyWindow small(size.height);
            [panel_ setViewFrameSize:size];
            [[NSNotificationCenter defaultCenter]
                postNotificationName:NSViewDidUpdateTrackingAreasNotification
                              object:view_];
        });
    }

    FakeDialog& dialog_;
    id<PageSettingsUnderTest> panel_ = nil;
    NSView* view_ = nil;
};
