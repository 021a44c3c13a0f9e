#include "dialog/memory/Memory.hpp"

#include "dialog/Translate.hpp"
#include "dialog/memory/MemoryFile.hpp"

#include <algorithm>

namespace dialog {

namespace {

std::string fileIn(const std::string& folder)
{
    return linkTarget(folder + "/presets.json");
}

std::string lockIn(const std::string& folder)
{
    return folder + "/presets.lock";
}

bool hasPreset(const MemoryText& memory, const std::string& name)
{
    const std::vector<Preset> presets = memory.presets();
    return std::any_of(presets.begin(), presets.end(),
                       [&](const Preset& preset) { return preset.name == name; });
}

// LeftDamaged when the file wants to be set aside.
MemoryText readOnce(MemoryResult& result)
{
    FileText found = readFile(result.path, kMostMemoryBytes);
    result.problem = MemoryProblem::None;
    result.detail.clear();
    if (!found.text) {
        if (!found.reason.empty()) {
            result.problem = MemoryProblem::NotReadable;
            result.detail = std::move(found.reason);
        }
        return {};
    }
    MemoryFault fault = MemoryFault::None;
    MemoryText memory = MemoryText::parse(*found.text, fault);
    if (fault == MemoryFault::Damaged) {
        result.problem = MemoryProblem::LeftDamaged;
    } else if (fault == MemoryFault::Newer) {
        result.problem = MemoryProblem::Newer;
    }
    return memory;
}

// For whoever holds the lock.
MemoryText readLocked(MemoryResult& result)
{
    MemoryText memory = readOnce(result);
    if (result.problem == MemoryProblem::LeftDamaged) {
        result.setAside = setFileAside(result.path);
        if (!result.setAside.empty()) {
            result.problem = MemoryProblem::None;
        }
    }
    return memory;
}

} // namespace

Memory::Memory(const std::string& configFolder, std::chrono::milliseconds patience)
    : folder_(configFolder.empty() ? configFolder : configFolder + "/page-settings"),
      patience_(patience)
{
}

MemoryText Memory::read(MemoryResult& result) const
{
    result = {};
    if (folder_.empty()) {
        result.problem = MemoryProblem::NoFolder;
        return {};
    }
    result.path = fileIn(folder_);
    MemoryText memory = readOnce(result);
    if (result.problem == MemoryProblem::LeftDamaged) {
        const FileLock lock(lockIn(folder_), patience_);
        if (lock.held()) {
            memory = readLocked(result); // another dialog may have mended it meanwhile
        }
    }
    return memory;
}

MemoryResult Memory::change(const Change& change) const
{
    MemoryResult result;
    if (folder_.empty()) {
        result.problem = MemoryProblem::NoFolder;
        return result;
    }
    result.path = fileIn(folder_);
    result.detail = makeFolder(folder_);
    if (!result.detail.empty()) {
        result.problem = MemoryProblem::NotWritable;
        return result;
    }
    const FileLock lock(lockIn(folder_), patience_);
    if (!lock.held()) {
        result.problem = lock.reason().empty() ? MemoryProblem::Busy : MemoryProblem::NotWritable;
        result.detail = lock.reason();
        return result;
    }
    MemoryText memory = readLocked(result);
    if (result.problem == MemoryProblem::None) {
        result.problem = change(memory);
    }
    if (result.problem == MemoryProblem::None) {
        const std::string text = memory.text();
        // What is too large to be read again is not written.
        result.detail = text.size() > kMostMemoryBytes ? tr("there are too many")
                                                       : replaceFile(result.path, text);
        result.problem = result.detail.empty() ? MemoryProblem::None : MemoryProblem::NotWritable;
    }
    return result;
}

MemoryResult Memory::keepLastUsed(const std::string& printer, const KeptValues& values) const
{
    return change([&](MemoryText& memory) {
        memory.keepLastUsed(printer, values);
        return MemoryProblem::None;
    });
}

MemoryResult Memory::savePreset(const Preset& preset, bool replace) const
{
    return change([&](MemoryText& memory) {
        if (!replace && hasPreset(memory, preset.name)) {
            return MemoryProblem::NameTaken;
        }
        memory.savePreset(preset);
        return MemoryProblem::None;
    });
}

MemoryResult Memory::renamePreset(const std::string& from, const std::string& to) const
{
    return change([&](MemoryText& memory) {
        if (from != to && hasPreset(memory, to)) {
            return MemoryProblem::NameTaken;
        }
        return memory.renamePreset(from, to) ? MemoryProblem::None : MemoryProblem::NoSuchPreset;
    });
}

MemoryResult Memory::deletePreset(const std::string& name) const
{
    return change([&](MemoryText& memory) {
        return memory.deletePreset(name) ? MemoryProblem::None : MemoryProblem::NoSuchPreset;
    });
}

} // namespace dialog
