/*
 * cg_local.h -- the client game's own declarations.
 */
#ifndef CG_LOCAL_H
#define CG_LOCAL_H

#include "../game/q_shared.h"
#include "../game/bg_public.h"

#define MAX_CENTITIES 256

/* What the client knows of one entity between two snapshots. */
typedef struct centity_s {
    int number;
    qboolean valid;
    vec3_t lerpOrigin;
    vec3_t previousOrigin;
    vec3_t nextOrigin;
} centity_t;

/* The client game's state for the current frame. */
typedef struct cg_s {
    int time;
    int frametime;
    playerState_t predictedPlayerState;
    orientation_t view;
    float fov;
    qboolean showScores;
} cg_t;

/* A screen rectangle in virtual 640x480 coordinates. */
typedef struct {
    float x, y, w, h;
} rectDef_t;

extern cg_t cg;
extern centity_t cg_entities[MAX_CENTITIES];

/* cg_view.c */
void CG_CalcView(void);
void CG_InterpolateEntities(float fraction);

/* cg_draw.c */
void CG_DrawActive(void);
void CG_DrawNumber(const rectDef_t *rect, int value);

/* syscalls provided by the engine */
void trap_Print(const char *text);
void trap_R_DrawRect(float x, float y, float w, float h);
void trap_R_DrawChar(float x, float y, int ch);

#endif
