#include "hostile/HostedPanel.hpp"

#include "dialog/Text.h"
#include "dialog/panel/PanelHost.h"
#include "dialog/panel/PanelLoader.h"

HostedPanel::HostedPanel(const std::string& bundle, const std::string& printer,
                         const std::string& uri, dialog::PPDFile ppd)
{
    PanelHost* const host = [[PanelHost alloc] initWithPrinter:printer deviceURI:uri
                                                           ppd:std::move(ppd)
                                                         paper:""
                                                        wanted:{}];
    dialog::Failure failure;
    host_ = host;
    loaded_ = [[LoadedPanel panelFromBundle:bundle host:host failure:failure] retain];
    failure_ = failure.text;
}

HostedPanel::~HostedPanel()
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    [loaded_ release];
    [host_ release];
    [pool release];
}

id HostedPanel::panel() const
{
    return [(LoadedPanel*)loaded_ panel];
}

NSView* HostedPanel::view() const
{
    return [(LoadedPanel*)loaded_ view];
}

void HostedPanel::show() const
{
    NSError* error = nil;
    [[(LoadedPanel*)loaded_ panel] willShow];
    [(PanelHost*)host_ applyWanted];
    [[(LoadedPanel*)loaded_ panel] restoreValuesAndReturnError:&error];
}

const dialog::JobOptions& HostedPanel::job() const
{
    return [(PanelHost*)host_ options];
}

std::string bytesOf(NSString* text)
{
    return dialog::toString(text);
}
