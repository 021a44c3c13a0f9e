#include "dialog/ppd/PPDSizes.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <unordered_set>

namespace dialog {

namespace {

enum class Kind
{
    PageSize,
    PageRegion,
    ImageableArea,
    PaperDimension,
    Other
};

constexpr std::string_view kKeywords[] = {"*PageSize ", "*PageRegion ", "*ImageableArea ",
                                          "*PaperDimension "};

constexpr std::size_t kKinds = std::size(kKeywords);
constexpr std::size_t kLongestKeyword = 16;

Kind kindOf(std::string_view line) noexcept
{
    // All four begin with these two letters; nearly every line is settled here.
    if (line.size() < 2 || line[0] != '*' || (line[1] != 'P' && line[1] != 'I')) {
        return Kind::Other;
    }
    for (std::size_t i = 0; i < std::size(kKeywords); ++i) {
        if (line.starts_with(kKeywords[i])) {
            return static_cast<Kind>(i);
        }
    }
    return Kind::Other;
}

bool isPlain(std::string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != '"'; });
}

bool isPlainName(std::string_view name) noexcept
{
    return !name.empty() && name.size() < PPD_MAX_NAME && isPlain(name) &&
           name.find(' ') == name.npos;
}

std::string lowered(std::string_view text)
{
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return result;
}

// libcups reads keywords in any case, and with any blank behind them.
bool looksLikeASize(std::string_view line)
{
    if (line.size() < 2 || line[0] != '*' || ((line[1] | 0x20) != 'p' && (line[1] | 0x20) != 'i')) {
        return false;
    }
    const std::string begin = lowered(line.substr(0, kLongestKeyword));
    for (const std::string_view keyword : kKeywords) {
        if (begin.starts_with(lowered(keyword.substr(0, keyword.size() - 1)))) {
            return true;
        }
    }
    return false;
}

// Digits with at most one point between them, and the blanks after them.
bool takeNumber(std::string_view& text, float& number) noexcept
{
    double value = 0;
    if (text.empty() || text.front() < '0' || text.front() > '9') {
        return false;
    }
    const auto [end, problem] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (problem != std::errc() || end[-1] == '.' || value > 1e6) {
        return false;
    }
    number = static_cast<float>(value);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    if (!text.empty() && text.front() != ' ') {
        return false;
    }
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    return true;
}

bool takeNumbers(std::string_view text, std::initializer_list<float*> numbers) noexcept
{
    for (float* const number : numbers) {
        if (!takeNumber(text, *number)) {
            return false;
        }
    }
    return text.empty();
}

// What the keyword opens is the block of the option whose choices come next.
bool opens(std::string_view line, std::string_view option) noexcept
{
    constexpr std::string_view kOpen = "*OpenUI *";
    if (!line.starts_with(kOpen)) {
        return false;
    }
    line.remove_prefix(kOpen.size());
    return line.starts_with(option) && line.size() > option.size() &&
           (line[option.size()] == '/' || line[option.size()] == ':');
}

} // namespace

struct PPDSizes::Reader
{
    using Counts = std::array<std::size_t, kKinds>;

    PPDSizes sizes;
    std::vector<std::string_view> areaNames, dimensionNames;
    Kind block = Kind::Other; // the option that is open
    bool inText = false;      // in a text that goes over several lines
    Counts seen{};
    std::vector<Counts> seenAtCustom; // when a line spoke of the custom size

    bool read(std::string_view contents);
    bool readOther(std::string_view line);
    bool readSize(std::string_view line, Kind kind);
    static bool parse(std::string_view line, Kind kind, Line& parts) noexcept;
    bool agree() const;
};

// A line that has nothing to do with a plain size, but may tell what the next ones mean.
bool PPDSizes::Reader::readOther(std::string_view line)
{
    if (looksLikeASize(line)) {
        return false;
    }
    if (line.starts_with("*%")) {
        return true;
    }
    if (std::count(line.begin(), line.end(), '"') % 2 != 0) {
        inText = !inText;
    }
    if (line.starts_with("*Open") || line.starts_with("*Close") || line.starts_with("*JCL")) {
        block = opens(line, "PageSize")     ? Kind::PageSize
                : opens(line, "PageRegion") ? Kind::PageRegion
                                            : Kind::Other;
    }
    if (line.find("CustomPageSize") != line.npos || line.find("VariablePaperSize") != line.npos) {
        seenAtCustom.push_back(seen);
    }
    return true;
}

