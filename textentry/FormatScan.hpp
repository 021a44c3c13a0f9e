// FormatScan.hpp - what a display format asks for, before it is applied to a value.
//
// A field's format is a caller's text and is handed to the toolkit as a format.  One that asks for
// more than the one value given, for a text pointer, or for a place to write to, would read or
// write stray memory; the scan tells such a format from one that may be applied.
//
// Fed with UTF-16 code units, one by one.  Nothing here allocates or throws.
#pragma once

#include <cstdint>

namespace textentry {

enum class FormatValue : std::uint8_t
{
    Object, // an object pointer
    Integer // 32 bits
};

class FormatScan
{
  public:
    void take(char16_t character) noexcept;

    // "%@" occurs anywhere, even behind another percent sign.
    bool holdsObjectPlaceholder() const noexcept { return holdsObjectPlaceholder_; }

    // The format is "%@" and nothing else.
    bool isObjectPlaceholder() const noexcept { return holdsObjectPlaceholder_ && length_ == 2; }

    // The format can be applied to one such value.  An object may also be shown as the number that
    // is its address: of no use, but harmless.
    bool takesOne(FormatValue value) const noexcept;

  private:
    void takeConversion(char16_t character) noexcept;
    void takeArgument() noexcept;

    bool holdsObjectPlaceholder_ = false;
    bool inDirective_ = false;
    bool positional_ = false;    // the directive names its argument: "%1$d"
    bool anyPositional_ = false; // some directive did
    bool wantsObject_ = false;   // some directive is for objects
    bool isHarmful_ = false;
    bool previousIsPercent_ = false;
    std::uint16_t number_ = 0; // the directive's position, width or precision so far
    std::uint8_t inOrder_ = 0; // directives that take the next argument, counted to 2
    std::uint8_t length_ = 0;  // counted to 3
};

} // namespace textentry
