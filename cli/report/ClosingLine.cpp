#include "cli/report/ClosingLine.h"

#include "base/Joined.h"
#include "cli/report/Counted.h"
#include "cli/report/Json.h"
#include "cli/report/Printable.h"
#include "cli/report/Rounded.h"
#include "cli/report/ShareText.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace plexorn {

namespace {

// What the host found and the picture does not show.
struct HostCount {
    std::size_t SvgHostStatistics::*count;
    std::string_view name; // for programs
    std::string_view singular;
    std::string_view plural;
};

constexpr HostCount kHostCounts[] = {
    {&SvgHostStatistics::duplicateSymbols, "blocksDefinedAgain", "block defined again (the first one counts)",
     "blocks defined again (the first ones count)"},
    {&SvgHostStatistics::missingSymbols, "insertsOfMissingBlocks", "insert of a missing block",
     "inserts of missing blocks"},
    {&SvgHostStatistics::cyclicUses, "insertsOfThemselves", "insert left out (its block inserts itself)",
     "inserts left out (their blocks insert themselves)"},
    {&SvgHostStatistics::unboundedUses, "insertsUnfoldingTooFar",
     "insert left out (the drawing would unfold too far)",
     "inserts left out (the drawing would unfold too far)"},
    {&SvgHostStatistics::undrawableElements, "elementsWithUnusableNumbers",
     "element could not be drawn (a number of its place or size cannot be used)",
     "elements could not be drawn (numbers of their place or size cannot be used)"},
    {&SvgHostStatistics::longDashPatterns, "elementsDrawnSolid",
     "element drawn solid (its dash pattern is too long)",
     "elements drawn solid (their dash patterns are too long)"},
    {&SvgHostStatistics::elementsBeyondLimit, "elementsBeyondLimit",
     "element left out (too many for a drawing of this size)",
     "elements left out (too many for a drawing of this size)"},
    {&SvgHostStatistics::elementsBeyondBytes, "elementsBeyondBytes",
     "element left out (the picture is too large for a drawing of this size)",
     "elements left out (the picture is too large for a drawing of this size)"},
};

std::size_t DrawnElements(const SvgHostStatistics& statistics)
{
    const std::size_t leftOut = statistics.undrawableElements + statistics.cyclicUses +
                                statistics.unboundedUses + statistics.elementsBeyondBytes;
    return statistics.elements - leftOut;
}

// Four digits are enough for a size.
std::string Size(double number)
{
    return Rounded(number, number < 1e4 ? 4 : 7);
}

// In full, as --scale takes it.
std::string ScaleText(double scale)
{
    const bool isWhole = scale < 1e19 && std::floor(scale) == scale;
    return isWhole ? std::to_string(static_cast<std::uint64_t>(scale)) : Size(scale);
}

std::string SizeText(const Outcome& outcome)
{
    if (outcome.unit.empty())
        return Joined({"size in pixels (", outcome.reason, ")"});
    const std::string scale = outcome.scale == 1 ? "" : " at 1:" + ScaleText(outcome.scale);
    return Joined({Size(outcome.width), " x ", Size(outcome.height), " mm", scale, " (the unit is ",
                   outcome.unit, ", ", outcome.reason, ")"});
}

constexpr const char* kReplacedOther = "; replaced a file without plexorn's mark";

// Below a third of its picture a drawing is hard to make out.
std::string FitText(const Outcome& outcome)
{
    if (outcome.isCropped)
        return "; what lies far from the rest is outside the picture (--fit all shows it)";
    if (outcome.filled * 3 >= 1)
        return "";
    const std::string share = outcome.filled < 0.01 ? "less than 1" : Size(std::floor(outcome.filled * 100));
    return Joined(
        {"; most of it fills ", share,
         " % of the picture's longer side, as something small lies far away (--fit most leaves that "
         "out)"});
}

// The share of a drawing that was not read whole.
std::string PartText(const Share& share)
{
    if (share.entities == 0 || share.shown < share.entities)
        return "at most " + ShareText(share);
    return share.entities == 1 ? "at most the entity that was read"
                               : "at most all " + std::to_string(share.entities) + " entities that were read";
}

} // namespace

bool IsShownAsStated(const Outcome& outcome)
{
    const auto isMet = [&](const HostCount& finding) { return outcome.statistics.*finding.count > 0; };
    return outcome.share.IsWhole() && outcome.hole.empty() && outcome.isEnded && outcome.unmarkedEntry == 0 &&
           outcome.otherTexts == 0 && outcome.oddLines == 0 &&
           std::none_of(std::begin(kHostCounts), std::end(kHostCounts), isMet);
}

