// What preparing found: counted, and passed one by one to a listener.
#pragma once

#include "base/Tally.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace prepare {

enum class Finding : std::uint8_t {
    Rewritten, // subject is drawn as something else: "SPLINE", detail "3 polylines"
    NotShown,  // subject is not drawn, detail says why
    Changed,   // subject is drawn, but not wholly as its author saw it
    Repaired,  // the file is broken here: subject "file", detail says how it was read
    Cut,       // more than bounds allow: the rest is left out
};

// The detail of an entity that is not shown because nothing comes of it.
inline constexpr std::string_view kHasNoSize = "it has no size";

// Why a layer is not shown.
enum class HiddenLayer : std::uint8_t { OffOrFrozen, NotChosen, NotPlotted };
inline constexpr std::size_t kHiddenLayers = 3;

// A sheet of the drawing. Its size is in millimetres, 0 where it is not known.
struct LayoutSize {
    std::string name;
    double width = 0;
    double height = 0;
};

// The entities of one type in a file, each part of another one by itself.
struct TypeContents {
    std::string name;
    std::uint64_t inDrawing = 0;
    std::uint64_t inBlocks = 0;
    std::uint64_t firstLine = 0; // of the first one's name
};

// What a file holds, whether it is shown or not.
struct Contents {
    std::uint64_t entities = 0;     // all of them, those in blocks once
    std::uint64_t inBlocks = 0;     // of them
    std::uint64_t inPaperSpace = 0; // outside of blocks
    std::uint64_t onSheets = 0;     // of those, what is to be seen: not windows, and nothing invisible
    std::uint64_t invisible = 0;    // by their own flag
    std::uint64_t masks = 0;        // entities that only hide others
    bool isEnded = false;           // whether the file ends with its EOF
    bool hasSkippedLines = false;   // some lines are no group codes where these belong
    std::string codePage; // $DWGCODEPAGE, or what it was guessed to be; empty where neither is known
    std::string units;    // $INSUNITS and $MEASUREMENT as the header has them; empty where it lacks them
    std::string measurement;
    std::vector<TypeContents> types; // in the order of their first lines
};

// Equal findings are one entry with a count. However much an entity lacks, it is not shown once.
class Report {
public:
    // What is found from now on is of another entity.
    void BeginEntity() { m_lastNotShown = kNone; }
    // subject is a type of entity or another word; line is that of the user's file. Throws std::bad_alloc.
    void Add(Finding finding, std::string_view subject, std::string_view detail, std::uint64_t line,
             std::uint64_t count = 1);

    struct Key {
        Finding finding;
        std::string subject;
        std::string detail;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    // The lines are those of the user's file.
    const std::map<Key, Tally>& Entries() const { return m_entries; }
    // How often it was said that something is not shown, or not whole.
    std::uint64_t Losses() const { return m_losses; }

    // Called with each finding when it is added.
    using Listener = std::function<void(const Key& key, std::uint64_t line, std::uint64_t count)>;
    void TellTo(Listener listener) { m_listener = std::move(listener); }

    // How many visible entities there were, those in blocks once for each way in which their block is used.
    std::uint64_t entities = 0;
    // How many there would have been more if all layers were shown, by why theirs is not.
    std::array<std::uint64_t, kHiddenLayers> hidden{};
    std::uint64_t viewportsOff = 0; // of the sheet that was prepared

    Contents contents;
    // Nothing visible comes of the drawing. Of a sheet's windows all counts that they might show.
    bool isBlank = false;

    // The sheets of the drawing, in the order of their tabs.
    std::vector<LayoutSize> layouts;
    // The sheet that was prepared. Of a known size, it is prepared in millimetres, with its lower left corner
    // at the origin.
    LayoutSize sheet;

private:
    static constexpr std::uint64_t kNone = UINT64_MAX;

    std::map<Key, Tally> m_entries;
    Listener m_listener;
    std::uint64_t m_losses = 0;
    std::uint64_t m_lastNotShown = kNone; // the line of the entity of which it was said last
};

} // namespace prepare
