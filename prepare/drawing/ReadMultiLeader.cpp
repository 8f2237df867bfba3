#include "prepare/drawing/ReadMultiLeader.h"

#include "prepare/drawing/EntityFields.h"

namespace prepare {

namespace {

// A multileader has its parts in braces: CONTEXT_DATA{ ... LEADER{ ... LEADER_LINE{ ... } } }. Each part has
// a table of its own, since the codes mean something else in each.
bool IsOpening(CDxfLine value, std::string_view name)
{
    const std::string_view text = Trim(value);
    return text.size() == name.size() + 1 && text.starts_with(name) && text.back() == '{';
}

// Reads pairs up to the closing code, which is read, too.
template <const auto& table, class Record>
void ReadBraces(RecordReader& reader, Record& record, std::int32_t closing)
{
    while (reader.NextField()) {
        if (reader.Code() == closing && Trim(reader.Value()) == "}")
            return;
        reader.StoreOne(record, table);
    }
}

constexpr auto kLeaderLine = Fields<LeaderLine>({
    {10, &LeaderLine::vertices},
});

void ReadLine(RecordReader& reader, LeaderBranch& branch, CDxfLine value)
{
    if (!IsOpening(value, "LEADER_LINE"))
        return;
    LeaderLine line;
    ReadBraces<kLeaderLine>(reader, line, 305);
    reader.Append(branch.lines, line);
}

constexpr auto kBranch = Fields<LeaderBranch>({
    {10, &LeaderBranch::landing, &LeaderBranch::hasLanding},
    {11, &LeaderBranch::dogleg},
    {40, &LeaderBranch::length},
    {271, &LeaderBranch::isVertical},
    {304, ReadLine},
});

void ReadBranch(RecordReader& reader, MultiLeader& leader, CDxfLine value)
{
    if (!IsOpening(value, "LEADER"))
        return;
    LeaderBranch branch;
    ReadBraces<kBranch>(reader, branch, 303);
    reader.Append(leader.branches, branch);
}

constexpr auto kContext = Fields<MultiLeader>({
    {12, &MultiLeader::textPoint},
    {13, &MultiLeader::textDirection},
    {15, &MultiLeader::blockPoint},
    {16, &MultiLeader::blockScale},
    {41, &MultiLeader::textHeight},
    {43, &MultiLeader::textWidth},
    {46, &MultiLeader::blockRotation},
    {90, &MultiLeader::textColour},
    {91, &MultiLeader::fillColour},
    {140, &MultiLeader::arrowSize},
    {141, &MultiLeader::fillScale},
    {145, &MultiLeader::landingGap},
    {171, &MultiLeader::textAttachment},
    {172, &MultiLeader::textFlow},
    {174, &MultiLeader::leftLanding},
    {175, &MultiLeader::rightLanding},
    {291, &MultiLeader::fillsAsWindow},
    {292, &MultiLeader::hasFill},
    {302, ReadBranch},
    {304, &MultiLeader::text},
    {340, &MultiLeader::textStyleHandle},
    {341, &MultiLeader::blockHandle},
});

void ReadContext(RecordReader& reader, MultiLeader& leader, CDxfLine value)
{
    if (IsOpening(value, "CONTEXT_DATA"))
        ReadBraces<kContext>(reader, leader, 301);
}

// The first handle is the owner's; each of the others begins an attribute.
void ReadOwnerOrDefinition(RecordReader& reader, MultiLeader& leader, CDxfLine value)
{
    LeaderAttribute attribute;
    attribute.definition = reader.ReadHandle(value);
    if (leader.owner == 0)
        leader.owner = attribute.definition;
    reader.Append(leader.attributes, attribute);
}

void ReadAttributeText(RecordReader& reader, MultiLeader& leader, CDxfLine value)
{
    if (!leader.attributes.empty())
        leader.attributes.back().text = reader.Text(value);
}

constexpr auto kMultiLeader = EntityFields<MultiLeader>({
    {91, &MultiLeader::lineColour},
    {170, &MultiLeader::leaderType},
    {172, &MultiLeader::contentType},
    {291, &MultiLeader::hasDogleg},
    {292, &MultiLeader::hasFrame},
    {300, ReadContext},
    {302, ReadAttributeText},
    {330, ReadOwnerOrDefinition},
    {342, &MultiLeader::arrowHandle},
});

} // namespace

std::unique_ptr<Entity> ReadMultiLeader(RecordReader& reader)
{
    return ReadByTable<kMultiLeader, MultiLeader>(reader);
}

} // namespace prepare
