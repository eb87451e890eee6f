/*
 * ui_local.h -- the menu module's own declarations.
 */
#ifndef UI_LOCAL_H
#define UI_LOCAL_H

#include "../game/q_shared.h"

#define MAX_MENU_ITEMS 16

typedef enum { MIT_TEXT, MIT_BUTTON, MIT_SLIDER } menuItemType_t;

/* One line of a menu. */
typedef struct menuitem_s {
    menuItemType_t type;
    const char *text;
    float x, y;
    float value, minValue, maxValue;
    void (*activate)(struct menuitem_s *item);
} menuitem_t;

/* A whole menu page with its cursor. */
typedef struct menu_s {
    const char *title;
    int numItems;
    int cursor;
    menuitem_t items[MAX_MENU_ITEMS];
} menu_t;

/* The module's state. */
typedef struct {
    int realtime;
    int cursorX, cursorY;
    menu_t *active;
} uiStatic_t;

extern uiStatic_t uis;

/* ui_menu.c */
void UI_MainMenu(void);
void Menu_AddItem(menu_t *menu, menuItemType_t type, const char *text);
void Menu_KeyEvent(menu_t *menu, int key);

/* ui_draw.c */
void UI_DrawMenu(const menu_t *menu);
void UI_DrawString(float x, float y, const char *text);

/* syscalls provided by the engine */
void trap_Print(const char *text);
void trap_R_DrawChar(float x, float y, int ch);
void trap_Cmd_Execute(const char *text);

#endif
