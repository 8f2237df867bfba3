// A host that keeps no document: it writes down every call it gets.
#pragma once

#include "host/QuillmarLib.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The fourteen operations, one text line a call, in the order in which they came:
//     qlmCreateLine(ctx, "", 0, -0, 10, -5, 0, 0) = n1
//     qlmSetAttributeByNode(ctx, n1, "stroke-width", "0.500000")
// Floats are written with the fewest digits that give them back, "nan" without a sign; texts as UTF-8 between
// quotes, with quotes, backslashes and control characters as \xHH. The context node is "ctx", no node is "0",
// and nodes are numbered in the order of their creation. Each thread has a host of its own.
class RecordingHost {
public:
    // The calling thread's host.
    static RecordingHost& OfThread();

    // Forgets all calls and answers as a host does that accepts everything.
    void Reset();

    // The context node to draw under.
    static QlmNode Context();

    // All calls, each line ended by a line feed.
    std::string Trace() const;

    // Called by the fourteen operations.
    void Record(std::string line);
    QlmNode RecordNew(std::string line, bool refused = false);
    std::string NameOf(QlmNode node) const;

    QlmNode context = Context(); // what is written as "ctx"; a thread may have one of its own
    bool countOnly = false;      // calls are counted, not written down
    bool refuseSymbols = false;  // qlmCreateSymbol answers 0
    bool refuseAll = false;      // every creating operation answers 0
    QlmNode currentNode = nullptr;
    std::vector<std::string> calls;
    std::size_t callCount = 0;    // written down or not
    std::function<void()> onCall; // called at each call, with callCount raised

private:
    std::size_t m_nodes = 0;
};

// A wide text as the trace writes it, without quotes.
std::string ToTraceText(std::wstring_view text);
