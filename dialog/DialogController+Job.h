// DialogController+Job.h - the job on its way: what the window shows of it and lets the user do.
#pragma once

#include "dialog/DialogController.h"

@interface DialogController (Job)

// Sends on another thread; jobDidEnd follows when the server, or the folder, has taken the job or
// not.
- (void)beginJob:(dialog::JobTicket)ticket;

// Shows how far the job is, and its end.
- (void)lookAtJob;

// Cancel: NO when there is no job to be cancelled and the window may close.
- (BOOL)cancelJob;

// Print, while the job waits for something: the window closes and the job stays.  NO when none
// waits.
- (BOOL)leaveWaitingJob;

// The window is gone.  Answers how long it is worth waiting for the job to be gone as well.
- (std::chrono::milliseconds)endJob;

@end

// What it asks of the rest of the controller.
@interface DialogController (ForJob)
- (void)report:(const dialog::Failure&)failure;
- (void)stopWithStatus:(dialog::ExitStatus)status;
- (void)lookAround;
@end
