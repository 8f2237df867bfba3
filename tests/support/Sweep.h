// Small drawings, what becomes of them with a fault in them, and the faults.
#pragma once

#include "input/CDxfSource.h"
#include "support/FailingMemory.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct SweptDrawing {
    std::string name;
    std::string bytes;
};

// The drawings of the folders tests/trace and tests/robust/drawings; together they reach every reader.
const std::vector<SweptDrawing>& SweptDrawings();

// How many table entries, blocks with their entities, and entities there are.
struct KeptCount {
    std::size_t tables = 0;
    std::size_t blocks = 0;
    std::size_t entities = 0;
};

// All that can be said of an import.
struct Outcome {
    struct Message {
        std::int32_t line;
        std::string text; // "code kind message", without the line
        friend bool operator==(const Message&, const Message&) = default;
    };

    // In file order: the texts of the table entries; what each block, each of its entities and each entity
    // has drawn, with nodes numbered from 1 in each.
    std::vector<std::string> tables;
    std::vector<std::string> blocks;
    std::vector<std::string> entities;
    std::vector<Message> messages; // of the reading
    std::int32_t lines = 0;        // read
    std::size_t calls = 0;         // of the host while drawing
    std::size_t reads = 0;         // of the source
    bool hasEnded = false;         // the end of the source was met, or it failed
    std::size_t allocations = 0;
    std::size_t leaked = 0; // blocks of memory
    bool memoryFailed = false;
};

struct SweepOptions {
    std::size_t failingAllocation = 0; // 0 is none
    FailingMemory::Which which = FailingMemory::Which::Nth;
    bool refuseAll = false; // the host answers 0 to everything
    // Called at each read of the source with what is kept by then.
    std::function<void(const KeptCount&)> onRead = nullptr;
};

// Reads and draws a source.
Outcome OutcomeOf(CDxfSource& source, const SweepOptions& options = {});
Outcome OutcomeOf(std::string_view bytes, const SweepOptions& options = {});

// A drawing that is whole, and how far it had been read before each of its lines.
struct WholeImport {
    Outcome outcome;
    std::vector<KeptCount> keptBefore; // by line, the first is 1
};
WholeImport WholeDrawing(std::string_view bytes);

// Says what is wrong with the outcome of a drawing whose first fault is in this line, "" when nothing is:
// the work is in proportion to the size, nothing leaks, and what was read before is reported and drawn as in
// the whole drawing.
std::string FaultsOf(const Outcome& outcome, const WholeImport& whole, std::int32_t line, std::size_t size);

// A drawing with one fault, which begins in that line.
struct Faulty {
    std::string bytes;
    std::int32_t line;
};

// The drawing cut after each byte; with each byte replaced; with each line deleted, doubled and swapped with
// the next. Of every step faults of a kind, one is made.
using OnFaulty = std::function<void(const Faulty&)>;
void CutAtEveryByte(const std::string& drawing, std::size_t step, const OnFaulty& on);
void ReplaceEveryByte(const std::string& drawing, char by, std::size_t step, const OnFaulty& on);
void DisturbEveryLine(const std::string& drawing, std::size_t step, const OnFaulty& on);

// PLEXORN_FULL=1 is in the environment: everything is to be tried, however long it takes.
bool IsSweptInFull();

// 1 where every fault is to be tried, else something larger: PLEXORN_FULL=1 in the environment asks for all
// of them, PLEXORN_SWEEP_STEP for a step of its own, and builds that are slow try but every few.
std::size_t SweepStep(std::size_t whereItIsSlow);
