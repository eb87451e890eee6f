#include "shell/core/MenuItem.h"

#include <array>

namespace tessaro {

QString menuItemName(MenuItem item)
{
    static constexpr std::array<const char *, menuItemCount> names = {
#define TESSARO_MENU_ITEM_NAME(name) #name,
        TESSARO_MENU_ITEMS(TESSARO_MENU_ITEM_NAME)
#undef TESSARO_MENU_ITEM_NAME
    };
    return QString::fromLatin1(names.at(static_cast<std::size_t>(item)));
}

} // namespace tessaro
