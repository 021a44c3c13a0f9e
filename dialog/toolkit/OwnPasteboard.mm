#include "dialog/toolkit/OwnPasteboard.h"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSPasteboardServer.h>

namespace {

// A server that is stuck must not take the dialog with it.
constexpr NSTimeInterval kServerPatience = 2;

} // namespace

// Some releases of the toolkit know their server by this method alone.
@interface NSPasteboard (ServerInThisProgram)
+ (void)_localServer:(id)server;
@end

@interface OwnPasteboard : NSObject <GSPasteboardObj>
{
    NSString* name_;
    NSMutableArray* types_;
    NSMutableDictionary* data_; // by type
    id owner_;                  // owned: it may be asked for data long after it declared it
    NSPasteboard* client_;      // as whom the owner knows this; owned
    int changeCount_;
}
- (id)initWithName:(NSString*)name;
@end

@implementation OwnPasteboard

- (id)initWithName:(NSString*)name
{
    self = [super init];
    if (self != nil) {
        name_ = [name copy];
        types_ = [[NSMutableArray alloc] init];
        data_ = [[NSMutableDictionary alloc] init];
    }
    return self;
}

- (void)dealloc
{
    [name_ release];
    [types_ release];
    [data_ release];
    [owner_ release];
    [client_ release];
    [super dealloc];
}

- (NSString*)name
{
    return name_;
}

- (int)changeCount
{
    return changeCount_;
}

- (void)take:(NSArray*)types owner:(id)owner pasteboard:(NSPasteboard*)client
{
    for (NSString* type in types) {
        if (![types_ containsObject:type]) {
            [types_ addObject:type];
        }
    }
    [owner retain];
    [owner_ release];
    owner_ = owner;
    [client retain];
    [client_ release];
    client_ = client;
}

- (int)declareTypes:(in bycopy NSArray*)types owner:(id)owner pasteboard:(NSPasteboard*)client
{
    id const before = owner_ == owner ? nil : [[owner_ retain] autorelease];
    NSPasteboard* const clientBefore = [[client_ retain] autorelease];
    [types_ removeAllObjects];
    [data_ removeAllObjects];
    [self take:types owner:owner pasteboard:client];
    ++changeCount_;
    if ([before respondsToSelector:@selector(pasteboardChangedOwner:)]) {
        [before pasteboardChangedOwner:clientBefore];
    }
    return changeCount_;
}

- (int)addTypes:(in bycopy NSArray*)types
          owner:(id)owner
     pasteboard:(NSPasteboard*)client
       oldCount:(int)count
{
    if (count != changeCount_) {
        return 0;
    }
    [self take:types owner:owner pasteboard:client];
    return changeCount_;
}

- (bycopy NSArray*)typesAndChangeCount:(int*)count
{
    *count = changeCount_;
    return [[types_ copy] autorelease];
}

- (NSString*)availableTypeFromArray:(in bycopy NSArray*)types changeCount:(int*)count
{
    *count = changeCount_;
    return [types firstObjectCommonWithArray:types_];
}

- (NSData*)dataForType:(in bycopy NSString*)type oldCount:(int)count mustBeCurrent:(BOOL)flag
{
    if (type == nil || ![types_ containsObject:type]) {
        return nil;
    }
    if ([data_ objectForKey:type] == nil && [owner_ respondsToSelector:@selector(pasteboard:
                                                                           provideDataForType:)]) {
        [owner_ pasteboard:client_ provideDataForType:type];
    }
    return [[[data_ objectForKey:type] retain] autorelease];
}

- (BOOL)setData:(in bycopy NSData*)data
        forType:(in bycopy NSString*)type
         isFile:(BOOL)flag
       oldCount:(int)count
{
    if (data == nil || count != changeCount_ || ![types_ containsObject:type]) {
        return NO;
    }
    [data_ setObject:data forKey:type];
    return YES;
}

- (void)setHistory:(unsigned)length
{
}

- (void)releaseGlobally
{
    [self declareTypes:@[] owner:nil pasteboard:nil];
}

@end

@interface OwnPasteboardServer : NSObject <GSPasteboardSvr>
{
    NSMutableDictionary* pasteboards_; // by name
    unsigned unnamed_;
}
- (void)useDesktopServer;
@end

@implementation OwnPasteboardServer

- (id)init
{
    self = [super init];
    if (self != nil) {
        pasteboards_ = [[NSMutableDictionary alloc] init];
    }
    return self;
}

- (void)dealloc
{
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [pasteboards_ release];
    [super dealloc];
}

- (id<GSPasteboardObj>)pasteboardWithName:(in bycopy NSString*)name
{
    if (name == nil) {
        name = [NSString stringWithFormat:@"%@ %u", NSStringFromClass([self class]), ++unnamed_];
    }
    OwnPasteboard* pasteboard = [pasteboards_ objectForKey:name];
    if (pasteboard == nil) {
        pasteboard = [[[OwnPasteboard alloc] initWithName:name] autorelease];
        [pasteboards_ setObject:pasteboard forKey:name];
    }
    return pasteboard;
}

- (void)useDesktopServer
{
    @try {
        NSConnection* const connection = [NSConnection connectionWithRegisteredName:PBSNAME
                                                                               host:@""];
        [connection setRequestTimeout:kServerPatience];
        [connection setReplyTimeout:kServerPatience];
        NSDistantObject* const server = connection == nil ? nil : [connection rootProxy];
        if (server != nil) {
            [server setProtocolForProxy:@protocol(GSPasteboardSvr)];
            [[NSNotificationCenter defaultCenter] addObserver:self
                                                     selector:@selector(desktopServerDidEnd:)
                                                         name:NSConnectionDidDieNotification
                                                       object:connection];
            [NSPasteboard _localServer:[server retain]];
        }
    } @catch (NSException*) {
        [NSPasteboard _localServer:self];
    }
}

- (void)desktopServerDidEnd:(NSNotification*)note
{
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [NSPasteboard _localServer:self];
}

@end

namespace dialog {

void setUpPasteboards()
{
    if (![NSPasteboard respondsToSelector:@selector(_localServer:)]) {
        return;
    }
    static OwnPasteboardServer* const server = [[OwnPasteboardServer alloc] init];
    [NSPasteboard _localServer:server];
    [server useDesktopServer];
}

} // namespace dialog
