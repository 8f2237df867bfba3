#include "printing.h"

#include <stdarg.h>
#include <stdint.h>

static void printByte(FILE* out, uint32_t byte)
{
    putc((int)byte, out);
}

static void printCharacter(FILE* out, uint32_t character)
{
    if (character < 0x20 || character == '"' || character == '\\' || character == 0x7F) {
        fprintf(out, "\\x%02X", (unsigned)character);
    } else if (character < 0x80) {
        printByte(out, character);
    } else {
        const int trails = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        static const uint32_t leads[] = {0, 0xC0, 0xE0, 0xF0};
        printByte(out, leads[trails] | (character >> (6 * trails)));
        for (int i = trails - 1; i >= 0; --i)
            printByte(out, 0x80 | ((character >> (6 * i)) & 0x3F));
    }
}

/* The character at *text, which is moved past it: one unit of UTF-32, one or two of UTF-16. */
static uint32_t nextCharacter(const wchar_t** text)
{
    const uint32_t first = (uint32_t) * (*text)++;
    const uint32_t second = (uint32_t) * *text;
    if (first >> 10 != 0xD800 >> 10 || second >> 10 != 0xDC00 >> 10)
        return first;
    ++*text;
    return 0x10000 + (((first & 0x3FF) << 10) | (second & 0x3FF));
}

void printText(FILE* out, const wchar_t* text)
{
    fputs(", \"", out);
    while (*text)
        printCharacter(out, nextCharacter(&text));
    putc('"', out);
}

void printFloats(FILE* out, int count, ...)
{
    va_list values;
    va_start(values, count);
    for (int i = 0; i < count; ++i) {
        const double value = va_arg(values, double);
        if (value != value)
            fputs(", nan", out); /* without its sign, which differs from machine to machine */
        else
            fprintf(out, ", %.9g", value);
    }
    va_end(values);
}
