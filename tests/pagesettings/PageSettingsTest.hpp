// PageSettingsTest.hpp - the Page Settings panel out of the bundle, shown by a print dialog for
// tests, with its controls by name.
//
//     ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"}), paperOf(100)));
//     EXPECT_EQ(shown.text("mLengthTxFld"), "3.94");
#pragma once

#include "support/PanelTest.hpp"

#include <cmath>
#include <cstring>

@protocol PageSettingsUnderTest <PanelUnderTest>

- (void)initializeUI_OtherStr;
- (void)initializeUI_Width;
- (void)initializeUI_Length;
- (void)initializeUI_Margin;
- (void)initializeUI_Quality;
- (void)initializeUI_Resolution;
- (void)initializeUI_Compress;
- (void)initializeUI_VnResolution;
- (void)enabledCheck_BS;

- (void)changeLength:(id)sender;
- (void)changeMargin:(id)sender;
- (void)changeQuality:(id)sender;
- (void)changeResolution:(id)sender;
- (void)changeCompress:(id)sender;
- (void)changeVnResolution:(id)sender;
- (BOOL)checkValues:(BOOL)quietly;
- (BOOL)checkLengthByMargin:(BOOL)quietly;
- (double)getOneDotMM;
- (double)MiriToInch:(double)millimetres;
- (double)InchToMiri:(double)inches;

- (void)saveSetting_Length;
- (void)saveSetting_Margin;
- (void)saveSetting_Quality;
- (void)saveSetting_Resolution;
- (void)saveSetting_Compress;
- (void)saveSetting_VnResolution;
- (int32_t)indexForSaveQuality:(id)control;
- (int32_t)vnCeilInteger:(float)value;
- (double)vnCeildouble:(float)value;

- (int32_t)indexForSummary:(const char*)keyword;

@end

@interface NSObject (ChoiceUnderTest)
- (NSString*)ppdTitle;
- (NSString*)userTitle;
@end

// What a PPD offers.  An empty choice list leaves the option out.
struct Offer
{
    std::string unit = "";
    bool wholeLengths = false;
    bool wholeMargins = false;
    std::string minLength = "20";
    std::string maxLength = "1000";
    std::string minMargin = "3";
    std::string maxMargin = "50";
    std::string tapeType = "";
    std::string margin = "5"; // the default; empty: no margin option
    std::vector<PPDChoiceText> quality = {{"Speed", "Fast"}, {"Fine", "Fine"}};
    std::vector<PPDChoiceText> resolution = {{"300x300dpi", "Square"}, {"300x600dpi", "Tall"}};
    std::vector<PPDChoiceText> compress = {{"Off", "Never"}, {"On", "Always"}};
    std::vector<PPDChoiceText> printMode = {};
    std::string qualityDefault = "Speed";
    std::string resolutionDefault = "300x300dpi";
    std::string compressDefault = "Off";
    std::string printModeDefault = "";
    bool tapeLength = true;
};

inline PPDText labelPrinter(const Offer& offer = {})
{
    PPDText ppd;
    ppd.paper("TC24", "24 mm tape", 68, 283).paper("TC36", "36 mm tape", 102, 283);
    ppd.paper("DC62", "62 mm label", 176, 57).paper("AV40", "40 mm label", 113, 57);
    if (!offer.unit.empty())
        ppd.attribute("VnUnitType", offer.unit);
    if (offer.wholeLengths)
        ppd.attribute("VnIsIntegerTapeLength", "True");
    if (offer.wholeMargins)
        ppd.attribute("VnIsIntegerMargin", "True");
    ppd.attribute("VnMinTapeLength", offer.minLength);
    ppd.attribute("VnMaxTapeLength", offer.maxLength);
    ppd.attribute("VnMinMargin", offer.minMargin);
    ppd.attribute("VnMaxMargin", offer.maxMargin);
    if (!offer.tapeType.empty())
        ppd.attribute("VnTapeType", offer.tapeType);
    if (offer.tapeLength)
        ppd.option("VnTapeLength", "Label length", {{"100", "100"}}, "100");
    if (!offer.margin.empty())
        ppd.option("VnMargin", "Feed margin", {{offer.margin, offer.margin}}, offer.margin);
    if (!offer.quality.empty())
        ppd.option("VnPriority", "Priority", offer.quality, offer.qualityDefault);
    if (!offer.resolution.empty())
        ppd.option("Resolution", "Dots", offer.resolution, offer.resolutionDefault);
    if (!offer.compress.empty())
        ppd.option("VnCompress", "Squeeze", offer.compress, offer.compressDefault);
    if (!offer.printMode.empty())
        ppd.option("VnResolution", "Mode", offer.printMode, offer.printModeDefault);
    return ppd;
}

