// That a loaded interface file leaves no document behind, and is read as before.
#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSXibKeyedUnarchiver.h>

#include <gtest/gtest.h>

// The toolkit's header hides them from builds without assertions; the library has them always.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class counted);

namespace {

// Counts the objects of a class that are alive and were made in its scope.
class Alive
{
  public:
    explicit Alive(Class counted) : counted_(counted)
    {
        GSDebugAllocationActive(YES);
        before_ = GSDebugAllocationCount(counted_);
    }
    ~Alive() { GSDebugAllocationActive(NO); }
    Alive(const Alive&) = delete;
    Alive& operator=(const Alive&) = delete;
    int count() const { return GSDebugAllocationCount(counted_) - before_; }

  private:
    Class counted_;
    int before_ = 0;
};

NSData* bytes(NSString* text)
{
    return [text dataUsingEncoding:NSUTF8StringEncoding];
}

NSData* currentFormat()
{
    return bytes(@"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                 @"<document type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\" version=\"3.0\">"
                 @"<objects><customObject id=\"-2\" customClass=\"NSObject\"/></objects>"
                 @"</document>");
}

NSData* olderFormat()
{
    return bytes(@"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                 @"<archive type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\" version=\"8.00\">"
                 @"<data><int key=\"IBDocument.SystemTarget\">1070</int></data></archive>");
}

} // namespace

TEST(InterfaceFile, LeavesNoDocumentBehindOnceItsFormatIsKnown)
{
    const Alive documents([NSXMLDocument class]);
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    for (int i = 0; i < 3; ++i) {
        [GSXibKeyedUnarchiver checkXib5:currentFormat()];
        [GSXibKeyedUnarchiver checkXib5:olderFormat()];
    }
    EXPECT_GT(documents.count(), 0) << "no document was read, so none could be left behind";
    [pool drain];
    EXPECT_EQ(documents.count(), 0);
}

TEST(InterfaceFile, LeavesNoDocumentBehindOnceItIsOpen)
{
    const Alive documents([NSXMLDocument class]);
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    EXPECT_NE([GSXibKeyedUnarchiver unarchiverForReadingWithData:currentFormat()], nil);
    [pool drain];
    EXPECT_EQ(documents.count(), 0);
}

TEST(InterfaceFile, IsOfTheCurrentFormatWhenItsRootIsADocument)
{
    EXPECT_TRUE([GSXibKeyedUnarchiver checkXib5:currentFormat()]);
}

TEST(InterfaceFile, IsOfTheOlderFormatWhenItsRootIsAnArchive)
{
    EXPECT_FALSE([GSXibKeyedUnarchiver checkXib5:olderFormat()]);
}

TEST(InterfaceFile, IsOpenedByTheReaderOfItsFormat)
{
    EXPECT_STREQ(
        object_getClassName([GSXibKeyedUnarchiver unarchiverForReadingWithData:currentFormat()]),
        "GSXib5KeyedUnarchiver");
    EXPECT_STREQ(
        object_getClassName([GSXibKeyedUnarchiver unarchiverForReadingWithData:olderFormat()]),
        "GSXibKeyedUnarchiver");
}
