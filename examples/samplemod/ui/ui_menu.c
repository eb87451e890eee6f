/*
 * ui_menu.c -- the main menu and the cursor that moves through it.
 */
#include "ui_local.h"

#define KEY_UP 128
#define KEY_DOWN 129
#define KEY_ENTER 13
#define LINE_HEIGHT 36

static menu_t s_main;

static void UI_StartGame(menuitem_t *item)
{
    (void)item;
    trap_Cmd_Execute("map sample\n");
}

static void UI_Quit(menuitem_t *item)
{
    (void)item;
    trap_Cmd_Execute("quit\n");
}

void Menu_AddItem(menu_t *menu, menuItemType_t type, const char *text)
{
    menuitem_t *item;

    if (menu->numItems >= MAX_MENU_ITEMS)
        return;
    item = &menu->items[menu->numItems];
    memset(item, 0, sizeof(*item));
    item->type = type;
    item->text = text;
    item->x = 320 - strlen(text) * 8;
    item->y = 160 + menu->numItems * LINE_HEIGHT;
    menu->numItems++;
}

void Menu_KeyEvent(menu_t *menu, int key)
{
    menuitem_t *item;

    if (menu->numItems == 0)
        return;
    if (key == KEY_UP && menu->cursor > 0)
        menu->cursor--;
    else if (key == KEY_DOWN && menu->cursor < menu->numItems - 1)
        menu->cursor++;
    else if (key == KEY_ENTER) {
        item = &menu->items[menu->cursor];
        if (item->activate)
            item->activate(item);
    }
}

void UI_MainMenu(void)
{
    memset(&s_main, 0, sizeof(s_main));
    s_main.title = "SAMPLE MOD";
    Menu_AddItem(&s_main, MIT_BUTTON, "Start");
    s_main.items[0].activate = UI_StartGame;
    Menu_AddItem(&s_main, MIT_BUTTON, "Quit");
    s_main.items[1].activate = UI_Quit;
    uis.active = &s_main;
}
