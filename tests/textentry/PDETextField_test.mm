// The notifying field in a real window, alone and with the formatter, by real keys and clicks.

#include "textentry/FormatterTest.hpp"
#include "textentry/KeyboardWindow.hpp"

#include <objc/runtime.h>

namespace {

using Objects = std::vector<id>;

NSNotification* endOfEditing(NSTextField* field)
{
    return [NSNotification notificationWithName:NSTextDidEndEditingNotification object:field];
}

BOOL refuse(id, SEL)
{
    return NO;
}

void raiseOnSend(id, SEL, BOOL)
{
    [NSException raise:@"Unchanged" format:@"from the notification"];
}

} // namespace

TEST(NotifyingField, HasNoInstanceVariablesOfItsOwn)
{
    Class field = classNamed("PDETextField13_v100_");
    EXPECT_EQ(class_getSuperclass(field), [NSTextField class]);
    EXPECT_EQ(class_getInstanceSize(field), class_getInstanceSize([NSTextField class]));
}

TEST(NotifyingField, PostsForTheFlagNoAlone)
{
    KeyboardWindow window;
    PostCounter posts;
    [window.length() sendFirstResponderNotification:YES];
    EXPECT_EQ(posts.taken(), Objects{});
    [window.length() sendFirstResponderNotification:NO];
    EXPECT_EQ(posts.taken(), Objects{window.length()});
}

TEST(NotifyingField, PostsOnceForEachCharacterTyped)
{
    KeyboardWindow window;
    window.focus(window.length());
    PostCounter posts;
    window.press("1");
    EXPECT_EQ(posts.taken(), Objects{window.length()});
    window.press("2 5 BackSpace");
    EXPECT_EQ(posts.taken(), (Objects{window.length(), window.length(), window.length()}));
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12");
}

TEST(NotifyingField, PostsNothingWhenItGainsTheFocus)
{
    KeyboardWindow window;
    PostCounter posts;
    window.focus(window.length());
    EXPECT_EQ(posts.taken(), Objects{});
    window.press("Tab");
    EXPECT_NE([window.margin() currentEditor], nil);
    window.press("Tab"); // to the slider
    EXPECT_EQ([window.margin() currentEditor], nil);
    window.press("Tab"); // from the slider
    EXPECT_NE([window.length() currentEditor], nil);
    EXPECT_EQ(posts.taken(), Objects{});
}

TEST(NotifyingField, PostsNothingWhenTheMouseGivesItTheFocus)
{
    KeyboardWindow window;
    window.focus(window.length());
    PostCounter posts;
    window.click(window.margin());
    EXPECT_NE([window.margin() currentEditor], nil);
    EXPECT_EQ(posts.taken(), Objects{});
    window.press("7");
    EXPECT_EQ(posts.taken(), Objects{window.margin()});
    EXPECT_EQ(KeyboardWindow::shown(window.margin()), "7");
}

TEST(NotifyingField, TakesKeysAfterEveryWayOfGainingTheFocus)
{
    KeyboardWindow window;
    window.focus(window.length());
    window.press("1 Tab 2 Tab Tab");
    window.press("3"); // replaces the text, which Tab has selected
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "3");
    EXPECT_EQ(KeyboardWindow::shown(window.margin()), "2");
    window.press("shift+Tab shift+Tab"); // back over the slider
    window.press("4");
    EXPECT_EQ(KeyboardWindow::shown(window.margin()), "4");
}

TEST(NotifyingField, TakesKeysAfterReturn)
{
    KeyboardWindow window;
    window.focus(window.length());
    PostCounter posts;
    window.press("1 Return");
    EXPECT_EQ(posts.taken(), Objects{window.length()}); // the key 1
    window.press("2");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "2");
}

TEST(NotifyingField, TakesKeysAfterItsTextWasSetWhileItIsEdited)
{
    KeyboardWindow window;
    window.focus(window.length());
    window.press("1");
    PostCounter posts;
    [window.length() setStringValue:@"12.5"];
    handleEvents();
    EXPECT_EQ(posts.taken(), Objects{});
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12.5");
    window.press("End 7");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12.57");
}

