// PresetSession.hpp - remembering, for one print dialog: what a printer starts with, what the
// Presets pop-up shows and does, what is kept on Print.
//
// The dialog opens a panel with a Start, then says openedWith what came of it.  Plain C++.
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/memory/Fit.hpp"
#include "dialog/memory/Memory.hpp"
#include "dialog/memory/PresetMenu.hpp"
#include "dialog/printers/Printers.hpp"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace dialog {

// What a panel starts with.
struct Start
{
    std::string tape; // empty: the printer's default
    Wanted options;
};

// An empty sentence: done.
struct NameAnswer
{
    std::string sentence;
    bool mayReplace = false; // the same name again, as a replacement, would do
};

// What the printer's values are remembered under: its queue, or the absolute path of its PPD.
std::string memoryKey(const PrinterEntry& printer);

// The values on screen.
KeptValues valuesOf(const std::string& tape, const JobOptions& options, const PPDFile& ppd);

class PresetSession
{
  public:
    // With --print-at-once or --no-memory the last used values are neither brought back nor kept.
    PresetSession(const CommandLine& line, Memory memory);

    // What the command line asks for wins over its preset, and that over the last used values.
    // `paper` as on the command line; empty: the remembered tape, else the printer's default.
    Start openPrinter(const std::string& key, const std::string& paper, const PPDFile& ppd);

    // The last used values of that tape, over those of now; none when there are none.
    std::optional<Start> chooseTape(const std::string& tape, const JobOptions& now,
                                    const PPDFile& ppd);

    // An entry of the menu that brings values; none for the others, and when another dialog has
    // deleted it.  `tape` is kept where the entry's does not fit.
    std::optional<Start> choose(const PresetEntry& entry, const std::string& tape,
                                const PPDFile& ppd);

    // What the panel made of the last Start: what did not fit, in words; empty when all did.
    std::string openedWith(const KeptValues& now, const JobOptions& options, const PPDFile& ppd);

    // Whether the menu has to be shown anew.
    bool valuesAre(const KeptValues& now);

    std::vector<PresetEntry> menu() const;
    const PresetState& state() const noexcept { return state_; }

    NameAnswer saveAs(const std::string& typed, bool replace, const KeptValues& now);
    NameAnswer rename(const std::string& typed);
    NameAnswer remove();

    // Whatever is chosen while a job is on its way, what it took along is kept when it was taken.
    void jobBegins(const KeptValues& now);
    void keepLastUsed();

    // What there is to say since the last call, each sentence once in a session; empty: nothing.
    std::string takeNotice();
    // --preset named none.
    bool presetMissing() const noexcept { return presetMissing_; }
    const std::string& presetWanted() const noexcept { return preset_; }
    // The next printer does not start with it.
    void forgetPreset() noexcept { preset_.clear(); }

  private:
    MemoryText read();
    void refresh() { (void)read(); }
    void take(PresetState state, const Fit& fit);
    NameAnswer answer(const MemoryResult& result, const std::string& name);
    std::string nameOfState() const;

    Memory memory_;
    std::string preset_; // of the command line
    Wanted firm_;        // of the command line
    bool remembers_ = true;
    bool reads_ = true; // whether the file is looked at before something is saved

    std::string printer_; // its key
    std::vector<std::string> names_;
    bool hasLastUsed_ = false;
    bool canSave_ = false;
    bool presetMissing_ = false;
    PresetState state_;
    KeptValues start_; // what state_ stands for, as the panel has it
    Wanted wanted_;
    std::vector<std::string> leftOut_;
    std::string jobPrinter_;
    KeptValues job_;
    std::set<std::string> said_;
    std::string notice_;
};

} // namespace dialog
