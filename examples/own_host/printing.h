/* Arguments as text, each after a comma. */
#ifndef PRINTING_H
#define PRINTING_H

#include <stdio.h>
#include <wchar.h>

/* The text in quotes, as UTF-8; quotes, backslashes and control characters as \x22 and the like. */
void printText(FILE* out, const wchar_t* text);

/* So many floats (passed as double, as C has it), with enough digits that no two floats look the same. */
void printFloats(FILE* out, int count, ...);

#endif
