// The file of presets and last values: read, written, and everything that is done with it.
#include "dialog/memory/MemoryText.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using dialog::MemoryFault;
using dialog::MemoryText;
using dialog::Preset;

void require(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", sentence);
    std::abort();
}

bool has(const MemoryText& memory, const std::string& name)
{
    const std::vector<Preset> presets = memory.presets();
    return std::any_of(presets.begin(), presets.end(),
                       [&](const Preset& preset) { return preset.name == name; });
}

void requireSameAgain(const MemoryText& memory)
{
    MemoryFault fault = MemoryFault::Damaged;
    const std::string text = memory.text();
    const MemoryText again = MemoryText::parse(text, fault);
    require(fault == MemoryFault::None, "what is written can be read");
    require(again.presets() == memory.presets(), "presets outlive writing");
    require(again.text() == text, "what is read is written the same");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryFault fault = MemoryFault::None;
    MemoryText memory =
        MemoryText::parse(std::string_view(reinterpret_cast<const char*>(data), size), fault);
    require(fault == MemoryFault::None || memory.presets().empty(),
            "a damaged file remembers nothing");
    requireSameAgain(memory);
    for (const Preset& preset : memory.presets()) {
        memory.keepLastUsed(preset.name, preset.values);
        require(memory.lastUsed(preset.name, "") == preset.values, "last values are the last");
        memory.savePreset(preset);
        const std::string renamed = preset.name + " renamed";
        require(memory.renamePreset(preset.name, renamed), "a preset can be renamed");
        require(memory.deletePreset(renamed) && !has(memory, renamed), "a preset can be deleted");
        memory.savePreset(preset);
        require(has(memory, preset.name), "a saved preset is there");
    }
    requireSameAgain(memory);
    return 0;
}
