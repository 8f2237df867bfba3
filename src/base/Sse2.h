// PLEXORN_SSE2 where the machine has the 16-byte instructions that every 64-bit x86 has. PLEXORN_PORTABLE
// asks for the code of other machines and compilers; the tests build that too.
#pragma once

#if (defined(__x86_64__) || defined(_M_X64)) && !defined(PLEXORN_PORTABLE)
#define PLEXORN_SSE2
#include <emmintrin.h>
#endif
