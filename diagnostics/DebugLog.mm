#include "diagnostics/DebugLog.h"

#include "diagnostics/RecordText.hpp"
#include "ppd/PPDText.h"

#include <cstdarg>

namespace {

using diagnostics::boundedText;

NSString* Format(id object, NSString* tag, NSString* format)
{
    if (object != nil)
        return [NSString stringWithFormat:@"%@ self(%@) %@", tag, [object description], format];
    return [NSString stringWithFormat:@"%@ %@", tag, format];
}

// In the system encoding.  nil, which the log shows as "(null)", for bytes that are no text there.
NSString* systemString(std::string_view bytes)
{
    return [[[NSString alloc] initWithBytes:bytes.data() length:bytes.size()
                                   encoding:ppd::systemEncoding()] autorelease];
}

template <std::size_t Size>
NSString* fieldString(const char (&field)[Size])
{
    return systemString(boundedText(field, Size));
}

// A record read as text from its first byte, a flag, onward.
template <class Record>
NSString* recordString(const Record& record)
{
    return systemString(boundedText(&record, sizeof record));
}

} // namespace

// The format comes from the caller and carries the tag and the object's description with it.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wformat-nonliteral"

void _PDEProlog(id object, NSString* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    NSLogv(Format(object, @"BEGIN", format), arguments);
    va_end(arguments);
}

void _PDEEpilog(id object, NSString* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    NSLogv(Format(object, @"END", format), arguments);
    va_end(arguments);
}

void _PDELog(id object, NSString* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    NSLogv(Format(object, @"LOG", format), arguments);
    va_end(arguments);
}

#pragma clang diagnostic pop

void _PDELog_ppd_option_t(ppd_file_t* ppd, const char* optionName)
{
    if (ppd == NULL) {
        NSLog(@"PPD file is not loaded!!");
        return;
    }
    if (optionName == NULL) {
        NSLog(@"ppdOptionName is NULL!!");
        return;
    }
    const ppd_option_t* const option = ppdFindOption(ppd, optionName);
    if (option == NULL)
        return;
    NSString* const keyword = systemString(optionName);

    NSLog(@"+-+-+-+-+-+-+-+-+-+- start is %@", keyword);
    NSLog(@"***** conflicted | %@", recordString(*option));
    NSLog(@"***** keyword | %@", fieldString(option->keyword));
    NSLog(@"***** defchoice | %@", fieldString(option->defchoice));
    NSLog(@"***** text | %@", fieldString(option->text));
    NSLog(@"***** ui == %d", static_cast<int>(option->ui));
    NSLog(@"***** section == %d", static_cast<int>(option->section));
    // "%f" would take the decimal separator of the host's locale.
    NSLog(@"***** order == %s", diagnostics::SixDecimals(option->order).text());
    NSLog(@"***** num_choices == %d", option->num_choices);
    if (option->num_choices > 0 && option->choices != NULL) {
        const ppd_choice_t& first = option->choices[0];
        NSLog(@"***** choices->marked | %@", recordString(first));
        NSLog(@"***** choices->choice | %@", fieldString(first.choice));
        NSLog(@"***** choices->text | %@", fieldString(first.text));
    }
    NSLog(@"+-+-+-+-+-+-+-+-+-+- end is %@", keyword);
}

void _PDELog_PMPrintSettings_WriteToFile(PMPrintSettings settings, NSString* name)
{
    if (settings == NULL || name == nil)
        return;
    CFDataRef data = NULL;
    PMPrintSettingsCreateDataRepresentation(settings, &data, kPMDataFormatXMLDefault);
    if (data == NULL)
        return;
    // The root directory, where nobody overlooks it.
    NSString* const path = [NSString stringWithFormat:@"/VnPDE_%@.plist", name];
    [(NSData*)data writeToFile:path atomically:YES];
    CFRelease(data);
}
