// PrintingHost.hpp - the objects behind the printing framework's handles, as their owner sees them.
//
// A print dialog makes a Printer, a PageFormat, PrintSettings and a PrintSession, keeps them alive
// while a panel is open, and gives the panel their handle().  The panel asks through the PM calls
// of <ApplicationServices/ApplicationServices.h>; the dialog sets values here.
//
//     printing::PageFormat format;
//     format.setPaper(printing::Paper{"TC24", 68.0, 283.5});
//     PMPageFormat forThePanel = format.handle();
//
// Lengths are in points (1/72 inch).  Texts are UTF-8.  A handle is borrowed: it is valid as long
// as its owner, and a PM call on a handle that is null or of another kind answers the framework's
// own error number.  One thread at a time.  Nothing here throws but std::bad_alloc.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <cups/ppd.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace printing {

// One paper: a PPD page size.  An empty ppdName is a paper the PPD does not name.
struct Paper
{
    std::string ppdName;
    double widthPoints = 0;
    double heightPoints = 0;
};

// The PPD's paper of that name, compared exactly; no value when it has none.
std::optional<Paper> paperFromPPD(const ppd_file_t& ppd, std::string_view name);

class Printer
{
  public:
    // An empty URI is a printer without one: PMPrinterCopyDeviceURI then answers an error.
    Printer(std::string name, std::string deviceURI);
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    PMPrinter handle() const;
    const std::string& name() const;
    const std::string& deviceURI() const;

  private:
    struct Record;
    std::unique_ptr<Record> record_;
};

class PageFormat
{
  public:
    PageFormat(); // no paper yet
    ~PageFormat();
    PageFormat(const PageFormat&) = delete;
    PageFormat& operator=(const PageFormat&) = delete;

    PMPageFormat handle() const;
    void setPaper(const Paper& paper);
    void clearPaper();
    const std::optional<Paper>& paper() const;

  private:
    struct Record;
    std::unique_ptr<Record> record_;
};

// A key-value store with the job's page range.  Values are data and texts; a panel may set others
// that a property list can hold.  A key or text that is not UTF-8 is left out.
class PrintSettings
{
  public:
    PrintSettings(); // empty; pages 1 to all
    ~PrintSettings();
    PrintSettings(const PrintSettings&) = delete;
    PrintSettings& operator=(const PrintSettings&) = delete;

    PMPrintSettings handle() const;
    void setData(const std::string& key, std::string_view bytes);
    void setString(const std::string& key, const std::string& value);
    void remove(const std::string& key);
    std::uint32_t firstPage() const;
    std::uint32_t lastPage() const;

  private:
    struct Record;
    std::unique_ptr<Record> record_;
};

class PrintSession
{
  public:
    PrintSession(); // empty; keys as above
    ~PrintSession();
    PrintSession(const PrintSession&) = delete;
    PrintSession& operator=(const PrintSession&) = delete;

    PMPrintSession handle() const;
    void setNumber(const std::string& key, std::int32_t value);
    void remove(const std::string& key);

  private:
    struct Record;
    std::unique_ptr<Record> record_;
};

} // namespace printing
