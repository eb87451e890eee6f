/*
 * ui_main.c -- entry point of the sample menu module.
 */
#include "ui_local.h"

uiStatic_t uis;

enum { UI_INIT, UI_SHUTDOWN, UI_KEY_EVENT, UI_REFRESH };

int vmMain(int command, int arg0, int arg1, int arg2)
{
    (void)arg1;
    (void)arg2;
    switch (command) {
    case UI_INIT:
        memset(&uis, 0, sizeof(uis));
        UI_MainMenu();
        return 0;
    case UI_SHUTDOWN:
        uis.active = NULL;
        return 0;
    case UI_KEY_EVENT:
        if (uis.active)
            Menu_KeyEvent(uis.active, arg0);
        return 0;
    case UI_REFRESH:
        uis.realtime = arg0;
        if (uis.active)
            UI_DrawMenu(uis.active);
        return 0;
    }
    return -1;
}