std::string OutcomeText(const Outcome& outcome, std::size_t messages)
{
    std::string out = Counted(DrawnElements(outcome.statistics), "element", "elements");
    out.append(" drawn to ").append(Printable(outcome.output));
    out.append(", ").append(outcome.hole.empty() ? ShareText(outcome.share) : PartText(outcome.share));
    out.append(", ").append(Counted(messages, "message", "messages"));
    out.append(", ").append(std::to_string(outcome.time.count())).append(" ms");
    out.append(", ").append(SizeText(outcome)).append(FitText(outcome));
    for (const HostCount& finding : kHostCounts)
        if (const std::size_t number = outcome.statistics.*finding.count)
            out.append("; ").append(Counted(number, finding.singular, finding.plural));
    out += MissingText(outcome.share);
    if (outcome.unmarkedEntry != 0)
        out += Joined({"; what follows line ", std::to_string(outcome.unmarkedEntry),
                       " may be lost (an entry without a subclass marker)"});
    if (outcome.otherTexts != 0)
        out += Joined(
            {"; ", Counted(outcome.otherTexts, "text is", "texts are"), " not UTF-8 (drawn with U+FFFD)"});
    if (!outcome.isEnded && outcome.hole.empty())
        out += "; the file has no EOF: it may have been cut off";
    return outcome.hasReplacedOther ? out.append(kReplacedOther) : out;
}

std::string OutcomeText(const PreparedOutcome& outcome, std::size_t messages)
{
    std::string out = "prepared to ";
    out.append(Printable(outcome.output)).append(" (").append(Counted(outcome.bytes, "byte", "bytes"));
    out.append("), ").append(ShareText(outcome.share));
    out.append(", ").append(Counted(messages, "message", "messages"));
    out.append(", ").append(std::to_string(outcome.time.count())).append(" ms");
    out += MissingText(outcome.share);
    return outcome.hasReplacedOther ? out.append(kReplacedOther) : out;
}

std::string TotalText(const Totals& totals, std::size_t messages, std::chrono::milliseconds time)
{
    const std::string blank = totals.blank == 0 ? "" : "of them " + std::to_string(totals.blank) + " blank, ";
    const std::string skipped = totals.skipped == 0 ? "" : std::to_string(totals.skipped) + " skipped, ";
    return Counted(totals.done, totals.doneWord, totals.doneWord) + ", " + blank + skipped +
           std::to_string(totals.failed) + " failed, " + Counted(messages, "message", "messages") + ", " +
           std::to_string(time.count()) + " ms";
}

std::string OutcomeJson(const std::string& file, const Outcome& outcome, std::size_t messages)
{
    Json json;
    json.Open('{').Member("type", "drawn").Member("file", file).Member("picture", outcome.output);
    json.Member("elements", DrawnElements(outcome.statistics)).Member("messages", messages);
    json.Member("milliseconds", outcome.time.count());
    if (outcome.unit.empty())
        json.Name("unit").Null().Name("width").Null().Name("height").Null().Name("scale").Null();
    else
        json.Member("unit", outcome.unit)
            .Member("width", outcome.width)
            .Member("height", outcome.height)
            .Member("scale", outcome.scale);
    json.Member("filled", outcome.filled).Member("cropped", outcome.isCropped);
    json.Member("sizing", outcome.reason).Name("findings").Open('{');
    for (const HostCount& finding : kHostCounts)
        if (const std::size_t number = outcome.statistics.*finding.count)
            json.Member(finding.name, number);
    json.Close('}').Name("skipped").Open('{');
    for (const auto& [type, count] : outcome.skipped)
        json.Member(type, count);
    json.Close('}');
    AddShare(json, outcome.share);
    json.Name("holes");
    if (outcome.hole.empty())
        json.Null();
    else
        json.Text(outcome.hole);
    json.Member("blank", outcome.isBlank).Name("unmarkedEntry");
    if (outcome.unmarkedEntry == 0)
        json.Null();
    else
        json.Count(outcome.unmarkedEntry);
    json.Member("ended", outcome.isEnded).Member("textsNotUtf8", outcome.otherTexts);
    json.Member("replacedOther", outcome.hasReplacedOther);
    return json.Close('}').Result();
}

std::string OutcomeJson(const std::string& file, const PreparedOutcome& outcome, std::size_t messages)
{
    Json json;
    json.Open('{').Member("type", "prepared").Member("file", file).Member("output", outcome.output);
    json.Member("bytes", outcome.bytes)
        .Member("messages", messages)
        .Member("milliseconds", outcome.time.count());
    AddShare(json, outcome.share);
    json.Member("replacedOther", outcome.hasReplacedOther);
    return json.Close('}').Result();
}

std::string TotalJson(const Totals& totals, std::size_t messages, std::chrono::milliseconds time)
{
    Json json;
    json.Open('{')
        .Member("type", "total")
        .Member(totals.doneWord, totals.done)
        .Member("blank", totals.blank)
        .Member("skipped", totals.skipped)
        .Member("failed", totals.failed);
    return json.Member("messages", messages).Member("milliseconds", time.count()).Close('}').Result();
}

} // namespace plexorn