TEST(NotifyingField, PostsNothingWhenEditingEnds)
{
    KeyboardWindow window;
    window.focus(window.length());
    window.press("1");
    PostCounter posts;
    window.press("Tab");
    EXPECT_EQ([window.length() currentEditor], nil);
    EXPECT_EQ(posts.taken(), Objects{});
    [window.length() textDidEndEditing:endOfEditing(window.length())];
    EXPECT_EQ(posts.taken(), Objects{});
}

TEST(NotifyingField, PostsNothingWhenEditingEndsAndResigningFails)
{
    KeyboardWindow window;
    PostCounter posts;
    Method resign = class_getInstanceMethod([NSTextField class], @selector(resignFirstResponder));
    IMP before = method_setImplementation(resign, reinterpret_cast<IMP>(refuse));
    [window.length() textDidEndEditing:endOfEditing(window.length())];
    method_setImplementation(resign, before);
    EXPECT_EQ(posts.taken(), Objects{});
}

TEST(NotifyingField, PassesOnAnExceptionFromItsNotificationUnchanged)
{
    Class raising = objc_allocateClassPair(classNamed("PDETextField13_v100_"), "RaisingField", 0);
    class_addMethod(raising, @selector(sendFirstResponderNotification:),
                    reinterpret_cast<IMP>(raiseOnSend), "v@:c");
    objc_registerClassPair(raising);
    PDETextField13_v100_* field = [[raising alloc] initWithFrame:NSMakeRect(0, 0, 80, 24)];
    std::string name;
    std::string reason;
    @try {
        [field textDidEndEditing:endOfEditing(field)];
    } @catch (NSException* exception) {
        name = textOf([exception name]);
        reason = textOf([exception reason]);
    }
    EXPECT_EQ(name, "Unchanged");
    EXPECT_EQ(reason, "from the notification");
    // The field is not taken to be inside the toolkit for ever: its next call posts again.
    name.clear();
    @try {
        [field selectText:field];
    } @catch (NSException* exception) {
        name = textOf([exception name]);
    }
    EXPECT_EQ(name, "Unchanged");
    [field release];
}

Texts sentFlags;

static void noteFlag(id, SEL, BOOL flag)
{
    sentFlags.push_back(flag ? "YES" : "NO");
}

static BOOL takeTheFocus(id, SEL)
{
    return YES;
}

TEST(NotifyingField, TellsItselfOfAFocusThatItHasGainedAndOfNoOther)
{
    Class noting = objc_allocateClassPair(classNamed("PDETextField13_v100_"), "NotingField", 0);
    class_addMethod(noting, @selector(sendFirstResponderNotification:),
                    reinterpret_cast<IMP>(noteFlag), "v@:c");
    objc_registerClassPair(noting);
    PDETextField13_v100_* field = [[noting alloc] initWithFrame:NSMakeRect(0, 0, 80, 24)];
    Method become = class_getInstanceMethod([NSTextField class], @selector(becomeFirstResponder));
    IMP before = method_setImplementation(become, reinterpret_cast<IMP>(takeTheFocus));
    EXPECT_TRUE([field becomeFirstResponder]);
    EXPECT_EQ(sentFlags, Texts{"YES"});
    method_setImplementation(become, reinterpret_cast<IMP>(refuse));
    EXPECT_FALSE([field becomeFirstResponder]);
    method_setImplementation(become, before);
    EXPECT_EQ(sentFlags, Texts{"YES"});
    [field release];
}

TEST(NotifyingField, PostsForSelectTextAndLeavesTheSelection)
{
    KeyboardWindow window;
    window.focus(window.length());
    window.press("1 2 3");
    NSText* editor = [window.length() currentEditor];
    ASSERT_NE(editor, nil);
    [editor setSelectedRange:NSMakeRange(1, 1)];
    PostCounter posts;
    for (id sender in @[ window.length(), window.margin(), @"anyone" ]) {
        [window.length() selectText:sender];
        EXPECT_EQ(posts.taken(), Objects{window.length()});
        EXPECT_TRUE(NSEqualRanges([editor selectedRange], NSMakeRange(1, 1)));
    }
    [window.length() selectText:nil];
    EXPECT_EQ(posts.taken(), Objects{window.length()});
    EXPECT_EQ([window.length() currentEditor], editor);
}

