/*
 * cg_draw.c -- the status bar and the score board.
 */
#include "cg_local.h"

#define CHAR_WIDTH 16

void CG_DrawNumber(const rectDef_t *rect, int value)
{
    char digits[12];
    int n = 0, i;
    qboolean negative = value < 0 ? qtrue : qfalse;

    if (negative)
        value = -value;
    do {
        digits[n++] = (char)('0' + value % 10);
        value /= 10;
    } while (value && n < 10);
    if (negative)
        digits[n++] = '-';
    for (i = 0; i < n; i++)
        trap_R_DrawChar(rect->x + rect->w - (i + 1) * CHAR_WIDTH, rect->y, digits[i]);
}

static void CG_DrawStatusBar(void)
{
    rectDef_t health = {100, 440, 96, 32};
    rectDef_t armor = {300, 440, 96, 32};

    CG_DrawNumber(&health, cg.predictedPlayerState.health);
    CG_DrawNumber(&armor, cg.predictedPlayerState.armor);
}

static void CG_DrawScores(void)
{
    trap_R_DrawRect(120, 80, 400, 320);
}

void CG_DrawActive(void)
{
    CG_DrawStatusBar();
    if (cg.showScores)
        CG_DrawScores();
}
