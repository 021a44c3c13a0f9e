#include "fuzz/Host.h"

#include "fuzz/Process.h"

#include <objc/runtime.h>

@implementation FuzzHost

- (BOOL)isSilent
{
    return dialog == nullptr || (dialog->isSilent && dialog->isSilent());
}

- (PMPrintSession)printSession
{
    return [self isSilent] ? nullptr : dialog->session.handle();
}

- (PMPrintSettings)printSettings
{
    return [self isSilent] ? nullptr : dialog->settings.handle();
}

- (PMPageFormat)pageFormat
{
    return [self isSilent] ? nullptr : dialog->format.handle();
}

- (PMPrinter)PMPrinter
{
    return [self isSilent] ? nullptr : dialog->printer.handle();
}

- (ppd_file_t*)ppdFile
{
    return [self isSilent] ? nullptr : dialog->ppd.record();
}

- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice
{
    fuzz::require(key != nil && choice != nil, "the dialog is told of whole options");
    fuzz::require([key UTF8String] != nullptr && [choice UTF8String] != nullptr,
                  "what the dialog is told are texts");
    if (dialog == nullptr)
        return;
    if (dialog->marks)
        dialog->ppd.mark([key UTF8String], [choice UTF8String]);
    if (dialog->whenTold)
        dialog->whenTold();
}

@end

@implementation FuzzResizingHost

- (void)panelViewDidResize
{
    if (dialog != nullptr && dialog->whenTold)
        dialog->whenTold();
}

@end

namespace fuzz {

void Dialog::takePaper()
{
    if (ppd.record() == nullptr)
        return;
    if (const std::optional<printing::Paper> paper =
            printing::paperFromPPD(*ppd.record(), ppd.marked("PageSize")))
        format.setPaper(*paper);
}

id<FuzzedPanel> newPanel(id host)
{
    static const Class panelClass = classNamed("PageSettingPDE13_v100_");
    return [(id<FuzzedPanel>)[panelClass alloc] initWithCallback:host andBundle:bundle()];
}

id control(id panel, const char* name)
{
    const Ivar place = class_getInstanceVariable(object_getClass(panel), name);
    require(place != nullptr, name);
    return object_getIvar(panel, place);
}

void requireWholeSummary(NSDictionary* summary)
{
    NSArray* const order = [summary objectForKey:@"Summary Display Order"];
    require(order != nil, "a summary has an order");
    for (NSString* title in order) {
        require([title isKindOfClass:[NSString class]], "a summary's titles are texts");
        require([[summary objectForKey:title] isKindOfClass:[NSString class]],
                "a summary has a value for every title");
    }
}

} // namespace fuzz
