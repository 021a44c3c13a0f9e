#include "dialog/twin/PanelSettings.hpp"

#include "dialog/job/JobPageSize.hpp"
#include "dialog/job/WantedLength.hpp"
#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/DisplayText.hpp"
#include "pagesettings/PrinterDot.hpp"
#include "pagesettings/Saving.hpp"
#include "pagesettings/Validation.hpp"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "tape/TapeState.hpp"
#include "tape/Units.hpp"

#include <charconv>
#include <cmath>

namespace dialog {

namespace {

using pagesettings::FieldValue;
using pagesettings::PanelRules;
using pagesettings::Unit;

// Differences below this are the arithmetic's, not the user's.
constexpr double kNoiseMillimetres = 0.001;

// A length saved in whole millimetres may be up to this much shorter than the one shown.
constexpr double kWholeMillimetre = 1;

std::string_view attribute(ppd_file_t* record, const char* keyword) noexcept
{
    const ppd_attr_t* const found =
        record == nullptr ? nullptr : ppdFindAttr(record, keyword, nullptr);
    return found == nullptr || found->value == nullptr ? std::string_view() : found->value;
}

// PPD keywords are arrays that libcups may have filled to the last byte.
template <std::size_t size>
std::string_view keywordIn(const char (&array)[size]) noexcept
{
    const std::string_view whole(array, size);
    return whole.substr(0, whole.find('\0'));
}

FieldValue valueOf(std::string_view text) noexcept
{
    return {pagesettings::leadingFloat(text), pagesettings::leadingDouble(text)};
}

std::string withUnit(std::string_view number, Unit unit)
{
    return std::string(number) + " " + std::string(unitName(unit));
}

// One of the panel's groups of choices, and the row that is selected in it.
struct Group
{
    const char* keyword;
    ppd_option_t* option = nullptr;
    std::ptrdiff_t row = 0;

    std::size_t count() const noexcept
    {
        return option == nullptr ? 0 : static_cast<std::size_t>(option->num_choices);
    }
    std::string_view choiceAt(std::size_t index) const noexcept
    {
        return keywordIn(option->choices[index].choice);
    }
    bool isDefault(std::size_t index) const noexcept
    {
        return ppd::isDefaultKeyword(choiceAt(index), keywordIn(option->defchoice));
    }
};

class Panel
{
  public:
    Panel(PPDFile& ppd, const std::string& paper, const WantedOptions& wanted);

    void typeMargin(const std::string& text);
    void typeLength(const std::string& text);
    void check();
    void saveAll();

    const PanelRules& rules() const noexcept { return rules_; }
    bool isLabel() const noexcept { return state_ != tape::kContinuousTape; }
    bool hasMargin() const noexcept { return marginOption_ != nullptr; }
    bool wasMadeLonger() const noexcept { return wasMadeLonger_; }
    const std::string& length() const noexcept { return length_; }
    const std::string& margin() const noexcept { return margin_; }
    JobOptions& options() noexcept { return options_; }

  private:
    void takeTape(const std::string& paper, const WantedOptions& wanted);
    void selectDefaults();
    void selectMarked();
    void tell(const char* keyword, std::string_view choice);
    void save(const Group& group, std::ptrdiff_t row);
    double dot() const noexcept;