TEST(NotifyingField, DoesNotTakeTheFocusForSelectText)
{
    KeyboardWindow window;
    window.focus(window.slider());
    PostCounter posts;
    [window.length() selectText:nil];
    EXPECT_EQ(posts.taken(), Objects{window.length()});
    EXPECT_EQ([window.length() currentEditor], nil);
    EXPECT_EQ([window.window() firstResponder], window.slider());
}

TEST(NotifyingField, TellsItsDelegateOfTheEndButNotOfChanges)
{
    KeyboardWindow window;
    window.focus(window.length());
    window.press("1 2 Tab");
    EXPECT_EQ(window.heard(), (Texts{"end 10"}));
}

TEST(NotifyingField, PostsOnceForADirectTextDidChange)
{
    KeyboardWindow window;
    PostCounter posts;
    [window.length() textDidChange:[NSNotification notificationWithName:NSTextDidChangeNotification
                                                                 object:window.length()]];
    EXPECT_EQ(posts.taken(), Objects{window.length()});
    EXPECT_EQ(window.heard(), Texts{});
}

// With the formatter that filters the keys.

TEST(FilteredField, TakesDigitsAndOnePointAndBeepsForTheRest)
{
    KeyboardWindow window;
    [window.length() setFormatter:formatterWithStyle(4)];
    window.focus(window.length());
    takeBeeps();
    RefusalListener refusals;
    PostCounter posts;
    window.press("1 2 period 5");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12.5");
    EXPECT_EQ(takeBeeps(), 0);
    EXPECT_EQ(posts.taken().size(), 4u);
    window.press("x period space minus");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12.5");
    EXPECT_EQ(takeBeeps(), 4);
    EXPECT_EQ(refusals.posted.size(), 4u);
    EXPECT_EQ(posts.taken(), Objects{}); // a refused key changes nothing
}

TEST(FilteredField, DeletesWhateverTheLimits)
{
    KeyboardWindow window;
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMinValue:100];
    [window.length() setFormatter:formatter];
    [window.length() setStringValue:@"125"];
    window.focus(window.length());
    takeBeeps();
    window.press("End BackSpace");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "12");
    window.press("Home Delete");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "2");
    EXPECT_EQ(takeBeeps(), 0);
    window.press("3"); // 32 is below 100
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "2");
    EXPECT_EQ(takeBeeps(), 1);
}

TEST(FilteredField, ChecksAPasteAsAWhole)
{
    KeyboardWindow window;
    [window.length() setFormatter:formatterWithStyle(4)];
    window.focus(window.length());
    takeBeeps();
    NSPasteboard* pasteboard = [NSPasteboard generalPasteboard];
    NSText* editor = [window.length() currentEditor];
    const auto paste = [&](NSString* text) {
        [pasteboard declareTypes:@[ NSStringPboardType ] owner:nil];
        ASSERT_TRUE([pasteboard setString:text forType:NSStringPboardType]);
        [editor paste:nil];
        handleEvents();
    };
    paste(@"1..2");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "1..2");
    EXPECT_EQ(takeBeeps(), 0);
    paste(@"3x");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "1..2");
    EXPECT_EQ(takeBeeps(), 1);
    [editor selectAll:nil];
    paste(@"9.5"); // the replaced text has a point
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "1..2");
    EXPECT_EQ(takeBeeps(), 1);
    paste(@"95");
    EXPECT_EQ(KeyboardWindow::shown(window.length()), "95");
}

TEST(FilteredField, KeepsItsTextAtTheEndOfEditing)
{
    KeyboardWindow window;
    [window.length() setFormatter:formatterWithStyle(4)];
    window.focus(window.length());
    window.press("1 2 period 5 Tab");
    EXPECT_EQ(textOf([window.length() stringValue]), "12.5");
    EXPECT_EQ([window.length() floatValue], 12.5f);
    EXPECT_NE([window.margin() currentEditor], nil);
}
