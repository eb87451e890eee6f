/*
 * cg_main.c -- entry point of the sample client game module.
 */
#include "cg_local.h"

cg_t cg;
centity_t cg_entities[MAX_CENTITIES];

enum { CG_INIT, CG_SHUTDOWN, CG_DRAW_ACTIVE_FRAME, CG_KEY_EVENT };

static void CG_Init(int serverTime)
{
    memset(&cg, 0, sizeof(cg));
    memset(cg_entities, 0, sizeof(cg_entities));
    cg.time = serverTime;
    cg.fov = 90;
    trap_Print("sample cgame initialised\n");
}

static void CG_DrawActiveFrame(int serverTime)
{
    cg.frametime = serverTime - cg.time;
    cg.time = serverTime;
    CG_InterpolateEntities(0.5f);
    CG_CalcView();
    CG_DrawActive();
}

int vmMain(int command, int arg0, int arg1, int arg2)
{
    (void)arg2;
    switch (command) {
    case CG_INIT:
        CG_Init(arg0);
        return 0;
    case CG_SHUTDOWN:
        return 0;
    case CG_DRAW_ACTIVE_FRAME:
        CG_DrawActiveFrame(arg0);
        return 0;
    case CG_KEY_EVENT:
        cg.showScores = (arg0 == '\t' && arg1) ? qtrue : qfalse;
        return 0;
    }
    return -1;
}
