/*
 * g_items.c -- items lying in the world, their pick-up and respawn.
 */
#include "g_local.h"

#define RESPAWN_TIME 20000

static void G_RespawnItem(gentity_t *ent)
{
    ent->inuse = qtrue;
}

gentity_t *G_SpawnItem(const char *pickupName, const vec3_t origin)
{
    gentity_t *ent;
    const gitem_t *item = BG_FindItem(pickupName);

    if (!item || level.numEntities >= MAX_GENTITIES)
        return NULL;
    ent = &g_entities[level.numEntities++];
    memset(ent, 0, sizeof(*ent));
    ent->classname = item->classname;
    ent->item = item;
    ent->inuse = qtrue;
    VectorCopy(origin, ent->pos.origin);
    ent->bounds.mins[0] = ent->bounds.mins[1] = ent->bounds.mins[2] = -15;
    ent->bounds.maxs[0] = ent->bounds.maxs[1] = ent->bounds.maxs[2] = 15;
    return ent;
}

void G_TouchItem(gentity_t *item, gentity_t *other)
{
    playerState_t *ps = other->client;

    if (!ps || !BG_CanItemBeGrabbed(item->item, ps))
        return;
    switch (item->item->type) {
    case IT_HEALTH:
        ps->health += item->item->quantity;
        break;
    case IT_ARMOR:
        ps->armor += item->item->quantity;
        break;
    case IT_WEAPON:
        ps->weapon = item->item->quantity;
        break;
    default:
        break;
    }
    item->inuse = qfalse;
    item->think = G_RespawnItem;
    item->nextthink = level.time + RESPAWN_TIME;
}