bool PPDSizes::Reader::parse(std::string_view line, Kind kind, Line& parts) noexcept
{
    line.remove_prefix(kKeywords[static_cast<std::size_t>(kind)].size());
    const std::size_t colon = line.find(':');
    if (colon == line.npos || line.size() < colon + 3 || line.back() != '"') {
        return false;
    }
    const std::string_view head = line.substr(0, colon);
    std::string_view code = line.substr(colon + 1);
    while (!code.empty() && code.front() == ' ') {
        code.remove_prefix(1);
    }
    if (code.size() < 2 || code.front() != '"') {
        return false;
    }
    parts.code = code.substr(1, code.size() - 2);
    const std::size_t slash = head.find('/');
    parts.name = head.substr(0, slash);
    parts.text = slash == head.npos ? std::string_view() : head.substr(slash + 1);
    return isPlainName(parts.name) && !parts.code.empty() && isPlain(parts.code) &&
           isPlain(parts.text) && parts.text.size() < PPD_MAX_TEXT &&
           parts.text.find('<') == parts.text.npos && slash + 1 != head.size() &&
           (parts.text.empty() || (parts.text.front() != ' ' && parts.text.back() != ' '));
}

bool PPDSizes::Reader::readSize(std::string_view line, Kind kind)
{
    Line parts;
    if (inText || !parse(line, kind, parts)) {
        return false;
    }
    switch (kind) {
    case Kind::PageSize:
    case Kind::PageRegion: {
        // A choice outside its own option's block, and one without a title, are left to libcups.
        if (block != kind || parts.text.empty()) {
            return false;
        }
        (kind == Kind::PageSize ? sizes.pageSizes_ : sizes.pageRegions_).push_back(parts);
        return true;
    }
    case Kind::ImageableArea: {
        Area area;
        areaNames.push_back(parts.name);
        const bool read =
            takeNumbers(parts.code, {&area.left, &area.bottom, &area.right, &area.top});
        sizes.areas_.push_back(area);
        return read;
    }
    case Kind::PaperDimension: {
        Dimension dimension;
        dimensionNames.push_back(parts.name);
        const bool read = takeNumbers(parts.code, {&dimension.width, &dimension.length});
        sizes.dimensions_.push_back(dimension);
        return read;
    }
    case Kind::Other:
        break;
    }
    return false;
}

// The same sizes in the same order everywhere, no name twice, and the custom size, which libcups
// adds where a line speaks of it, before or behind all of them.
bool PPDSizes::Reader::agree() const
{
    const std::size_t count = sizes.pageSizes_.size();
    if (count < kManySizes || count > kMaxPlainSizes || sizes.pageRegions_.size() != count ||
        areaNames.size() != count || dimensionNames.size() != count) {
        return false;
    }
    for (const Counts& counts : seenAtCustom) {
        for (const std::size_t before : counts) {
            if (before != 0 && before != count) {
                return false;
            }
        }
    }
    std::unordered_set<std::string> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view name = sizes.pageSizes_[i].name;
        std::string key = lowered(name); // libcups compares without regard to case
        if (sizes.pageRegions_[i].name != name || areaNames[i] != name ||
            dimensionNames[i] != name || key.starts_with("custom") ||
            !names.insert(std::move(key)).second) {
            return false;
        }
    }
    return true;
}

bool PPDSizes::Reader::read(std::string_view contents)
{
    while (!contents.empty()) {
        const std::size_t end = std::min(contents.find('\n'), contents.size());
        std::string_view line = contents.substr(0, end);
        contents.remove_prefix(std::min(end + 1, contents.size()));
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        const Kind kind = kindOf(line);
        if (kind == Kind::Other) {
            if (!readOther(line)) {
                return false;
            }
            sizes.rest_ += line;
        } else {
            if (!readSize(line, kind)) {
                return false;
            }
            if (seen[static_cast<std::size_t>(kind)]++ == 0) {
                sizes.rest_ += line;
            }
        }
        sizes.rest_ += '\n';
    }
    return agree();
}

std::optional<PPDSizes> PPDSizes::take(std::string_view contents)
{
    // A carriage return alone ends a line for libcups, but not here.
    for (std::size_t at = contents.find('\r'); at != contents.npos;
         at = contents.find('\r', at + 1)) {
        if (at + 1 == contents.size() || contents[at + 1] != '\n') {
            return std::nullopt;
        }
    }
    Reader reader;
    if (!reader.read(contents)) {
        return std::nullopt;
    }
    return std::move(reader.sizes);
}

