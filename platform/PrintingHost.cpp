#include "platform/PrintingHost.hpp"

#include "platform/Records.hpp"

#include <cstring>

namespace printing {

struct Printer::Record : PrinterRecord
{
};
struct PageFormat::Record : PageFormatRecord
{
};
struct PrintSettings::Record : PrintSettingsRecord
{
};
struct PrintSession::Record : PrintSessionRecord
{
};

namespace {

// A handle is the record's address under the framework's own type.
template <typename Handle, typename Record>
Handle handleOf(Record* record)
{
    return reinterpret_cast<Handle>(static_cast<Tagged*>(record));
}

void store(Values& values, const std::string& key, CFOwner<CFTypeRef> value)
{
    if (value && newString(key))
        values.insert_or_assign(key, std::move(value));
}

} // namespace

CFOwner<CFStringRef> newString(std::string_view utf8)
{
    return CFOwner<CFStringRef>(CFStringCreateWithBytes(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.empty() ? "" : utf8.data()),
        static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

std::optional<std::string> utf8(CFStringRef string)
{
    const CFOwner<CFDataRef> bytes(CFStringCreateExternalRepresentation(kCFAllocatorDefault, string,
                                                                        kCFStringEncodingUTF8, 0));
    if (!bytes)
        return std::nullopt;
    const auto length = static_cast<std::size_t>(CFDataGetLength(bytes.get()));
    if (length == 0)
        return std::string();
    return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(bytes.get())), length);
}

std::optional<Paper> paperFromPPD(const ppd_file_t& ppd, std::string_view name)
{
    for (int i = 0; ppd.sizes != nullptr && i < ppd.num_sizes; ++i) {
        const ppd_size_t& size = ppd.sizes[i];
        // Most names differ in their first letters, and there may be ten thousand.
        if (std::strncmp(size.name, name.data(), name.size()) == 0 && name == size.name) {
            return Paper{size.name, size.width, size.length};
        }
    }
    return std::nullopt;
}

Printer::Printer(std::string name, std::string deviceURI) : record_(std::make_unique<Record>())
{
    record_->name = std::move(name);
    record_->deviceURI = std::move(deviceURI);
}

Printer::~Printer() = default;

PMPrinter Printer::handle() const
{
    return handleOf<PMPrinter>(record_.get());
}

const std::string& Printer::name() const
{
    return record_->name;
}

const std::string& Printer::deviceURI() const
{
    return record_->deviceURI;
}

PageFormat::PageFormat() : record_(std::make_unique<Record>()) {}

PageFormat::~PageFormat() = default;

PMPageFormat PageFormat::handle() const
{
    return handleOf<PMPageFormat>(record_.get());
}

void PageFormat::setPaper(const Paper& paper)
{
    record_->paper.ppdName =
        paper.ppdName.empty() ? CFOwner<CFStringRef>() : newString(paper.ppdName);
    record_->paper.paper = paper;
}

void PageFormat::clearPaper()
{
    record_->paper.ppdName = CFOwner<CFStringRef>();
    record_->paper.paper.reset();
}

const std::optional<Paper>& PageFormat::paper() const
{
    return record_->paper.paper;
}

PrintSettings::PrintSettings() : record_(std::make_unique<Record>()) {}

PrintSettings::~PrintSettings() = default;

PMPrintSettings PrintSettings::handle() const
{
    return handleOf<PMPrintSettings>(record_.get());
}

void PrintSettings::setData(const std::string& key, std::string_view bytes)
{
    store(record_->values, key,
          CFOwner<CFTypeRef>(
              CFDataCreate(kCFAllocatorDefault,
                           reinterpret_cast<const UInt8*>(bytes.empty() ? "" : bytes.data()),
                           static_cast<CFIndex>(bytes.size()))));
}

void PrintSettings::setString(const std::string& key, const std::string& value)
{
    store(record_->values, key, CFOwner<CFTypeRef>(newString(value).release()));
}

void PrintSettings::remove(const std::string& key)
{
    record_->values.erase(key);
}

std::uint32_t PrintSettings::firstPage() const
{
    return record_->pages.first();
}

std::uint32_t PrintSettings::lastPage() const
{
    return record_->pages.last();
}

PrintSession::PrintSession() : record_(std::make_unique<Record>()) {}

PrintSession::~PrintSession() = default;

PMPrintSession PrintSession::handle() const
{
    return handleOf<PMPrintSession>(record_.get());
}

void PrintSession::setNumber(const std::string& key, std::int32_t value)
{
    store(record_->values, key,
          CFOwner<CFTypeRef>(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &value)));
}

void PrintSession::remove(const std::string& key)
{
    record_->values.erase(key);
}

} // namespace printing
