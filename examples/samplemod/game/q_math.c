/*
 * q_math.c -- vector arithmetic.
 */
#include "q_shared.h"

float Q_fabs(float f)
{
    return f < 0 ? -f : f;
}

/* Newton's iteration; good enough for lengths in the game world. */
float Q_sqrt(float f)
{
    float x = f > 1 ? f / 2 : 1;
    int i;

    if (f <= 0)
        return 0;
    for (i = 0; i < 12; i++)
        x = 0.5f * (x + f / x);
    return x;
}

void VectorClear(vec3_t v)
{
    v[0] = v[1] = v[2] = 0;
}

void VectorCopy(const vec3_t in, vec3_t out)
{
    out[0] = in[0];
    out[1] = in[1];
    out[2] = in[2];
}

void VectorAdd(const vec3_t a, const vec3_t b, vec3_t out)
{
    out[0] = a[0] + b[0];
    out[1] = a[1] + b[1];
    out[2] = a[2] + b[2];
}

void VectorSubtract(const vec3_t a, const vec3_t b, vec3_t out)
{
    out[0] = a[0] - b[0];
    out[1] = a[1] - b[1];
    out[2] = a[2] - b[2];
}

void VectorScale(const vec3_t in, float scale, vec3_t out)
{
    out[0] = in[0] * scale;
    out[1] = in[1] * scale;
    out[2] = in[2] * scale;
}

void VectorMA(const vec3_t start, float scale, const vec3_t dir, vec3_t out)
{
    out[0] = start[0] + scale * dir[0];
    out[1] = start[1] + scale * dir[1];
    out[2] = start[2] + scale * dir[2];
}

float DotProduct(const vec3_t a, const vec3_t b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

float VectorLength(const vec3_t v)
{
    return Q_sqrt(DotProduct(v, v));
}

float VectorNormalize(vec3_t v)
{
    float length = VectorLength(v);
    if (length > 0)
        VectorScale(v, 1 / length, v);
    return length;
}

float Clamp(float value, float low, float high)
{
    if (value < low)
        return low;
    if (value > high)
        return high;
    return value;
}
