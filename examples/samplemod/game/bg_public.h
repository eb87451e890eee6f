/*
 * bg_public.h -- what the server game and the client game agree on: player
 * movement, items and the state sent for every player.
 */
#ifndef BG_PUBLIC_H
#define BG_PUBLIC_H

#include "q_shared.h"

#define DEFAULT_GRAVITY 800
#define DEFAULT_SPEED 320
#define JUMP_VELOCITY 270
#define STEP_HEIGHT 18

typedef enum { IT_BAD, IT_WEAPON, IT_AMMO, IT_HEALTH, IT_ARMOR } itemType_t;

/* What a client sees of a player every frame. */
typedef struct playerState_s {
    int clientNum;
    int commandTime;
    vec3_t origin;
    vec3_t velocity;
    vec3_t viewangles;
    int health;
    int armor;
    int weapon;
    qboolean onGround;
} playerState_t;

/* One frame of a player's input. */
typedef struct usercmd_s {
    int serverTime;
    signed char forwardmove;
    signed char rightmove;
    signed char upmove;
    vec3_t angles;
} usercmd_t;

/* Everything the movement code needs for one step. */
typedef struct pmove_s {
    playerState_t *ps;
    usercmd_t cmd;
    float frametime;
    float gravity;
    bounds_t bounds;
} pmove_t;

/* An item that can lie in the world and be picked up. */
typedef struct gitem_s {
    const char *classname;
    const char *pickupName;
    itemType_t type;
    int quantity;
} gitem_t;

extern gitem_t bg_itemlist[];
extern int bg_numItems;

const gitem_t *BG_FindItem(const char *pickupName);
qboolean BG_CanItemBeGrabbed(const gitem_t *item, const playerState_t *ps);
void Pmove(pmove_t *pm);
qboolean PM_SlideMove(pmove_t *pm, qboolean gravity);

#endif
