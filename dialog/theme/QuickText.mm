#include "dialog/theme/QuickText.h"

#include "dialog/theme/PlainText.hpp"
#include "dialog/toolkit/ReplaceMethod.h"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSFontInfo.h>
#include <objc/runtime.h>

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace dialog {

namespace {

using SizeWithAttributes = NSSize (*)(id, SEL, NSDictionary*);
using DrawInRect = void (*)(id, SEL, NSRect, NSDictionary*);
using DrawAttributedInRect = void (*)(id, SEL, NSRect);
using DrawAtPoint = void (*)(id, SEL, NSPoint, NSDictionary*);

SizeWithAttributes sizeOfToolkit = nullptr;
DrawInRect drawInRectOfToolkit = nullptr;
DrawAtPoint drawAtPointOfToolkit = nullptr;
DrawAttributedInRect drawAttributedOfToolkit = nullptr;

constexpr std::size_t kMostFonts = 24;
// The toolkit draws so many letters at a time, each time from where the first of them stands.
constexpr std::size_t kAtATime = 16;

struct Letter
{
    NSGlyph glyph;
    CGFloat width; // in points; below 0 where the font has no such letter
};

// A font's letters as they have been asked for.
class Letters
{
  public:
    explicit Letters(NSFont* font) : font_([font retain]) {}
    ~Letters() { [font_ release]; }
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

    NSFont* font() const { return font_; }
    Letter letter(unichar character)
    {
        const auto [found, isNew] = letters_.try_emplace(character);
        if (isNew) {
            const NSGlyph glyph = [[font_ fontInfo] glyphForCharacter:character];
            const bool known = glyph != NSNullGlyph && [font_ glyphIsEncoded:glyph];
            found->second = {glyph, known ? [font_ advancementForGlyph:glyph].width : -1};
        }
        return found->second;
    }
    CGFloat ascender() const { return [font_ ascender]; }
    CGFloat height() const { return [font_ ascender] - [font_ descender]; }

  private:
    NSFont* font_;
    std::unordered_map<unichar, Letter> letters_;
};

Letters& lettersOf(NSFont* font)
{
    // Never destroyed: fonts must not be given back once the toolkit is gone.
    static auto& known = *new std::vector<std::unique_ptr<Letters>>;
    for (const auto& letters : known) {
        if (letters->font() == font) {
            return *letters;
        }
    }
    if (known.size() == kMostFonts) {
        known.clear();
    }
    known.push_back(std::make_unique<Letters>(font));
    return *known.back();
}

// A text set in one line.
struct Line
{
    std::array<NSGlyph, kLongestPlainLine> glyphs;
    std::array<NSSize, kLongestPlainLine> advances;
    std::size_t count = 0;
    NSFont* font = nil;
    NSColor* color = nil;
    Alignment alignment = Alignment::Left;
    CGFloat width = 0;
    CGFloat ascender = 0;
    CGFloat height = 0;
};

Alignment alignmentOf(NSTextAlignment alignment)
{
    switch (alignment) {
    case NSLeftTextAlignment:
    case NSNaturalTextAlignment:
        return Alignment::Left;
    case NSCenterTextAlignment:
        return Alignment::Center;
    case NSRightTextAlignment:
        return Alignment::Right;
    default:
        return Alignment::Other;
    }
}

bool takeStyle(NSParagraphStyle* style, Line& line)
{
    if (style == nil) {
        return true;
    }
    line.alignment = alignmentOf([style alignment]);
    return line.alignment != Alignment::Other && [style firstLineHeadIndent] == 0 &&
           [style tailIndent] == 0 && [style minimumLineHeight] == 0 &&
           [style maximumLineHeight] == 0 && [style lineSpacing] == 0 &&
           [style paragraphSpacing] == 0;
}

// False when this text is the toolkit's.
bool set(NSString* text, NSDictionary* attributes, Line& line)
{
    std::array<unichar, kLongestPlainLine> characters;
    const NSUInteger length = [text length];
    if (length == 0 || length > kLongestPlainLine) {
        return false;
    }
    NSUInteger known = 0;
    line.font = [attributes objectForKey:NSFontAttributeName];
    line.color = [attributes objectForKey:NSForegroundColorAttributeName];
    NSParagraphStyle* const style = [attributes objectForKey:NSParagraphStyleAttributeName];
    known += line.font != nil ? 1 : 0;
    known += line.color != nil ? 1 : 0;
    known += style != nil ? 1 : 0;
    if (line.font == nil || known != [attributes count] || !takeStyle(style, line)) {
        return false;
    }
    [text getCharacters:characters.data() range:NSMakeRange(0, length)];
    if (!isPlainLine({reinterpret_cast<const char16_t*>(characters.data()), length})) {
        return false;
    }
    Letters& letters = lettersOf(line.font);
    for (NSUInteger i = 0; i < length; ++i) {
        const Letter letter = letters.letter(characters[i]);
        if (letter.width < 0) {
            return false;
        }
        line.glyphs[i] = letter.glyph;
        line.advances[i] = NSMakeSize(letter.width, 0);
        line.width += letter.width;
    }
    line.count = length;
    line.ascender = letters.ascender();
    line.height = letters.height();
    return true;
}

void show(const Line& line, NSPoint corner)
{
    NSGraphicsContext* const context = [NSGraphicsContext currentContext];
    [line.color != nil ? line.color : [NSColor blackColor] set];
    [line.font set];
    CGFloat x = corner.x;
    for (std::size_t done = 0; done < line.count; done += kAtATime) {
        const std::size_t part = std::min(kAtATime, line.count - done);
        DPSmoveto(context, x, corner.y + line.ascender);
        GSShowGlyphsWithAdvances(context, line.glyphs.data() + done, line.advances.data() + done,
                                 part);
        for (std::size_t i = done; i < done + part; ++i) {
            x += line.advances[i].width;
        }
    }
}

// False when it does not fit.
bool show(const Line& line, NSRect rect)
{
    if (line.width > NSWidth(rect) || line.height > NSHeight(rect)) {
        return false;
    }
    show(line, NSMakePoint(NSMinX(rect) + lineStart(line.width, NSWidth(rect), line.alignment),
                           NSMinY(rect)));
    return true;
}

NSSize sizeWithAttributes(id self, SEL selector, NSDictionary* attributes)
{
    Line line;
    return set(self, attributes, line) ? NSMakeSize(line.width, line.height)
                                       : sizeOfToolkit(self, selector, attributes);
}

void drawInRect(id self, SEL selector, NSRect rect, NSDictionary* attributes)
{
    Line line;
    if (![[NSView focusView] isFlipped] || !set(self, attributes, line) || !show(line, rect)) {
        drawInRectOfToolkit(self, selector, rect, attributes);
    }
}

void drawAtPoint(id self, SEL selector, NSPoint point, NSDictionary* attributes)
{
    Line line;
    if (![[NSView focusView] isFlipped] || !set(self, attributes, line) ||
        line.alignment != Alignment::Left) {
        drawAtPointOfToolkit(self, selector, point, attributes);
        return;
    }
    show(line, point);
}

// A text field's.
void drawAttributedInRect(id self, SEL selector, NSRect rect)
{
    NSAttributedString* const text = self;
    const NSUInteger length = [text length];
    NSRange range = NSMakeRange(0, 0);
    NSDictionary* const attributes =
        length == 0 ? nil : [text attributesAtIndex:0 effectiveRange:&range];
    Line line;
    if (range.length != length || ![[NSView focusView] isFlipped] ||
        !set([text string], attributes, line) || !show(line, rect)) {
        drawAttributedOfToolkit(self, selector, rect);
    }
}

} // namespace

void setTextQuickly()
{
    if (sizeOfToolkit != nullptr) {
        return;
    }
    const Class string = [NSString class];
    replaceOwnMethod(string, @selector(sizeWithAttributes:), &sizeWithAttributes, sizeOfToolkit);
    replaceOwnMethod(string, @selector(drawInRect:withAttributes:), &drawInRect,
                     drawInRectOfToolkit);
    replaceOwnMethod(string, @selector(drawAtPoint:withAttributes:), &drawAtPoint,
                     drawAtPointOfToolkit);
    replaceOwnMethod([NSAttributedString class], @selector(drawInRect:), &drawAttributedInRect,
                     drawAttributedOfToolkit);
}

} // namespace dialog
