/*
 * ui_draw.c -- draws the active menu.
 */
#include "ui_local.h"

#define CHAR_WIDTH 16

void UI_DrawString(float x, float y, const char *text)
{
    while (*text) {
        trap_R_DrawChar(x, y, *text++);
        x += CHAR_WIDTH;
    }
}

void UI_DrawMenu(const menu_t *menu)
{
    int i;

    UI_DrawString(320 - strlen(menu->title) * 8, 80, menu->title);
    for (i = 0; i < menu->numItems; i++) {
        const menuitem_t *item = &menu->items[i];
        if (i == menu->cursor)
            UI_DrawString(item->x - 2 * CHAR_WIDTH, item->y, ">");
        UI_DrawString(item->x, item->y, item->text);
    }
}
