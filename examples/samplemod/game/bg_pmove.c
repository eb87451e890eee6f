/*
 * bg_pmove.c -- player movement, run the same way on the server and on the
 * client so that the client can predict where the player will be.
 */
#include "q_shared.h"
#include "bg_public.h"

static void PM_Accelerate(pmove_t *pm, const vec3_t wishdir, float wishspeed)
{
    float current = DotProduct(pm->ps->velocity, wishdir);
    float add = wishspeed - current;
    float accel;

    if (add <= 0)
        return;
    accel = 10 * pm->frametime * wishspeed;
    if (accel > add)
        accel = add;
    VectorMA(pm->ps->velocity, accel, wishdir, pm->ps->velocity);
}

static void PM_WishDirection(pmove_t *pm, vec3_t wishdir)
{
    wishdir[0] = pm->cmd.forwardmove;
    wishdir[1] = -pm->cmd.rightmove;
    wishdir[2] = 0;
    VectorNormalize(wishdir);
}

void Pmove(pmove_t *pm)
{
    vec3_t wishdir;

    PM_WishDirection(pm, wishdir);
    PM_Accelerate(pm, wishdir, DEFAULT_SPEED);
    if (pm->ps->onGround && pm->cmd.upmove > 0) {
        pm->ps->velocity[2] = JUMP_VELOCITY;
        pm->ps->onGround = qfalse;
    }
    PM_SlideMove(pm, pm->ps->onGround ? qfalse : qtrue);
    pm->ps->commandTime = pm->cmd.serverTime;
}
