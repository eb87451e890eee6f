/*
 * bg_slidemove.c -- moves the player along its velocity, landing on the
 * floor of the sample world (the plane z = 0).
 */
#include "q_shared.h"
#include "bg_public.h"

qboolean PM_SlideMove(pmove_t *pm, qboolean gravity)
{
    vec3_t step;

    if (gravity)
        pm->ps->velocity[2] -= pm->gravity * pm->frametime;
    VectorScale(pm->ps->velocity, pm->frametime, step);
    VectorAdd(pm->ps->origin, step, pm->ps->origin);

    if (pm->ps->origin[2] + pm->bounds.mins[2] < 0) {
        pm->ps->origin[2] = -pm->bounds.mins[2];
        pm->ps->velocity[2] = 0;
        pm->ps->onGround = qtrue;
        return qtrue;
    }
    return qfalse;
}
