// MemoryText.hpp - what the dialog remembers, as a text that people can read and mend: JSON.
//
//     {
//       "version": 1,
//       "lastUsed": [{"printer": "tape", "tape": "TC24", "options": {"VnMargin": "3.0"}}],
//       "presets": [{"name": "Cables", "tape": "TC12", "options": {"VnMargin": "2.0"}}]
//     }
//
// The last used values stand in order, the youngest first.  Fields and entries that this release
// does not know are kept as they are.  Plain C++.
#pragma once

#include "dialog/memory/KeptValues.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

inline constexpr std::size_t kMostLastUsed = 200;

enum class MemoryFault : std::uint8_t
{
    None,
    Damaged, // no JSON, or JSON of another shape
    Newer,   // of a release that may mean something else by it
};

class MemoryText
{
  public:
    MemoryText(); // nothing remembered
    ~MemoryText();
    MemoryText(MemoryText&&) noexcept;
    MemoryText& operator=(MemoryText&&) noexcept;
    MemoryText(const MemoryText&) = delete;
    MemoryText& operator=(const MemoryText&) = delete;

    // Any bytes.  With a fault the result remembers nothing.
    static MemoryText parse(std::string_view text, MemoryFault& fault);

    // UTF-8, indented, with a line break at the end.  Bytes that are not UTF-8 become U+FFFD.
    std::string text() const;

    // An empty `tape` means the one used last with this printer.
    std::optional<KeptValues> lastUsed(std::string_view printer, std::string_view tape) const;
    // Makes them the youngest, and forgets the oldest beyond kMostLastUsed.
    void keepLastUsed(std::string_view printer, const KeptValues& values);

    // In the order in which they were saved.  Of several with one name the first counts.
    std::vector<Preset> presets() const;
    // A preset of that name takes the values and keeps its place; another is added at the end.
    void savePreset(const Preset& preset);
    // False, and nothing changed, when there is no `from`.
    bool renamePreset(std::string_view from, std::string_view to);
    bool deletePreset(std::string_view name);

  private:
    struct Root;
    std::unique_ptr<Root> root_; // never nullptr, but after a move
};

} // namespace dialog
