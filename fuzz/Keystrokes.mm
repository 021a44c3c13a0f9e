// Keys and pastes to the formatter, in every style and with any limits.
#include "fuzz/Process.h"

@protocol FuzzedFormatter
- (id)initWithStyle:(int32_t)style;
- (void)setFormatString:(NSString*)format;
- (void)setMaxLength:(int32_t)bytes;
- (void)setMaxValue:(int32_t)value;
- (void)setMinValue:(int32_t)value;
- (void)addInvalidCharacter:(NSString*)string;
- (void)removeInvalidCharacter:(NSString*)string;
@end

static Class formatterClass = Nil;

// By hand: the toolkit's own calls take some code units for marks of the byte order.
static std::u16string unitsOf(NSString* text)
{
    std::u16string units([text length], u'\0');
    [text getCharacters:reinterpret_cast<unichar*>(units.data())
                  range:NSMakeRange(0, units.size())];
    return units;
}

static NSString* stringOfUnits(const std::u16string& units)
{
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(units.data())
                                   length:units.size()];
}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::start(fuzz::Windows::No);
    formatterClass = fuzz::classNamed("PDEFormatter");
    return 0;
}

// Style, limits, a format, then keystrokes: each a text to type and where.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::Pool pool;
    fuzz::Food food(data, size);
    const int32_t style = static_cast<int8_t>(food.byte());
    NSFormatter<FuzzedFormatter>* const formatter =
        [(NSFormatter<FuzzedFormatter>*)[formatterClass alloc] initWithStyle:style];
    const std::uint8_t limits = food.byte();
    if (limits & 1)
        [formatter setMaxLength:static_cast<int8_t>(food.byte())];
    if (limits & 2)
        [formatter setMaxValue:static_cast<int8_t>(food.byte()) * 31];
    if (limits & 4)
        [formatter setMinValue:static_cast<int8_t>(food.byte()) * 31];
    if (limits & 8)
        [formatter setFormatString:fuzz::stringOf(food.text())];
    if (limits & 16)
        [formatter addInvalidCharacter:fuzz::stringOf(food.text())];

    NSString* shown = @"";
    for (int key = 0; key < 40 && !food.isEmpty(); ++key) {
        const std::uint8_t where = food.byte();
        const std::string_view bytes = food.text();
        NSString* typed = fuzz::stringOf(bytes);
        if (typed == nil) // any code units, halves of pairs too
            typed = stringOfUnits(std::u16string(bytes.begin(), bytes.end()));
        const NSUInteger caret = where % ([shown length] + 1);
        const NSUInteger replaced = (where >> 4) % ([shown length] - caret + 1);
        const NSRange range = NSMakeRange(caret, replaced);
        std::u16string units = unitsOf(shown);
        units.replace(caret, replaced, unitsOf(typed));
        NSString* proposed = stringOfUnits(units);
        if (proposed == nil) // of a half pair alone the toolkit makes no text
            continue;
        NSString* const before = [[proposed copy] autorelease];
        NSString* untouched = proposed;
        NSRange selection = NSMakeRange(caret + [typed length] + ((where & 0x80) ? 3 : 0), 0);
        NSString* error = nil;
        const BOOL stands = [formatter isPartialStringValid:&proposed
                                      proposedSelectedRange:&selection
                                             originalString:(where & 0x40) ? nil : shown
                                      originalSelectedRange:range
                                           errorDescription:&error];
        fuzz::require(proposed == untouched && [proposed isEqualToString:before],
                      "a check leaves the text alone");
        fuzz::require(error == nil, "a check writes no error");
        if (stands)
            shown = proposed;
        id value = nil;
        fuzz::require([formatter getObjectValue:&value forString:shown errorDescription:&error],
                      "every text has a value");
        fuzz::require(value == nil || [value isKindOfClass:[NSString class]], "a value is a text");
        [formatter stringForObjectValue:value];
        [formatter stringForObjectValue:[NSNumber numberWithInt:where]];
    }
    [formatter removeInvalidCharacter:shown];
    [formatter release];
    return 0;
}
