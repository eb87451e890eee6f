/*
 * q_shared.c -- string helpers and the console command tokenizer.
 */
#include "q_shared.h"

static int Q_tolower(int c)
{
    return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
}

int Q_stricmp(const char *a, const char *b)
{
    if (!a || !b)
        return a == b ? 0 : (a ? 1 : -1);
    while (*a && Q_tolower(*a) == Q_tolower(*b)) {
        a++;
        b++;
    }
    return Q_tolower(*a) - Q_tolower(*b);
}

void Q_strncpyz(char *dest, const char *src, int destSize)
{
    int i;

    if (destSize < 1)
        return;
    for (i = 0; i < destSize - 1 && src[i]; i++)
        dest[i] = src[i];
    dest[i] = 0;
}

int Q_atoi(const char *text)
{
    int sign = 1, value = 0;

    text = Com_SkipSpaces(text);
    if (*text == '-') {
        sign = -1;
        text++;
    }
    while (*text >= '0' && *text <= '9')
        value = value * 10 + (*text++ - '0');
    return sign * value;
}

const char *Com_SkipSpaces(const char *text)
{
    while (*text == ' ' || *text == '\t')
        text++;
    return text;
}

/* Splits a console line into words; a quoted word may hold blanks. */
int Com_Tokenize(const char *line, command_t *cmd)
{
    cmd->argc = 0;
    for (;;) {
        int n = 0;
        line = Com_SkipSpaces(line);
        if (!*line || cmd->argc == 8)
            break;
        if (*line == '"') {
            line++;
            while (*line && *line != '"' && n < 63)
                cmd->argv[cmd->argc][n++] = *line++;
            if (*line == '"')
                line++;
        } else {
            while (*line && *line != ' ' && *line != '\t' && n < 63)
                cmd->argv[cmd->argc][n++] = *line++;
        }
        cmd->argv[cmd->argc][n] = 0;
        cmd->argc++;
    }
    return cmd->argc;
}
