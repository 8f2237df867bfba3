#include "cli/info/NotesOn.h"

#include "base/CodePage.h"
#include "base/Joined.h"
#include "base/Utf8.h"
#include "cli/report/Counted.h"
#include "cli/report/Printable.h"

#include <algorithm>

namespace plexorn {

namespace {

std::string OtherTextsNote(const DrawingInfo& info)
{
    std::string page;
    if (!info.header.codePage.empty())
        page = Joined({" ($DWGCODEPAGE is ", Printable(ValidUtf8(info.header.codePage)), ")"});
    return Joined({Counted(info.otherTexts, "text is", "texts are"), " not UTF-8", page,
                   ", the first at line ", std::to_string(info.firstOtherText),
                   "; bytes that are not UTF-8 are drawn as U+FFFD"});
}

std::uint64_t MissingBlocks(const DrawingInfo& info)
{
    return static_cast<std::uint64_t>(
        std::count_if(info.blocks.begin(), info.blocks.end(),
                      [](const BlockInfo& block) { return block.definitions == 0; }));
}

// What the module by itself does not read as the file intends.
void AddNotesOfModule(const DrawingInfo& info, std::vector<std::string>& notes)
{
    if (info.unmarkedEntry != 0)
        notes.push_back("the entry at line " + std::to_string(info.unmarkedEntry) +
                        " has no subclass marker: the reader takes what follows it for a part of it, and the "
                        "drawing may come out empty");
    if (info.otherTexts != 0 && IsCodePageUtf8())
        notes.push_back(OtherTextsNote(info));
    if (const std::uint64_t count = info.EntitiesOnHiddenLayers())
        notes.push_back(
            Counted(count, "entity is on a layer that is off or frozen; it is drawn all the same",
                    "entities are on layers that are off or frozen; they are drawn all the same"));
    if (info.hiddenEntities != 0)
        notes.push_back(Counted(
            info.hiddenEntities, "entity is invisible by a flag of its own; it is in the picture, hidden",
            "entities are invisible by a flag of their own; they are in the picture, hidden"));
}

void AddNotesOfPreparing(const DrawingInfo& info, const Becoming& becoming, std::vector<std::string>& notes)
{
    notes.insert(notes.end(), becoming.repairs.begin(), becoming.repairs.end());
    if (const std::uint64_t count = info.EntitiesOnHiddenLayers())
        notes.push_back(Counted(count, "entity is", "entities are") +
                        " on layers that are off or frozen (--layers all shows such layers)");
    if (info.hiddenEntities != 0)
        notes.push_back(Counted(info.hiddenEntities, "entity is invisible by a flag of its own, and left out",
                                "entities are invisible by a flag of their own, and left out"));
}

} // namespace

std::vector<std::string> NotesOn(const DrawingInfo& info, const Becoming* becoming)
{
    std::vector<std::string> notes;
    if (becoming == nullptr && info.oddLines != 0)
        notes.push_back(Counted(info.oddLines, "line is no group code", "lines are no group codes") +
                        " and should be one, the first at line " + std::to_string(info.firstOddLine));
    if (!info.isEnded)
        notes.push_back("the file has no EOF: it may have been cut off");
    if (becoming == nullptr)
        AddNotesOfModule(info, notes);
    else
        AddNotesOfPreparing(info, *becoming, notes);
    if (const std::uint64_t count = MissingBlocks(info))
        notes.push_back(Counted(count, "block is", "blocks are") + " inserted but not defined");
    return notes;
}

} // namespace plexorn