    PPDFile& ppd_;
    PanelRules rules_;
    JobOptions options_;
    std::int32_t state_ = tape::kContinuousTape;
    ppd_option_t* marginOption_ = nullptr;
    Group quality_{ppd::kQualityOption};
    Group resolution_{ppd::kResolutionOption};
    Group compress_{ppd::kCompressOption};
    Group printMode_{ppd::kPrintModeOption};
    std::string length_; // the fields' texts
    std::string margin_;
    bool wasMadeLonger_ = false;
};

Panel::Panel(PPDFile& ppd, const std::string& paper, const WantedOptions& wanted)
    : ppd_(ppd), rules_(panelRules(ppd.record()))
{
    ppd_file_t* const record = ppd.record();
    for (Group* group : {&quality_, &resolution_, &compress_, &printMode_}) {
        group->option = record == nullptr ? nullptr : ppdFindOption(record, group->keyword);
    }
    marginOption_ = record == nullptr ? nullptr : ppdFindOption(record, ppd::kMarginOption);
    takeTape(paper, wanted);
    // The panel hands the defaults over before anything is wanted; marks follow, and a coarser
    // resolution's quality is then marked as well.
    selectDefaults();
    saveAll();
    applyWanted(wanted, ppd_, options_);
    selectMarked();
}

void Panel::takeTape(const std::string& paper, const WantedOptions& wanted)
{
    double points = 0;
    const ppd_file_t* const record = ppd_.record();
    for (int i = record == nullptr ? 0 : record->num_sizes; i-- > 0;) {
        if (keywordIn(record->sizes[i].name) == paper) {
            points = record->sizes[i].length;
            state_ = tape::tapeStateForPaper(paper);
        }
    }
    for (const auto& [keyword, choice] : wanted) {
        const std::optional<double> length = parseMillimetres(choice);
        if (keyword == kTapeLengthOption && length && !isLabel()) {
            points = paperPoints(*length);
        } else if (keyword == kMarginOption && parseMargin(choice)) {
            ppd_.setDefault(keyword, choice);
        }
    }
    const double length =
        points == 0 ? tape::kDefaultLengthMillimetres : tape::millimetresFromPoints(points);
    length_ = pagesettings::lengthText(length, rules_.unit, rules_.wholeLengths).view();
    if (marginOption_ != nullptr) {
        const float margin = pagesettings::leadingFloat(keywordIn(marginOption_->defchoice));
        margin_ = pagesettings::marginText(margin, rules_.unit, rules_.wholeMargins).view();
    }
}

void Panel::selectDefaults()
{
    const auto selectDefault = [](Group& group, const Group& tested) {
        const std::size_t count = std::min(group.count(), tested.count());
        const auto found =
            ppd::firstIndex(count, [&](std::size_t i) { return tested.isDefault(i); });
        group.row = static_cast<std::ptrdiff_t>(found.value_or(0));
    };
    selectDefault(quality_, quality_);
    selectDefault(resolution_, resolution_);
    selectDefault(compress_, compress_);
    // The panel looks for the default print mode among the resolutions.
    selectDefault(printMode_, resolution_);
}

void Panel::selectMarked()
{
    for (Group* group : {&quality_, &resolution_, &compress_, &printMode_}) {
        const std::string marked = ppd_.marked(group->keyword);
        if (group->count() > 0 && !marked.empty()) {
            group->row = ppd::indexOfMarked(marked, group->count(),
                                            [&](std::size_t i) { return group->choiceAt(i); });
        }
    }
}

void Panel::typeMargin(const std::string& text)
{
    margin_ = text;
    check();
}

void Panel::typeLength(const std::string& text)
{
    length_ = text;
    check();
}

void Panel::check()
{
    if (isLabel()) {
        return;
    }
    length_ = pagesettings::correctedLength(valueOf(length_), rules_).text.view();
    if (!hasMargin()) {
        return;
    }
    const pagesettings::Correction margin = pagesettings::correctedMargin(valueOf(margin_), rules_);
    margin_ = margin.text.view();
    if (pagesettings::isMarginTooWide(margin.value, pagesettings::leadingFloat(length_))) {
        length_ = pagesettings::lengthForMargin(margin.value, dot(), rules_).text.view();
        wasMadeLonger_ = true;
    }
}

double Panel::dot() const noexcept
{
    return ppd::isInList(resolution_.row, resolution_.count())
               ? pagesettings::dotMillimetres(
                     resolution_.choiceAt(static_cast<std::size_t>(resolution_.row)), rules_)
               : pagesettings::leastStepMillimetres(rules_);
}

void Panel::tell(const char* keyword, std::string_view choice)
{
    if (choice.empty()) {
        return;
    }
    ppd_.mark(keyword, std::string(choice));
    options_.set(keyword, choice);
}

void Panel::save(const Group& group, std::ptrdiff_t row)
{
    if (const auto index = ppd::indexToSave(row, group.count())) {
        tell(group.keyword, group.choiceAt(*index));
    }
}

void Panel::saveAll()
{
    const double length = pagesettings::lengthOfField(valueOf(length_), rules_);
    tell(ppd::kTapeLengthOption, pagesettings::savedLengthText(length, state_, rules_).view());
    if (hasMargin()) {
        const double margin = pagesettings::marginOfField(valueOf(margin_), rules_);
        tell(ppd::kMarginOption, pagesettings::savedMarginText(margin, state_, rules_).view());
    }
    save(quality_, pagesettings::qualityRowToSave(quality_.row, resolution_.row));
    save(resolution_, resolution_.row);
    save(compress_, compress_.row);
    save(printMode_, printMode_.row);
}

// A number in the panel's unit, in millimetres.
double millimetres(std::string_view number, Unit unit) noexcept
{
    return pagesettings::millimetresShown(pagesettings::leadingDouble(number), unit);
}

struct Asked
{
    std::string typed; // in the panel's unit
    std::string shown; // as it was asked for, with its unit
};

// What stands in the field is what was asked for where nothing else was.
Asked asked(const std::optional<LengthWord>& word, const std::string& field, Unit unit)
{
    return word ? Asked{typedText(*word, unit), shownLength(*word, unit)}
                : Asked{field, withUnit(field, unit)};
}

// In the order in which the limits are tried.
Cause causeOf(std::string_view typed, float minimum, float maximum, Unit unit) noexcept
{
    const float value = pagesettings::leadingFloat(typed);
    if (value < pagesettings::limitInUnit(minimum, unit)) {
        return Cause::Minimum;
    }
    return value > pagesettings::limitInUnit(maximum, unit) ? Cause::Maximum : Cause::Rounding;
}

// Shortest, with a dot.
std::string numberText(double value)
{
    char buffer[400];
    const auto written =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return std::string(buffer, written.ptr);
}

} // namespace

PanelRules panelRules(ppd_file_t* record) noexcept
{
    PanelRules rules;
    rules.unit = pagesettings::unitFromAttribute(attribute(record, ppd::kUnitTypeAttribute));
    rules.wholeLengths = pagesettings::isTrue(attribute(record, ppd::kWholeTapeLengthAttribute));
    rules.wholeMargins = pagesettings::isTrue(attribute(record, ppd::kWholeMarginAttribute));
    const auto limit = [record](const char* keyword) {
        return pagesettings::leadingFloat(attribute(record, keyword));
    };
    rules.limits = {.minLength = limit(ppd::kMinTapeLengthAttribute),
                    .maxLength = limit(ppd::kMaxTapeLengthAttribute),
                    .minMargin = limit(ppd::kMinMarginAttribute),
                    .maxMargin = limit(ppd::kMaxMarginAttribute)};
    return rules;
}

PanelSettings panelSettings(PPDFile& ppd, const std::string& paper, const PanelEntries& entries)
{
    Panel panel(ppd, paper, entries.wanted);
    const PanelRules rules = panel.rules();
    const Asked length = asked(entries.length, panel.length(), rules.unit);
    const Asked margin = asked(entries.margin, panel.margin(), rules.unit);

    if (!panel.isLabel()) {
        if (entries.margin && panel.hasMargin()) {
            panel.typeMargin(margin.typed);
        }
        if (entries.length) {
            panel.typeLength(length.typed);
        }
    }
    panel.check();
    panel.saveAll();

    PanelSettings settings;
    settings.length = withUnit(panel.length(), rules.unit);
    settings.margin = panel.hasMargin() ? withUnit(panel.margin(), rules.unit) : std::string();
    settings.options = std::move(panel.options());

    const auto compare = [&](bool isMargin, const Asked& wanted, const std::string& field,
                             float minimum, float maximum) {
        const double change =
            millimetres(wanted.typed, rules.unit) - millimetres(field, rules.unit);
        if (std::abs(change) < kNoiseMillimetres) {
            return;
        }
        Cause cause = causeOf(wanted.typed, minimum, maximum, rules.unit);
        if (panel.isLabel()) {
            cause = Cause::FixedLabel;
        } else if (!isMargin && panel.wasMadeLonger() && change < 0) {
            cause = Cause::TwoMargins;
        }
        settings.adjustments.push_back(
            {isMargin, cause, wanted.shown, withUnit(field, rules.unit)});
    };
    compare(false, length, panel.length(), rules.limits.minLength, rules.limits.maxLength);
    // Two margins can be more than the longest label; the job then gets that.
    const double saved = pagesettings::leadingDouble(*settings.options.find(kTapeLengthOption));
    if (millimetres(panel.length(), rules.unit) - saved >= kWholeMillimetre) {
        settings.length = withUnit(plainNumber(saved), Unit::Millimetres);
        settings.adjustments.push_back(
            {false, Cause::Maximum, withUnit(panel.length(), rules.unit), settings.length});
    }
    if (panel.hasMargin()) {
        compare(true, margin, panel.margin(), rules.limits.minMargin, rules.limits.maxMargin);
    } else if (entries.margin) {
        settings.adjustments.push_back({true, Cause::NoOption, margin.shown, {}});
    }
    return settings;
}

WantedOptions wantedWithEntries(ppd_file_t* record, const PanelEntries& entries)
{
    WantedOptions wanted = entries.wanted;
    const PanelRules rules = panelRules(record);
    const auto add = [&](const char* keyword, const pagesettings::Correction& correction) {
        const double length = millimetres(correction.text.view(), rules.unit);
        wanted.emplace_back(keyword, numberText(length));
    };
    if (entries.length) {
        const std::string typed = typedText(*entries.length, rules.unit);
        add(ppd::kTapeLengthOption, pagesettings::correctedLength(valueOf(typed), rules));
    }
    if (entries.margin && record != nullptr && ppdFindOption(record, ppd::kMarginOption)) {
        const std::string typed = typedText(*entries.margin, rules.unit);
        add(ppd::kMarginOption, pagesettings::correctedMargin(valueOf(typed), rules));
    }
    return wanted;
}

} // namespace dialog
