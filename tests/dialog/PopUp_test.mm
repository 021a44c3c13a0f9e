// Pop-ups whose rows change while nobody sees them.

#include "dialog/PopUp.h"

#include "support/ToolkitTest.h"

namespace {

TEST(PopUp, ShowsAnotherTitleOfARowAndMakesRoomForIt)
{
    NSPopUpButton* const popUp = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(0, 0, 100, 24)
                                                             pullsDown:NO] autorelease];
    dialog::fillPopUp(popUp, {"First", "Second", "Third"});
    NSMenuView* const rows = [[popUp menu] menuRepresentation];
    const CGFloat before = NSWidth([rows rectOfItemAtIndex:0]);
    NSString* const wide = @"Second, with a title that is wider than all the others before it";
    dialog::retitle((NSMenuItem*)[popUp itemAtIndex:1], wide);
    EXPECT_TRUE([[popUp itemTitleAtIndex:1] isEqualToString:wide]);
    EXPECT_TRUE([[popUp itemTitleAtIndex:0] isEqualToString:@"First"]);
    EXPECT_EQ([(NSMenuItem*)[popUp itemAtIndex:1] menu], [popUp menu]);
    EXPECT_GT(NSWidth([rows rectOfItemAtIndex:0]), 2 * before);

    [popUp selectItemAtIndex:1];
    dialog::retitle((NSMenuItem*)[popUp itemAtIndex:1], @"2");
    [popUp synchronizeTitleAndSelectedItem];
    EXPECT_TRUE([[popUp titleOfSelectedItem] isEqualToString:@"2"]);
    EXPECT_LT(NSWidth([rows rectOfItemAtIndex:0]), 2 * before);
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    testing::InitGoogleTest(&argc, argv);
    return runToolkitTests(argv, environment);
}
