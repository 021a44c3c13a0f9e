// Host.hpp - what the panel benchmarks stand on: the loaded bundle, a dialog that answers it as
// cheaply as a dialog can, a window, and the same interface file without the panel.
#pragma once

#include "bench/LabelPrinter.hpp"
#include "platform/PrintingHost.hpp"

#import <AppKit/AppKit.h>

#include <cups/ppd.h>

// What the benchmarks send to a panel, and what it tells.
@protocol MeasuredPanel <NSObject>
- (NSView*)panelView;
- (NSString*)panelName;
- (NSString*)panelKind;
- (NSArray*)supportedPPDOptionKeys;
- (void)willShow;
- (void)updateUI;
- (BOOL)saveValuesAndReturnError:(NSError**)error;
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice;
- (NSDictionary*)summaryInfo;
- (void)saveSetting_Length;
- (void)saveSetting_Margin;
- (void)saveSetting_Quality;
- (void)saveSetting_Resolution;
- (void)saveSetting_Compress;
- (void)saveSetting_VnResolution;
@end

namespace bench {

// The bundle, loaded; nil, and a line on standard error, when it cannot be.
NSBundle* loadedBundle();

// The dialog's side: hands out its handles, and of what it is told keeps the marks, if asked to.
class Dialog
{
  public:
    Dialog(int sizes, int choices);
    ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    id callback() const { return callback_; }
    ppd_file_t* ppd() const { return ppd_.get(); }
    void choosePaper(int index); // from 0

    // Marks a listed choice at once, as a real dialog does; what that costs is the dialog's.
    bool marksChoices = false;

    printing::Printer printer;
    printing::PageFormat format;
    printing::PrintSettings settings;
    printing::PrintSession session;

  private:
    PPDFile ppd_;
    id callback_;
};

// A panel out of the factory, with its view.
class Panel
{
  public:
    explicit Panel(const Dialog& dialog); // as a dialog does it, up to the option keywords
    ~Panel();
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    id<MeasuredPanel> get() const { return panel_; }
    NSView* view() const { return view_; }

    // A control of the panel by the name of its outlet.
    id control(const char* outlet) const;

  private:
    id plugin_;
    id<MeasuredPanel> panel_;
    NSView* view_;
};

// The interface file with nothing behind it: a view whose controls send what nobody hears.
class BareView
{
  public:
    BareView();
    ~BareView();
    BareView(const BareView&) = delete;
    BareView& operator=(const BareView&) = delete;

    NSView* view() const;
    id control(const char* outlet) const;

  private:
    id owner_;
};

// One window on the screen, with the keyboard, for everything that is drawn.
class Stage
{
  public:
    Stage();
    NSWindow* window() const { return window_; }
    void show(NSView* view) const; // in the window, at its top, not yet drawn
    void draw() const;             // what needs it
    void clear(NSView* view) const;

    // An event as the program's own loop hands it on.
    void deliver(NSEvent* event) const;
    void pressKey(unichar character) const;

  private:
    NSWindow* window_;
};

// What a scope autoreleases ends with it.
class Pool
{
  public:
    Pool() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~Pool() { [pool_ release]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

  private:
    NSAutoreleasePool* pool_;
};

} // namespace bench