inline std::vector<PPDChoiceText> printModes()
{
    return {{"S300", "Fast square"}, {"Q300", "Fine square"}, {"Q600", "Fine tall"}};
}

// A paper whose length reads as the millimetres to the last digit that a text can show.  Exactly
// 100 comes from a paper without a height.
inline printing::Paper paperOf(double millimetres, const std::string& name = "TC24")
{
    return {name, 68, millimetres == 100 ? 0 : millimetres * 0.0393701 * 72};
}

inline DialogSetup usbDialog(const PPDText& ppd, const printing::Paper& paper = paperOf(100))
{
    return {.ppd = ppd, .deviceURI = "usb://Vendor/LabelPrinter", .paper = paper};
}

inline NSString* localized(const char* key)
{
    NSString* const name = [NSString stringWithUTF8String:key];
    NSString* const text = [pluginBundle() localizedStringForKey:name value:nil table:nil];
    EXPECT_FALSE([text isEqualToString:name]) << "no text for " << key;
    return text;
}

inline std::string localizedText(const char* key)
{
    return textOf(localized(key));
}

class ShownPanel
{
  public:
    explicit ShownPanel(const DialogSetup& setup) : dialog(setup), panel_(dialog)
    {
        setCurrentEvent(0);
        [get() panelView];
        [get() supportedPPDOptionKeys];
        [get() willShow];
        dialog.calls.clear();
        takeAlerts();
    }

    id<PageSettingsUnderTest> get() const { return (id<PageSettingsUnderTest>)panel_.get(); }
    template <class T>
    T& ivar(const char* name) const
    {
        return ivarOf<T>(panel_.get(), name);
    }
    template <class T>
    T control(const char* name) const
    {
        return ivarOf<T>(panel_.get(), name);
    }
    NSTextField* field(const char* name) const { return control<NSTextField*>(name); }
    NSSlider* slider(const char* name) const { return control<NSSlider*>(name); }
    NSMatrix* matrix(const char* name) const { return control<NSMatrix*>(name); }
    NSPopUpButton* popUp() const { return control<NSPopUpButton*>("mVnResolutionPUBtn"); }

    std::string text(const char* name) const { return textOf([field(name) stringValue]); }
    std::string length() const { return text("mLengthTxFld"); }
    std::string margin() const { return text("mMarginTxFld"); }
    void setText(const char* name, const std::string& text) const
    {
        [field(name) setStringValue:[NSString stringWithUTF8String:text.c_str()]];
    }
    void setLength(const std::string& text) const { setText("mLengthTxFld", text); }
    void setMargin(const std::string& text) const { setText("mMarginTxFld", text); }
    bool isGrey(const char* name) const
    {
        NSColor* const colour = [field(name) textColor];
        EXPECT_TRUE([colour isEqual:[NSColor disabledControlTextColor]] ||
                    [colour isEqual:[NSColor controlTextColor]]);
        return [colour isEqual:[NSColor disabledControlTextColor]];
    }
    Texts titles(const char* name) const
    {
        Texts titles;
        NSMatrix* const choices = matrix(name);
        for (NSInteger row = 0; row < [choices numberOfRows]; ++row)
            titles.push_back(textOf([[choices cellAtRow:row column:0] title]));
        return titles;
    }

    // The end of editing by a key.
    void endEditing(const char* name) const
    {
        setCurrentEvent(NSKeyDown);
        [get() controlTextDidEndEditing:notification(field(name))];
        setCurrentEvent(0);
    }
    void type(const char* name, const std::string& text) const
    {
        setText(name, text);
        [get() controlTextDidChange:notification(field(name))];
    }
    Texts takeChanges()
    {
        const Texts told = dialog.changes();
        dialog.calls.clear();
        return told;
    }

    static NSNotification* notification(id object)
    {
        return [NSNotification notificationWithName:@"Test" object:object];
    }

    FakeDialog dialog;

  private:
    TestPanel panel_;
};
