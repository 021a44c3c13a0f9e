#include "dialog/panel/PanelLoader.h"

#include "dialog/Text.h"

@interface LoadedPanel (Loading)
+ (LoadedPanel*)panelWithoutViewFromBundle:(const std::string&)path
                                      host:(PanelHost*)host
                                   failure:(dialog::Failure&)failure;
- (BOOL)takeBundle:(NSBundle*)bundle
              path:(const std::string&)path
              host:(PanelHost*)host
           failure:(dialog::Failure&)failure;
- (BOOL)takePanelAtPath:(const std::string&)path failure:(dialog::Failure&)failure;
@end

@implementation LoadedPanel

+ (LoadedPanel*)panelFromBundle:(const std::string&)path
                           host:(PanelHost*)host
                        failure:(dialog::Failure&)failure
{
    LoadedPanel* const loaded = [self panelWithoutViewFromBundle:path host:host failure:failure];
    return [loaded takePanelAtPath:path failure:failure] ? loaded : nil;
}

+ (NSString*)nameOfPanelInBundle:(const std::string&)path
                            host:(PanelHost*)host
                         failure:(dialog::Failure&)failure
{
    LoadedPanel* const loaded = [self panelWithoutViewFromBundle:path host:host failure:failure];
    return [[[[loaded panel] panelName] copy] autorelease];
}

+ (LoadedPanel*)panelWithoutViewFromBundle:(const std::string&)path
                                      host:(PanelHost*)host
                                   failure:(dialog::Failure&)failure
{
    BOOL isFolder = NO;
    NSString* const place = dialog::toNSString(path);
    NSBundle* bundle = nil;
    if ([[NSFileManager defaultManager] fileExistsAtPath:place isDirectory:&isFolder] && isFolder) {
        bundle = [NSBundle bundleWithPath:place];
    }
    if (bundle == nil) {
        failure = dialog::bundleNotFound(path);
        return nil;
    }
    if (![bundle load]) {
        failure = dialog::bundleNotLoadable(path);
        return nil;
    }
    LoadedPanel* const loaded = [[[LoadedPanel alloc] init] autorelease];
    if (![loaded takeBundle:bundle path:path host:host failure:failure]) {
        return nil;
    }
    return loaded;
}

- (BOOL)takeBundle:(NSBundle*)bundle
              path:(const std::string&)path
              host:(PanelHost*)host
           failure:(dialog::Failure&)failure
{
    const Class principalClass = [bundle principalClass];
    if (principalClass == Nil ||
        ![principalClass instancesRespondToSelector:@selector(initWithBundle:)] ||
        ![principalClass instancesRespondToSelector:@selector(PDEPanelsForType:withHostInfo:)]) {
        failure = dialog::bundleNotAPlugin(path);
        return NO;
    }
    // The initialiser answers a boolean, so the object is what alloc gave.
    principal_ = [principalClass alloc];
    if (![(id<PrintDialogExtension>)principal_ initWithBundle:bundle]) {
        failure = dialog::bundleRefusesSystem(path);
        return NO;
    }
    NSArray* const panels = [principal_ PDEPanelsForType:kPrintDialogPanelType withHostInfo:host];
    if ([panels count] == 0) {
        failure = dialog::noPanelForType(path);
        return NO;
    }
    panel_ = [[panels objectAtIndex:0] retain];
    return YES;
}

- (BOOL)takePanelAtPath:(const std::string&)path failure:(dialog::Failure&)failure
{
    view_ = [[panel_ panelView] retain];
    if (view_ == nil) {
        failure = dialog::panelWithoutView(path);
        return NO;
    }
    name_ = [[panel_ panelName] copy];
    [panel_ panelKind];
    keys_ = [[panel_ supportedPPDOptionKeys] copy];
    return YES;
}

- (void)dealloc
{
    [view_ removeFromSuperview];
    [keys_ release];
    [name_ release];
    [view_ release];
    [panel_ release];
    [principal_ release];
    [super dealloc];
}

- (id<PrintDialogPanel>)panel
{
    return panel_;
}

- (NSView*)view
{
    return view_;
}

- (NSString*)name
{
    return name_;
}

- (BOOL)wantsOption:(NSString*)key
{
    return [keys_ containsObject:key];
}

- (void)optionDidChange:(NSString*)key choice:(NSString*)choice
{
    if ([self wantsOption:key]) {
        [panel_ PPDOptionKeyValueDidChange:key ppdChoice:choice];
    }
}

@end
