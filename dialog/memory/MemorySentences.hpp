// MemorySentences.hpp - what is said of remembering and of presets.  Plain C++.
#pragma once

#include "dialog/memory/Memory.hpp"
#include "dialog/memory/PresetName.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// Empty when all went well and nothing was set aside.
std::string sentenceOf(const MemoryResult& result);

// What is wrong with the name of a preset; empty for None.
std::string sentenceOf(NameFault fault, std::string_view name);
std::string presetNameTaken(std::string_view name);
std::string noSuchPreset(std::string_view name);

// Of a preset, or of the last used values: what of it could not be had.  Empty without misfits.
std::string fitSentence(std::string_view name, const std::vector<std::string>& misfits);

} // namespace dialog
