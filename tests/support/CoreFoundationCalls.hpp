// CoreFoundationCalls.hpp - the panel's Core Foundation calls as a stricter library would see them.
//
// The test program's own versions stand in front of the library's.  They pass every call on, and
// count what the bundle owns and where it hands over a null object, which ends the program
// elsewhere.
//
//     CoreFoundationCalls::reset();
//     ...
//     EXPECT_EQ(CoreFoundationCalls::owned(), 0);
//     EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
//
// A test that uses it names CoreFoundationCalls.mm among its sources.
#pragma once

#include "support/PanelTest.hpp"

class CoreFoundationCalls
{
  public:
    // Forgets what was counted and passes every call on again.
    static void reset();

    // Objects created, copied or retained by the bundle that it has not released.
    static int owned();

    // How many of them it released.
    static int released();

    // The names of the calls without an object.
    static Texts withNull();

    // From now on no text fits its buffer: the call answers false and leaves "usb" there.
    static void cutTexts();
};
