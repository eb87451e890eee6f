/*
 * g_main.c -- entry point of the sample server game module.
 *
 * The engine calls vmMain with a command number; the module answers it and
 * returns. Everything else in the module is reached from here.
 */
#include "g_local.h"

level_locals_t level;
gentity_t g_entities[MAX_GENTITIES];

enum { GAME_INIT, GAME_SHUTDOWN, GAME_RUN_FRAME, GAME_CLIENT_CONNECT };

void G_Printf(const char *text)
{
    trap_Print(text);
}

static void G_InitGame(int levelTime)
{
    vec3_t origin;

    memset(&level, 0, sizeof(level));
    memset(g_entities, 0, sizeof(g_entities));
    level.time = levelTime;
    Q_strncpyz(level.mapname, "sample", sizeof(level.mapname));

    VectorClear(origin);
    origin[2] = 24;
    G_SpawnItem("Health", origin);
    origin[0] = 128;
    G_SpawnItem("Shotgun", origin);

    G_Printf("sample game initialised\n");
}

static void G_RunThinks(void)
{
    int i;

    for (i = 0; i < level.numEntities; i++) {
        gentity_t *ent = &g_entities[i];
        if (!ent->inuse || !ent->think)
            continue;
        if (ent->nextthink > 0 && ent->nextthink <= level.time) {
            ent->nextthink = 0;
            ent->think(ent);
        }
    }
}

static void G_RunFrame(int levelTime)
{
    level.framenum++;
    level.time = levelTime;
    G_RunThinks();
}

static int G_ClientConnect(int clientNum)
{
    if (clientNum < 0 || clientNum >= MAX_CLIENTS)
        return 0;
    level.numConnectedClients++;
    g_scores[clientNum].clientNum = clientNum;
    return 1;
}

int vmMain(int command, int arg0, int arg1, int arg2)
{
    (void)arg1;
    (void)arg2;
    switch (command) {
    case GAME_INIT:
        G_InitGame(arg0);
        return 0;
    case GAME_SHUTDOWN:
        G_Printf("sample game shut down\n");
        return 0;
    case GAME_RUN_FRAME:
        G_RunFrame(arg0);
        return 0;
    case GAME_CLIENT_CONNECT:
        return G_ClientConnect(arg0);
    }
    return -1;
}
