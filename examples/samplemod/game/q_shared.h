/*
 * q_shared.h -- types and helpers shared by every module of the sample mod.
 *
 * The sample mod is a small, self-contained example written for Tessaro's
 * tests and first start: it shows the layout of a mod (game, cgame, ui and the
 * files they share), not a playable game.
 */
#ifndef Q_SHARED_H
#define Q_SHARED_H

#define SAMPLE_VERSION "sample 0.1"
#define MAX_NAME_LENGTH 32
#define MAX_CLIENTS 16

typedef unsigned char byte;
typedef enum { qfalse, qtrue } qboolean;
typedef float vec_t;
typedef vec_t vec3_t[3];

/* A position and orientation in the world. */
typedef struct orientation_s {
    vec3_t origin;
    vec3_t angles;
} orientation_t;

/* An axis-aligned box around an entity. */
typedef struct bounds_s {
    vec3_t mins;
    vec3_t maxs;
} bounds_t;

/* One parsed console command: the words it was made of. */
typedef struct {
    int argc;
    char argv[8][64];
} command_t;

#ifndef NULL
#define NULL ((void *)0)
#endif

/* q_math.c */
float Q_fabs(float f);
float Q_sqrt(float f);
void VectorClear(vec3_t v);
void VectorCopy(const vec3_t in, vec3_t out);
void VectorAdd(const vec3_t a, const vec3_t b, vec3_t out);
void VectorSubtract(const vec3_t a, const vec3_t b, vec3_t out);
void VectorScale(const vec3_t in, float scale, vec3_t out);
void VectorMA(const vec3_t start, float scale, const vec3_t dir, vec3_t out);
float DotProduct(const vec3_t a, const vec3_t b);
float VectorLength(const vec3_t v);
float VectorNormalize(vec3_t v);
float Clamp(float value, float low, float high);

/* q_shared.c */
int Q_stricmp(const char *a, const char *b);
void Q_strncpyz(char *dest, const char *src, int destSize);
int Q_atoi(const char *text);
int Com_Tokenize(const char *line, command_t *cmd);
const char *Com_SkipSpaces(const char *text);

/* bg_lib.c */
int strlen(const char *s);
char *strcpy(char *dest, const char *src);
int strcmp(const char *a, const char *b);
void *memset(void *dest, int c, int count);
void *memcpy(void *dest, const void *src, int count);

#endif
