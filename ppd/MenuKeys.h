// MenuKeys.h - menu items' numeric identifiers and the keys of their titles in the strings tables.
#pragma once

#include "plugin/Export.h"

#include <AppKit/AppKit.h>

#include <cstdint>

struct MenuKey
{
    std::int32_t identifier;
    NSString* key;
    std::int32_t flag; // 0, or the entry is not found
};

PDE_EXPORT const MenuKey OP_MENU[3];
PDE_EXPORT const MenuKey QUAL_MENU[3];

// The number of entries in a table of `size` bytes.
PDE_EXPORT std::uint32_t Get_MenuCount(const MenuKey* table, std::size_t size);

// The key of the first entry with that identifier; nil for none, or no table.
PDE_EXPORT NSString* Get_MenuKeyStr(std::int32_t identifier, const MenuKey* table,
                                    std::size_t size);
