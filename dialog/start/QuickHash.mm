#include "dialog/start/QuickHash.h"

#include <Foundation/Foundation.h>

#include <objc/runtime.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace dialog {

namespace {

using Hash = NSUInteger (*)(id, SEL);
Hash hashOfToolkit = nullptr;

// Such a text stays where it is and as it is for as long as the process lives.
struct Kept
{
    const void* text = nullptr;
    NSUInteger hash = 0;
};

constexpr unsigned kRoomBits = 11;

// Texts lie side by side, in groups far from each other.
std::size_t placeOf(const void* text)
{
    const auto address = reinterpret_cast<std::uintptr_t>(text);
    return static_cast<std::size_t>((std::uint64_t{address} * 0x9E3779B97F4A7C15U) >>
                                    (64 - kRoomBits));
}

NSUInteger keptHash(id text, SEL selector)
{
    static thread_local std::array<Kept, std::size_t{1} << kRoomBits> known;
    Kept& kept = known[placeOf(text)];
    if (kept.text != text) {
        kept = {text, hashOfToolkit(text, selector)};
    }
    return kept.hash;
}

} // namespace

void keepHashesOfConstantTexts()
{
    const Class constant = [@"" class];
    const SEL hash = @selector(hash);
    const Method method = class_getInstanceMethod(constant, hash);
    // Inherited, it would be that of texts that come and go, too.
    if (hashOfToolkit != nullptr || method == nullptr ||
        method == class_getInstanceMethod(class_getSuperclass(constant), hash)) {
        return;
    }
    hashOfToolkit = reinterpret_cast<Hash>(method_getImplementation(method));
    method_setImplementation(method, reinterpret_cast<IMP>(&keptHash));
}

} // namespace dialog
