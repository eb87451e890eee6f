/*
 * cg_view.c -- where the camera is and where the entities are drawn.
 */
#include "cg_local.h"

#define VIEW_HEIGHT 26

void CG_CalcView(void)
{
    VectorCopy(cg.predictedPlayerState.origin, cg.view.origin);
    cg.view.origin[2] += VIEW_HEIGHT;
    VectorCopy(cg.predictedPlayerState.viewangles, cg.view.angles);
    cg.fov = Clamp(cg.fov, 10, 160);
}

void CG_InterpolateEntities(float fraction)
{
    int i;
    vec3_t delta;

    for (i = 0; i < MAX_CENTITIES; i++) {
        centity_t *cent = &cg_entities[i];
        if (!cent->valid)
            continue;
        VectorSubtract(cent->nextOrigin, cent->previousOrigin, delta);
        VectorMA(cent->previousOrigin, fraction, delta, cent->lerpOrigin);
    }
}
