/*
 * bg_lib.c -- the few C library functions the modules use; a virtual machine
 * module cannot link the system's library.
 */
#include "q_shared.h"

int strlen(const char *s)
{
    int n = 0;
    while (s[n])
        n++;
    return n;
}

char *strcpy(char *dest, const char *src)
{
    char *d = dest;
    while ((*d++ = *src++) != 0)
        ;
    return dest;
}

int strcmp(const char *a, const char *b)
{
    while (*a && *a == *b) {
        a++;
        b++;
    }
    return (unsigned char)*a - (unsigned char)*b;
}

void *memset(void *dest, int c, int count)
{
    byte *d = (byte *)dest;
    while (count-- > 0)
        *d++ = (byte)c;
    return dest;
}

void *memcpy(void *dest, const void *src, int count)
{
    byte *d = (byte *)dest;
    const byte *s = (const byte *)src;
    while (count-- > 0)
        *d++ = *s++;
    return dest;
}
