#include "ppd/MenuKeys.h"

#include "ppd/ChoiceLookup.hpp"

const MenuKey OP_MENU[3] = {{1, @"OPT1_KEY", 0}, {2, @"OPT2_KEY", 0}, {3, @"OPT3_KEY", 0}};
const MenuKey QUAL_MENU[3] = {
    {101, @"QUAL1_KEY", 0}, {102, @"QUAL2_KEY", 0}, {103, @"QUAL3_KEY", 0}};

std::uint32_t Get_MenuCount(const MenuKey*, std::size_t size)
{
    return static_cast<std::uint32_t>(size / sizeof(MenuKey));
}

NSString* Get_MenuKeyStr(std::int32_t identifier, const MenuKey* table, std::size_t size)
{
    if (!table)
        return nil;
    const auto found = ppd::firstIndex(Get_MenuCount(table, size), [&](std::size_t i) {
        return table[i].identifier == identifier && table[i].flag == 0;
    });
    return found ? table[*found].key : nil;
}
