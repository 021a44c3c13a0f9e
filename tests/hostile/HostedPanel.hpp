// HostedPanel.hpp - a panel opened by the dialog's own host, for tests.
//
// In a file of its own: panel and dialog each declare the protocol between them.
#pragma once

#include "dialog/job/JobOptions.hpp"
#include "dialog/ppd/PPDFile.hpp"

#import <AppKit/AppKit.h>

#include <string>

class HostedPanel
{
  public:
    HostedPanel(const std::string& bundle, const std::string& printer, const std::string& uri,
                dialog::PPDFile ppd);
    ~HostedPanel();
    HostedPanel(const HostedPanel&) = delete;
    HostedPanel& operator=(const HostedPanel&) = delete;

    const std::string& failure() const { return failure_; } // empty: the panel is there
    id panel() const;
    NSView* view() const;

    // As the dialog shows a panel for the first time.
    void show() const;
    const dialog::JobOptions& job() const;

  private:
    std::string failure_;
    id host_ = nil;
    id loaded_ = nil;
};

// UTF-8; empty for nil.
std::string bytesOf(NSString* text);
