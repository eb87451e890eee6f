/*
 * g_combat.c -- damage and scores.
 */
#include "g_local.h"

clientScore_t g_scores[MAX_CLIENTS];

void G_AddScore(int clientNum, int kills)
{
    if (clientNum < 0 || clientNum >= MAX_CLIENTS)
        return;
    g_scores[clientNum].kills += kills;
}

static void G_Die(gentity_t *self, gentity_t *attacker)
{
    if (self->client) {
        g_scores[self->client->clientNum].deaths++;
        if (attacker && attacker->client && attacker != self)
            G_AddScore(attacker->client->clientNum, 1);
    }
    self->health = 0;
    self->think = NULL;
}

void G_Damage(gentity_t *target, gentity_t *attacker, int damage)
{
    int absorbed;

    if (!target->inuse || target->health <= 0 || damage <= 0)
        return;
    if (target->client && target->client->armor > 0) {
        absorbed = damage / 3;
        if (absorbed > target->client->armor)
            absorbed = target->client->armor;
        target->client->armor -= absorbed;
        damage -= absorbed;
    }
    target->health -= damage;
    if (target->client)
        target->client->health = target->health;
    if (target->health <= 0)
        G_Die(target, attacker);
}
