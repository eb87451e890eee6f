/*
 * g_local.h -- the server game's own declarations.
 */
#ifndef G_LOCAL_H
#define G_LOCAL_H

#include "bg_public.h"

#define MAX_GENTITIES 256
#define FRAMETIME 100

/* One entity of the world: a player, an item or a mover. */
typedef struct gentity_s {
    const char *classname;
    qboolean inuse;
    orientation_t pos;
    bounds_t bounds;
    int health;
    int nextthink;
    void (*think)(struct gentity_s *self);
    const gitem_t *item;
    playerState_t *client;
} gentity_t;

/* The state of the running level. */
typedef struct level_locals_s {
    int time;
    int framenum;
    int numEntities;
    int numConnectedClients;
    char mapname[MAX_NAME_LENGTH];
} level_locals_t;

/* The score of one client. */
typedef struct {
    int clientNum;
    int kills;
    int deaths;
} clientScore_t;

extern level_locals_t level;
extern gentity_t g_entities[MAX_GENTITIES];
extern clientScore_t g_scores[MAX_CLIENTS];

/* g_main.c */
void G_Printf(const char *text);

/* g_combat.c */
void G_Damage(gentity_t *target, gentity_t *attacker, int damage);
void G_AddScore(int clientNum, int kills);

/* g_items.c */
gentity_t *G_SpawnItem(const char *pickupName, const vec3_t origin);
void G_TouchItem(gentity_t *item, gentity_t *other);

/* syscalls provided by the engine */
void trap_Print(const char *text);
int trap_Milliseconds(void);

#endif
