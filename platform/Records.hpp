// Records.hpp - what the printing framework's handles point at.
//
// Every record begins with its kind, so that a handle of another kind is known for what it is.
// Shared by PrintingHost.cpp, which owns the records, and PrintingFramework.cpp, which answers from
// them; no part of the interface.
#pragma once

#include "platform/CFOwner.hpp"
#include "platform/PageRange.hpp"
#include "platform/PrintingHost.hpp"

#include <map>

namespace printing {

enum class Kind : std::uint32_t
{
    // Not small numbers, which any record might begin with.
    Printer = 0x504d5072,
    Paper = 0x504d5061,
    PageFormat = 0x504d5066,
    PrintSettings = 0x504d5073,
    PrintSession = 0x504d5365
};

struct Tagged
{
    explicit Tagged(Kind itsKind) : kind(itsKind) {}
    Kind kind;
};

// Values under UTF-8 keys.
using Values = std::map<std::string, CFOwner<CFTypeRef>, std::less<>>;

struct PaperRecord : Tagged
{
    PaperRecord() : Tagged(Kind::Paper) {}
    std::optional<Paper> paper;
    CFOwner<CFStringRef> ppdName; // NULL when the PPD does not name the paper
};

struct PrinterRecord : Tagged
{
    PrinterRecord() : Tagged(Kind::Printer) {}
    std::string name;
    std::string deviceURI;
};

struct PageFormatRecord : Tagged
{
    PageFormatRecord() : Tagged(Kind::PageFormat) {}
    PaperRecord paper;
};

struct PrintSettingsRecord : Tagged
{
    PrintSettingsRecord() : Tagged(Kind::PrintSettings) {}
    Values values;
    PageRange pages;
};

struct PrintSessionRecord : Tagged
{
    PrintSessionRecord() : Tagged(Kind::PrintSession) {}
    Values values;
};

// NULL for a text that is not UTF-8.
CFOwner<CFStringRef> newString(std::string_view utf8);

// Nothing for null and for a text that UTF-8 cannot hold.
std::optional<std::string> utf8(CFStringRef string);

} // namespace printing
