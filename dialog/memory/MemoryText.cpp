#include "dialog/memory/MemoryText.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace dialog {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::uint64_t kVersion = 1;
// Writing goes down into nested values by recursion.
constexpr std::size_t kMostNested = 64;

bool nestedTooDeep(std::string_view text) noexcept
{
    std::size_t depth = 0;
    bool inText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char byte = text[i];
        if (inText) {
            if (byte == '\\') {
                ++i;
            } else if (byte == '"') {
                inText = false;
            }
        } else if (byte == '"') {
            inText = true;
        } else if (byte == '[' || byte == '{') {
            if (++depth > kMostNested) {
                return true;
            }
        } else if ((byte == ']' || byte == '}') && depth > 0) {
            --depth;
        }
    }
    return false;
}

// Empty when the entry has no such text.
std::string_view textOf(const Json& entry, const char* key)
{
    if (!entry.is_object()) {
        return {};
    }
    const auto found = entry.find(key);
    return found != entry.end() && found->is_string()
               ? std::string_view(found->get_ref<const std::string&>())
               : std::string_view{};
}

KeptValues valuesOf(const Json& entry)
{
    KeptValues values{std::string(textOf(entry, "tape")), {}};
    const auto options = entry.find("options");
    if (options == entry.end() || !options->is_object()) {
        return values;
    }
    for (const auto& [keyword, choice] : options->items()) {
        if (choice.is_string()) {
            values.options.push_back({keyword, choice.get<std::string>()});
        } else if (choice.is_number()) { // as a person would write a length
            values.options.push_back({keyword, choice.dump()});
        }
    }
    return values;
}

void setValues(Json& entry, const KeptValues& values)
{
    entry["tape"] = values.tape;
    Json options = Json::object();
    for (const JobOption& option : values.options) {
        options[option.keyword] = option.choice;
    }
    entry["options"] = std::move(options);
}

bool isListOrMissing(const Json& root, const char* key)
{
    const auto found = root.find(key);
    return found == root.end() || found->is_array();
}

MemoryFault faultOf(const Json& root)
{
    if (!root.is_object()) {
        return MemoryFault::Damaged;
    }
    const auto version = root.find("version");
    if (version == root.end() || !version->is_number_unsigned()) {
        return MemoryFault::Damaged;
    }
    if (version->get<std::uint64_t>() > kVersion) {
        return MemoryFault::Newer;
    }
    return *version == kVersion && isListOrMissing(root, "lastUsed") &&
                   isListOrMissing(root, "presets")
               ? MemoryFault::None
               : MemoryFault::Damaged;
}

} // namespace

struct MemoryText::Root
{
    Json json = {{"version", kVersion}, {"lastUsed", Json::array()}, {"presets", Json::array()}};

    Json& list(const char* key)
    {
        Json& found = json[key];
        if (!found.is_array()) {
            found = Json::array();
        }
        return found;
    }
    const Json& list(const char* key) const
    {
        static const Json kNone = Json::array();
        const auto found = json.find(key);
        return found == json.end() ? kNone : *found;
    }
    Json::iterator preset(std::string_view name)
    {
        Json& presets = list("presets");
        return std::find_if(presets.begin(), presets.end(), [&](const Json& entry) {
            return !name.empty() && textOf(entry, "name") == name;
        });
    }
};

MemoryText::MemoryText() : root_(std::make_unique<Root>()) {}
MemoryText::~MemoryText() = default;
MemoryText::MemoryText(MemoryText&&) noexcept = default;
MemoryText& MemoryText::operator=(MemoryText&&) noexcept = default;

MemoryText MemoryText::parse(std::string_view text, MemoryFault& fault)
{
    MemoryText result;
    if (nestedTooDeep(text)) {
        fault = MemoryFault::Damaged;
        return result;
    }
    Json json = Json::parse(text, nullptr, false);
    fault = json.is_discarded() ? MemoryFault::Damaged : faultOf(json);
    if (fault == MemoryFault::None) {
        result.root_->json = std::move(json);
    }
    return result;
}

std::string MemoryText::text() const
{
    return root_->json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<KeptValues> MemoryText::lastUsed(std::string_view printer,
                                               std::string_view tape) const
{
    for (const Json& entry : std::as_const(*root_).list("lastUsed")) {
        if (!printer.empty() && textOf(entry, "printer") == printer &&
            (tape.empty() || textOf(entry, "tape") == tape)) {
            return valuesOf(entry);
        }
    }
    return std::nullopt;
}

void MemoryText::keepLastUsed(std::string_view printer, const KeptValues& values)
{
    Json& list = root_->list("lastUsed");
    Json entry = {{"printer", printer}};
    const auto found = std::find_if(list.begin(), list.end(), [&](const Json& other) {
        return textOf(other, "printer") == printer && textOf(other, "tape") == values.tape;
    });
    if (found != list.end()) {
        entry = std::move(*found);
        list.erase(found);
    }
    setValues(entry, values);
    list.insert(list.begin(), std::move(entry));
    while (list.size() > kMostLastUsed) {
        list.erase(list.size() - 1);
    }
}

std::vector<Preset> MemoryText::presets() const
{
    std::vector<Preset> result;
    for (const Json& entry : std::as_const(*root_).list("presets")) {
        const std::string name(textOf(entry, "name"));
        const bool known = std::any_of(result.begin(), result.end(),
                                       [&](const Preset& other) { return other.name == name; });
        if (!name.empty() && !known) {
            result.push_back({name, valuesOf(entry)});
        }
    }
    return result;
}

void MemoryText::savePreset(const Preset& preset)
{
    const auto found = root_->preset(preset.name);
    if (found != root_->list("presets").end()) {
        setValues(*found, preset.values);
        return;
    }
    Json entry = {{"name", preset.name}};
    setValues(entry, preset.values);
    root_->list("presets").push_back(std::move(entry));
}

bool MemoryText::renamePreset(std::string_view from, std::string_view to)
{
    const auto found = root_->preset(from);
    if (found == root_->list("presets").end()) {
        return false;
    }
    (*found)["name"] = to;
    return true;
}

bool MemoryText::deletePreset(std::string_view name)
{
    bool deleted = false;
    // Any of the same name would come to light behind the first.
    for (auto found = root_->preset(name); found != root_->list("presets").end();
         found = root_->preset(name)) {
        root_->list("presets").erase(found);
        deleted = true;
    }
    return deleted;
}

} // namespace dialog
