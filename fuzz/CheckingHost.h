// A host that keeps no document: it checks every call it gets.
#pragma once

#include "host/QuillmarLib.h"

#include <cstddef>
#include <cstdint>

// The fourteen operations. Each call is held against what a host may rely on: the context node and handles
// that were given out, empty identifiers, numbers that are always 0, attributes that belong to the element,
// their values and all data in their form, well-formed texts, the current node put back. A call that breaks
// one of them ends the program.
class CheckingHost {
public:
    struct Answers {
        bool refusesSymbols = false; // qlmCreateSymbol answers 0
        bool refusesAll = false;     // every creating operation answers 0
        bool isFinite = false;       // the drawing has small numbers only, and so have the calls
    };

    // Forgets all calls.
    static void Reset(Answers answers);

    static QlmNode Context();

    // Checks what must hold after an import: the current node is the default place again.
    static void RequireDone();

    // A number for all calls since the reset, the same for the same calls in the same order.
    static std::uint64_t Calls();

    // How many reports of a kind there were.
    static std::size_t Reports(int kind);
};
