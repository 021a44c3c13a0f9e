// FormatterTest.hpp - a formatter out of the loaded bundle, and everything it tells anyone.
#pragma once

#include "support/PanelTest.hpp"
#include "textentry/PDEFormatter.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

// Beeps that reached the display server since the last call; from the first call on they make no
// sound.
int takeBeeps();

PDEFormatter* formatterWithStyle(int32_t style); // autoreleased

// An object that lives as long as someone keeps it; a refusal's own is gone when the check returns.
class Kept
{
  public:
    Kept(id object) : object_([object retain]) {}
    Kept(const Kept& other) : object_([other.object_ retain]) {}
    Kept& operator=(Kept other)
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Kept() { [object_ release]; }
    operator id() const { return object_; }

  private:
    id object_;
};

struct Posted
{
    std::string name;
    Kept object;
    bool hasUserInfo = false;
};

// Collects the formatters' notifications while it lives.
class RefusalListener
{
  public:
    RefusalListener();
    ~RefusalListener();
    RefusalListener(const RefusalListener&) = delete;
    RefusalListener& operator=(const RefusalListener&) = delete;

    std::vector<Posted> posted;

  private:
    id observer_;
};

struct KeyAnswer
{
    BOOL accepted = NO;
    int beeps = 0;
    std::vector<Posted> posted;
};

// Puts `typed` in place of the selected part of `original` and asks the formatter.
KeyAnswer typeInto(PDEFormatter* formatter, NSString* original, NSString* typed,
                   std::optional<NSRange> selected = std::nullopt); // none: at the end

// The same with every argument of the check.
KeyAnswer ask(PDEFormatter* formatter, NSString* proposed, NSRange proposedRange,
              NSString* original, NSRange originalRange);

NSString* stringOf(const std::u16string& text);
