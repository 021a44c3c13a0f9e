#include "dialog/twin/PrinterFacts.hpp"

#include "dialog/Messages.hpp"
#include "dialog/Translate.hpp"
#include "dialog/UTF8.hpp"
#include "dialog/job/JobPageSize.hpp"
#include "dialog/job/WantedOptions.hpp"
#include "dialog/twin/PanelSettings.hpp"
#include "ppd/Keywords.hpp"
#include "tape/TapeState.hpp"

#include <nlohmann/json.hpp>

#include <charconv>

namespace dialog {

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72.0;

// The number that was written, not what single precision made of it.
double asWritten(float value) noexcept
{
    char buffer[100];
    const auto written =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    double number = 0;
    std::from_chars(buffer, written.ptr, number);
    return number;
}

double hundredths(double value)
{
    const std::string text = plainNumber(value);
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool isOption(const ppd_option_t& option, std::initializer_list<const char*> keywords) noexcept
{
    for (const char* keyword : keywords) {
        if (std::string_view(option.keyword) == keyword) {
            return true;
        }
    }
    return false;
}

OptionFacts factsOf(const ppd_option_t& option)
{
    OptionFacts facts{option.keyword, option.text, option.defchoice, {}};
    for (int i = 0; i < option.num_choices; ++i) {
        facts.choices.push_back({option.choices[i].choice, option.choices[i].text});
    }
    return facts;
}

void addOptions(const ppd_group_t& group, std::vector<OptionFacts>& options)
{
    for (int i = 0; i < group.num_options; ++i) {
        const ppd_option_t& option = group.options[i];
        if (!isOption(option, {ppd::kPageSizeOption, "PageRegion", ppd::kTapeLengthOption,
                               ppd::kMarginOption})) {
            options.push_back(factsOf(option));
        }
    }
    for (int i = 0; i < group.num_subgroups; ++i) {
        addOptions(group.subgroups[i], options);
    }
}

const char* kindName(PrinterKind kind) noexcept
{
    switch (kind) {
    case PrinterKind::Queue:
        return "queue";
    case PrinterKind::PPDFile:
        return "ppd";
    case PrinterKind::Sample:
        break;
    }
    return "sample";
}

std::string rangeText(const LengthFacts& facts)
{
    return filled("{1} - {2} mm", {plainNumber(facts.minimum), plainNumber(facts.maximum)});
}

std::string marked(const std::string& words, bool isDefault)
{
    return isDefault ? filled(tr("{1} (default)"), {words}) : words;
}

nlohmann::ordered_json asJSON(const LengthFacts& facts)
{
    nlohmann::ordered_json json = {{"option", facts.option},
                                   {"minimum_mm", facts.minimum},
                                   {"maximum_mm", facts.maximum},
                                   {"whole_numbers", facts.wholeNumbers}};
    if (!facts.standard.empty()) {
        json["default"] = facts.standard;
    }
    return json;
}

nlohmann::ordered_json asJSON(const PrinterFacts& facts)
{
    using JSON = nlohmann::ordered_json;
    JSON json = {{"name", facts.printer.name},
                 {"title", facts.printer.title},
                 {"kind", kindName(facts.printer.kind)},
                 {"device", facts.printer.deviceURI},
                 {"default", facts.isFirst}};
    if (!facts.problem.empty()) {
        json["problem"] = facts.problem;
        return json;
    }
    json["model"] = facts.model;
    json["unit"] = facts.inInches ? "in" : "mm";
    json["default_paper"] = facts.paper;
    json["papers"] = JSON::array();
    for (const PaperFacts& paper : facts.papers) {
        json["papers"].push_back({{"name", paper.name},
                                  {"title", paper.title},
                                  {"width_mm", hundredths(paper.widthMillimetres)},
                                  {"length_mm", hundredths(paper.lengthMillimetres)},
                                  {"fixed", paper.isFixed}});
    }
    json["length"] = asJSON(facts.length);
    json["margin"] = facts.margin ? asJSON(*facts.margin) : JSON();
    json["options"] = JSON::array();
    for (const OptionFacts& option : facts.options) {
        JSON choices = JSON::array();
        for (const ChoiceFacts& choice : option.choices) {
            choices.push_back({{"choice", choice.choice}, {"title", choice.title}});
        }
        json["options"].push_back({{"keyword", option.keyword},
                                   {"title", option.title},
                                   {"default", option.standard},
                                   {"choices", choices}});
    }
    return json;
}

} // namespace

PrinterFacts factsOf(const PrinterEntry& printer, const PPDFile& ppd)
{
    PrinterFacts facts;
    facts.printer = printer;
    ppd_file_t* const record = ppd.record();
    if (record == nullptr) {
        return facts;
    }
    const pagesettings::PanelRules rules = panelRules(record);
    facts.model = ppd.modelName();
    facts.paper = startingPaper(ppd, {});
    facts.inInches = rules.unit == pagesettings::Unit::Inches;
    for (const PPDFile::Size& size : ppd.sizes()) {
        PaperFacts paper{size.name, size.title};
        paper.isFixed = tape::tapeStateForPaper(size.name) != tape::kContinuousTape;
        for (int i = record->num_sizes; i-- > 0;) {
            if (record->sizes[i].name == size.name) {
                paper.widthMillimetres = record->sizes[i].width * kMillimetresPerPoint;
                paper.lengthMillimetres = record->sizes[i].length * kMillimetresPerPoint;
            }
        }
        facts.papers.push_back(std::move(paper));
    }
    facts.length = {.option = ppd::kTapeLengthOption,
                    .minimum = asWritten(rules.limits.minLength),
                    .maximum = asWritten(rules.limits.maxLength),
                    .standard = {},
                    .wholeNumbers = rules.wholeLengths};
    if (const ppd_option_t* const margin = ppdFindOption(record, ppd::kMarginOption)) {
        facts.margin = {.option = ppd::kMarginOption,
                        .minimum = asWritten(rules.limits.minMargin),
                        .maximum = asWritten(rules.limits.maxMargin),
                        .standard = margin->defchoice,
                        .wholeNumbers = rules.wholeMargins};
    }
    for (int i = 0; i < record->num_groups; ++i) {
        addOptions(record->groups[i], facts.options);
    }
    return facts;
}

std::string factsAsText(const std::vector<PrinterFacts>& printers)
{
    std::string text;
    const auto line = [&text](std::size_t indent, const std::string& words) {
        text += std::string(indent, ' ') + shown(asUTF8(words)) + "\n";
    };
    for (const PrinterFacts& facts : printers) {
        if (!text.empty()) {
            text += '\n';
        }
        line(0, marked(facts.printer.name, facts.isFirst));
        if (!facts.problem.empty()) {
            line(4, facts.problem);
            continue;
        }
        line(4, facts.model);
        line(4, tr("Tapes:"));
        for (const PaperFacts& paper : facts.papers) {
            const std::string words =
                paper.isFixed
                    ? filled(tr("{1}: {2}, {3} mm long"),
                             {paper.name, paper.title, plainNumber(paper.lengthMillimetres)})
                    : filled("{1}: {2}", {paper.name, paper.title});
            line(8, marked(words, paper.name == facts.paper));
        }
        line(4, filled(tr("Unit: {1}"), {facts.inInches ? "in" : "mm"}));
        line(4, filled(tr("Length: {1}"), {rangeText(facts.length)}));
        if (facts.margin) {
            line(4, filled(tr("Margin: {1}"), {rangeText(*facts.margin)}));
        }
        for (const OptionFacts& option : facts.options) {
            line(4, filled("{1}: {2}", {option.keyword, option.title}));
            for (const ChoiceFacts& choice : option.choices) {
                const std::string words = filled("{1}: {2}", {choice.choice, choice.title});
                line(8, marked(words, choice.choice == option.standard));
            }
        }
    }
    return text;
}

std::string factsAsJSON(const std::vector<PrinterFacts>& printers)
{
    nlohmann::ordered_json json = {{"printers", nlohmann::ordered_json::array()}};
    for (const PrinterFacts& facts : printers) {
        json["printers"].push_back(asJSON(facts));
    }
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace dialog