namespace {

struct Free
{
    void operator()(void* memory) const noexcept { std::free(memory); }
};
template <class T>
using Allocated = std::unique_ptr<T[], Free>;

template <class T>
Allocated<T> allocate(std::size_t count) noexcept
{
    return Allocated<T>(static_cast<T*>(std::calloc(count, sizeof(T))));
}

// A text of a record; it is known to fit.
template <std::size_t size>
void copy(char (&to)[size], std::string_view text) noexcept
{
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(to, text.data(), length);
    to[length] = '\0';
}

// `added` new elements behind the one at `place`, which must exist.
template <class T>
Allocated<T> withRoom(const T* old, int count, int place, std::size_t added)
{
    Allocated<T> room = allocate<T>(static_cast<std::size_t>(count) + added);
    if (room != nullptr) {
        const auto head = static_cast<std::size_t>(place) + 1;
        std::memcpy(room.get(), old, head * sizeof(T));
        std::memcpy(room.get() + head + added, old + head,
                    (static_cast<std::size_t>(count) - head) * sizeof(T));
    }
    return room;
}

int placeOf(const ppd_option_t* option, std::string_view name) noexcept
{
    for (int i = 0; option != nullptr && i < option->num_choices; ++i) {
        if (name == option->choices[i].choice) {
            return i;
        }
    }
    return -1;
}

int placeOf(const ppd_file_t& record, std::string_view name) noexcept
{
    for (int i = 0; i < record.num_sizes; ++i) {
        if (name == record.sizes[i].name) {
            return i;
        }
    }
    return -1;
}

} // namespace

// The choices of one option together with those that are to be added.
class PPDSizes::Choices
{
  public:
    Choices(ppd_option_t* option, const std::vector<Line>& lines) noexcept;
    ~Choices();
    Choices(const Choices&) = delete;
    Choices& operator=(const Choices&) = delete;

    bool ready() const noexcept { return ready_; }
    void commit() noexcept;

  private:
    std::span<ppd_choice_t> added() const noexcept
    {
        return choices_ == nullptr ? std::span<ppd_choice_t>()
                                   : std::span<ppd_choice_t>(choices_.get() + place_ + 1, count_);
    }

    ppd_option_t* option_;
    std::size_t count_;
    int place_;
    Allocated<ppd_choice_t> choices_;
    bool ready_ = false;
};

PPDSizes::Choices::Choices(ppd_option_t* option, const std::vector<Line>& lines) noexcept
    : option_(option), count_(lines.size() - 1), place_(placeOf(option, lines.front().name))
{
    if (place_ < 0) {
        return;
    }
    choices_ = withRoom(option->choices, option->num_choices, place_, count_);
    const std::span<ppd_choice_t> room = added();
    ready_ = room.size() == count_;
    for (std::size_t i = 0; ready_ && i < count_; ++i) {
        const Line& line = lines[i + 1];
        copy(room[i].choice, line.name);
        copy(room[i].text, line.text);
        room[i].option = option;
        room[i].code = strndup(line.code.data(), line.code.size());
        ready_ = room[i].code != nullptr;
    }
}

PPDSizes::Choices::~Choices()
{
    for (const ppd_choice_t& choice : added()) {
        std::free(choice.code);
    }
}

void PPDSizes::Choices::commit() noexcept
{
    std::free(option_->choices);
    option_->num_choices += static_cast<int>(count_);
    option_->choices = choices_.release();
}

bool PPDSizes::addTo(ppd_file_t& record) const noexcept
{
    const std::string_view first = pageSizes_.front().name;
    const std::size_t count = pageSizes_.size() - 1;
    const int place = placeOf(record, first);
    Choices sizes(ppdFindOption(&record, "PageSize"), pageSizes_);
    Choices regions(ppdFindOption(&record, "PageRegion"), pageRegions_);
    if (place < 0 || !sizes.ready() || !regions.ready()) {
        return false;
    }
    Allocated<ppd_size_t> all = withRoom(record.sizes, record.num_sizes, place, count);
    if (all == nullptr) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        ppd_size_t& size = all[static_cast<std::size_t>(place) + 1 + i];
        copy(size.name, pageSizes_[i + 1].name);
        size.width = dimensions_[i + 1].width;
        size.length = dimensions_[i + 1].length;
        size.left = areas_[i + 1].left;
        size.bottom = areas_[i + 1].bottom;
        size.right = areas_[i + 1].right;
        size.top = areas_[i + 1].top;
    }
    sizes.commit();
    regions.commit();
    std::free(record.sizes);
    record.sizes = all.release();
    record.num_sizes += static_cast<int>(count);
    return true;
}

} // namespace dialog
