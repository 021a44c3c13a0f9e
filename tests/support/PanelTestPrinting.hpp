// PanelTestPrinting.hpp - the printing framework's calls as a test sees and spoils them.
//
// The test program's own versions stand in front of the library's: they record the call and pass it
// on, unless told to fail or to answer nothing.
//
//     PrintingCalls::fail("PMPaperGetHeight", -30897);
//     ...
//     EXPECT_EQ(PrintingCalls::taken(), (Texts{"PMGetPageFormatPaper", "PMPaperGetHeight"}));
#pragma once

#include "support/PanelTest.hpp"

class PrintingCalls
{
  public:
    // From now on the call answers the status and nothing else.
    static void fail(const std::string& call, OSStatus status);

    // From now on the call answers as ever, but with this status.
    static void failAfterAnswering(const std::string& call, OSStatus status);

    // From now on the call succeeds and answers null.
    static void answerNull(const std::string& call);

    // The calls since the last time, in order; numbers set follow the name: "PMSetFirstPage 3
    // lock=0".
    static Texts taken();

    // From now on `fails` is asked before each call, with the name and the address of the caller;
    // a call that it says fails answers an error.
    static void askFirst(bool (*fails)(const char* call, void* caller));

    // Passes every call on again and forgets the record; done before each test.
    static void reset();
};
