#include "dialog/memory/PresetSession.hpp"

#include "dialog/memory/MemorySentences.hpp"

#include <algorithm>
#include <filesystem>

namespace dialog {

std::string memoryKey(const PrinterEntry& printer)
{
    if (printer.ppdPath.empty()) {
        return printer.name;
    }
    std::error_code problem;
    const std::filesystem::path path = std::filesystem::absolute(printer.ppdPath, problem);
    return problem ? printer.ppdPath : path.lexically_normal().string();
}

KeptValues valuesOf(const std::string& tape, const JobOptions& options, const PPDFile& ppd)
{
    return {tape, worthKeeping(options.all(), ppd)};
}

PresetSession::PresetSession(const CommandLine& line, Memory memory)
    : memory_(std::move(memory)), preset_(line.preset), firm_(line.wanted),
      remembers_(!line.printAtOnce && !line.noMemory),
      reads_(!line.printAtOnce || !line.preset.empty())
{
}

MemoryText PresetSession::read()
{
    if (!reads_) {
        return {};
    }
    MemoryResult result;
    MemoryText memory = memory_.read(result);
    const std::string sentence = sentenceOf(result);
    if (!sentence.empty() && said_.insert(sentence).second) {
        notice_ = sentence;
    }
    names_.clear();
    for (Preset& preset : memory.presets()) {
        names_.push_back(std::move(preset.name));
    }
    hasLastUsed_ = remembers_ && memory.lastUsed(printer_, {}).has_value();
    return memory;
}

void PresetSession::take(PresetState state, const Fit& fit)
{
    state_ = std::move(state);
    wanted_ = fit.options;
    leftOut_ = fit.leftOut;
}

Start PresetSession::openPrinter(const std::string& key, const std::string& paper,
                                 const PPDFile& ppd)
{
    printer_ = key;
    canSave_ = ppd.record() != nullptr;
    const MemoryText memory = read();
    PresetState state;
    std::optional<KeptValues> values;
    presetMissing_ = false;
    if (!preset_.empty()) {
        for (Preset& other : memory.presets()) {
            if (other.name == preset_) {
                state = {PresetAction::Named, preset_, false};
                values = std::move(other.values);
            }
        }
        presetMissing_ = !values;
    } else if (remembers_) {
        values = memory.lastUsed(key, paper);
        state.base = values ? PresetAction::LastUsed : PresetAction::Defaults;
    }
    Fit found = values && canSave_ ? fit(*values, ppd) : Fit();
    Start start{paper.empty() ? found.tape : paper, overlaid(firm_, found.options, firm_)};
    // What the command line overrules is nobody's misfit.
    std::erase_if(found.options, [&](const auto& option) {
        return std::any_of(firm_.begin(), firm_.end(),
                           [&](const auto& other) { return other.first == option.first; });
    });
    take(std::move(state), found);
    return start;
}

std::optional<Start> PresetSession::chooseTape(const std::string& tape, const JobOptions& now,
                                               const PPDFile& ppd)
{
    const MemoryText memory = read();
    const auto values = remembers_ ? memory.lastUsed(printer_, tape) : std::nullopt;
    if (!values) {
        return std::nullopt;
    }
    Wanted current;
    for (const JobOption& option : now.all()) {
        current.emplace_back(option.keyword, option.choice);
    }
    const Fit found = fit(*values, ppd);
    take({PresetAction::LastUsed, {}, false}, found);
    return Start{tape, overlaid(current, found.options, firm_)};
}

std::optional<Start> PresetSession::choose(const PresetEntry& entry, const std::string& tape,
                                           const PPDFile& ppd)
{
    const MemoryText memory = read();
    std::optional<KeptValues> values;
    switch (entry.action) {
    case PresetAction::Defaults:
        take({PresetAction::Defaults, {}, false}, {});
        return Start{{}, unknownTo(ppd, firm_)};
    case PresetAction::LastUsed:
        values = memory.lastUsed(printer_, tape);
        if (!values) {
            values = memory.lastUsed(printer_, {});
        }
        break;
    case PresetAction::Named:
        for (Preset& preset : memory.presets()) {
            if (preset.name == entry.name) {
                values = std::move(preset.values);
            }
        }
        if (!values) {
            notice_ = noSuchPreset(entry.name);
        }
        break;
    case PresetAction::None:
    case PresetAction::SaveAs:
    case PresetAction::Rename:
    case PresetAction::Delete:
        break;
    }
    if (!values) {
        return std::nullopt;
    }
    const Fit found = fit(*values, ppd);
    take({entry.action, entry.name, false}, found);
    return Start{found.tape.empty() ? tape : found.tape,
                 overlaid(unknownTo(ppd, firm_), found.options, {})};
}

std::string PresetSession::nameOfState() const
{
    const std::vector<PresetEntry> entries = presetMenu(names_, hasLastUsed_, canSave_, {});
    return state_.base == PresetAction::Named ? state_.name
                                              : entries[selectedEntry(entries, state_)].title;
}

std::string PresetSession::openedWith(const KeptValues& now, const JobOptions& options,
                                      const PPDFile& ppd)
{
    start_ = now;
    state_.changed = false;
    std::vector<std::string> misfits = std::exchange(leftOut_, {});
    for (std::string& change : changedLengths(std::exchange(wanted_, {}), options, ppd)) {
        misfits.push_back(std::move(change));
    }
    return fitSentence(nameOfState(), misfits);
}

bool PresetSession::valuesAre(const KeptValues& now)
{
    return std::exchange(state_.changed, now != start_) != (now != start_);
}

std::vector<PresetEntry> PresetSession::menu() const
{
    return presetMenu(names_, hasLastUsed_, canSave_, state_);
}

NameAnswer PresetSession::answer(const MemoryResult& result, const std::string& name)
{
    refresh();
    if (result.problem == MemoryProblem::NameTaken) {
        return {presetNameTaken(name), true};
    }
    if (result.problem == MemoryProblem::NoSuchPreset) {
        return {noSuchPreset(name), false};
    }
    if (result.done()) {
        const std::string aside = sentenceOf(result);
        if (!aside.empty()) {
            notice_ = aside;
        }
        return {};
    }
    return {sentenceOf(result), false};
}

NameAnswer PresetSession::saveAs(const std::string& typed, bool replace, const KeptValues& now)
{
    const std::string name = tidiedName(typed);
    if (const NameFault fault = checkName(name, reservedTitles()); fault != NameFault::None) {
        return {sentenceOf(fault, name), false};
    }
    reads_ = true;
    const NameAnswer said = answer(memory_.savePreset({name, now}, replace), name);
    if (said.sentence.empty()) {
        state_ = {PresetAction::Named, name, false};
        start_ = now;
    }
    return said;
}

NameAnswer PresetSession::rename(const std::string& typed)
{
    const std::string name = tidiedName(typed);
    if (const NameFault fault = checkName(name, reservedTitles()); fault != NameFault::None) {
        return {sentenceOf(fault, name), false};
    }
    const MemoryResult result = memory_.renamePreset(state_.name, name);
    NameAnswer said =
        answer(result, result.problem == MemoryProblem::NoSuchPreset ? state_.name : name);
    said.mayReplace = false;
    if (said.sentence.empty()) {
        state_.name = name;
    }
    return said;
}

NameAnswer PresetSession::remove()
{
    const MemoryResult result = memory_.deletePreset(state_.name);
    // Another dialog may have been quicker.
    const NameAnswer said = answer(result, state_.name);
    if (result.problem != MemoryProblem::NoSuchPreset && !said.sentence.empty()) {
        return said;
    }
    state_ = {PresetAction::Defaults, {}, true};
    start_ = {};
    return {};
}

void PresetSession::jobBegins(const KeptValues& now)
{
    jobPrinter_ = printer_;
    job_ = now;
}

void PresetSession::keepLastUsed()
{
    if (!remembers_ || job_.tape.empty()) {
        return;
    }
    const std::string sentence = sentenceOf(memory_.keepLastUsed(jobPrinter_, job_));
    if (!sentence.empty() && said_.insert(sentence).second) {
        notice_ = sentence;
    }
}

std::string PresetSession::takeNotice()
{
    return std::exchange(notice_, {});
}

} // namespace dialog
