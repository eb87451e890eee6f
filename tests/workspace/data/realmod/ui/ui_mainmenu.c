/*
=======================================================================

MAIN MENU

=======================================================================
*/

#include "ui_local.h"

#define ID_SINGLEPLAYER 10
#define ID_MULTIPLAYER 11
#define ID_SETUP 12
#define ID_DEMOS 13
#define ID_CINEMATICS 14
#define ID_MODS 16
#define ID_EXIT 17

#define MAIN_BANNER_MODEL "models/mapobjects/banner/banner5.md3"
#define MAIN_MENU_VERTICAL_SPACING 34

typedef struct {
	menuframework_s menu;

	menutext_s singleplayer;
	menutext_s multiplayer;
	menutext_s setup;
	menutext_s demos;
	menutext_s cinematics;
	menutext_s mods;
	menutext_s exit;

	qhandle_t bannerModel;
} mainmenu_t;

static mainmenu_t s_main;

/*
=================
MainMenu_ExitAction
=================
*/
static void MainMenu_ExitAction(qboolean result)
{
	if (!result) {
		return;
	}
	UI_PopMenu();
}

/*
=================
Main_MenuEvent
=================
*/
void Main_MenuEvent(void *ptr, int event)
{
	if (event != QM_ACTIVATED) {
		return;
	}

	switch (((menucommon_s *)ptr)->id) {
	case ID_SINGLEPLAYER:
		UI_SPLevelMenu();
		break;

	case ID_MULTIPLAYER:
		UI_ArenaServersMenu();
		break;

	case ID_SETUP:
		UI_SetupMenu();
		break;

	case ID_DEMOS:
		UI_DemosMenu();
		break;

	case ID_CINEMATICS:
		UI_CinematicsMenu();
		break;

	case ID_MODS:
		UI_ModsMenu();
		break;

	case ID_EXIT:
		UI_ConfirmMenu("EXIT GAME?", NULL, MainMenu_ExitAction);
		break;
	}
}

/*
===============
UI_MainMenu

The main menu only comes up when not in a game,
so make sure that the attract loop server is down
and that local cinematics are killed
===============
*/
void UI_MainMenu(void)
{
	int y;
	int style = UI_CENTER | UI_DROPSHADOW;

	memset(&s_main, 0, sizeof(mainmenu_t));

	s_main.menu.draw = NULL;
	s_main.menu.fullscreen = qtrue;
	s_main.menu.wrapAround = qtrue;
	s_main.menu.showlogo = qtrue;

	y = 134;
	s_main.singleplayer.generic.type = MTYPE_PTEXT;
	s_main.singleplayer.generic.flags = QMF_CENTER_JUSTIFY | QMF_PULSEIFFOCUS;
	s_main.singleplayer.generic.x = 320;
	s_main.singleplayer.generic.y = y;
	s_main.singleplayer.generic.id = ID_SINGLEPLAYER;
	s_main.singleplayer.generic.callback = Main_MenuEvent;
	s_main.singleplayer.string = "SINGLE PLAYER";
	s_main.singleplayer.color = color_red;
	s_main.singleplayer.style = style;

	y += MAIN_MENU_VERTICAL_SPACING;
	s_main.multiplayer.generic.type = MTYPE_PTEXT;
	s_main.multiplayer.generic.flags = QMF_CENTER_JUSTIFY | QMF_PULSEIFFOCUS;
	s_main.multiplayer.generic.x = 320;
	s_main.multiplayer.generic.y = y;
	s_main.multiplayer.generic.id = ID_MULTIPLAYER;
	s_main.multiplayer.generic.callback = Main_MenuEvent;
	s_main.multiplayer.string = "MULTIPLAYER";
	s_main.multiplayer.color = color_red;
	s_main.multiplayer.style = style;

	Menu_AddItem(&s_main.menu, &s_main.singleplayer);
	Menu_AddItem(&s_main.menu, &s_main.multiplayer);

	trap_Key_SetCatcher(KEYCATCH_UI);
	uis.menusp = 0;
	UI_PushMenu(&s_main.menu);
}
