/*
 * bg_misc.c -- the item list, shared by both games.
 */
#include "q_shared.h"
#include "bg_public.h"

gitem_t bg_itemlist[] = {
    {"item_health", "Health", IT_HEALTH, 25},
    {"item_armor", "Armor", IT_ARMOR, 50},
    {"weapon_shotgun", "Shotgun", IT_WEAPON, 3},
    {"ammo_shells", "Shells", IT_AMMO, 10},
    {NULL, NULL, IT_BAD, 0},
};

int bg_numItems = sizeof(bg_itemlist) / sizeof(bg_itemlist[0]) - 1;

const gitem_t *BG_FindItem(const char *pickupName)
{
    int i;

    for (i = 0; i < bg_numItems; i++)
        if (!Q_stricmp(bg_itemlist[i].pickupName, pickupName))
            return &bg_itemlist[i];
    return NULL;
}

qboolean BG_CanItemBeGrabbed(const gitem_t *item, const playerState_t *ps)
{
    if (ps->health <= 0)
        return qfalse;
    switch (item->type) {
    case IT_HEALTH:
        return ps->health < 100 ? qtrue : qfalse;
    case IT_ARMOR:
        return ps->armor < 200 ? qtrue : qfalse;
    case IT_BAD:
        return qfalse;
    default:
        return qtrue;
    }
}
