#include "cli/report/MessageGroups.h"

#include "base/Hash.h"
#include "cli/report/LineOfMessage.h"
#include "cli/report/Shortened.h"
#include "host/ReportKinds.h"

#include <algorithm>

namespace plexorn {

namespace {

// Where a message of that kind quotes a value of the file; past its end when it quotes none. Names, such as
// those of entity types and subclasses, are not values: each makes a message of its own.
std::size_t BeginOfValue(int kind, std::string_view text)
{
    if (kind == DXF_ERROR_INTEGER || kind == DXF_ERROR_DSTYLE)
        return std::min(text.find('\''), text.size());
    // The group code is quoted first: ('43' = '0.5').
    constexpr std::string_view kBeforeValue = "' = ";
    const std::size_t before =
        kind == DXF_ERROR_GROUP_CODE ? text.find(kBeforeValue) : std::string_view::npos;
    return before == std::string_view::npos ? text.size() : before + kBeforeValue.size();
}

std::string WithoutValue(int kind, std::string_view text)
{
    const std::size_t begin = BeginOfValue(kind, text);
    if (begin == text.size())
        return Shortened(text);
    std::string general(text.substr(0, begin));
    general.append("'").append(kEllipsis).append(text.ends_with(')') ? "')" : "'");
    return Shortened(general);
}

} // namespace

MessageGroups::MessageGroups(std::size_t most) : m_most(std::min(most, kMostGroups)), m_hashKey(HashKey(this))
{
}

void MessageGroups::Add(int kind, std::string_view text)
{
    const std::string_view plain = WithoutLine(text);
    Key key(kind, WithoutValue(kind, plain));
    const auto known = m_indices.find(key);
    if (known != m_indices.end()) {
        MessageGroup& group = m_groups[known->second];
        ++group.count;
        if (group.text != key.second && group.text != Shortened(plain))
            group.text = key.second;
    } else if (m_groups.size() < m_most) {
        m_groups.push_back({std::string(LineOfMessage(text)), Shortened(plain), 1});
        m_indices.emplace(std::move(key), m_groups.size() - 1);
    } else {
        AddFurther(key, 1);
    }
}

void MessageGroups::AddGroup(MessageGroup group)
{
    group.text = Shortened(group.text);
    if (m_groups.size() < m_most)
        m_groups.push_back(std::move(group));
    else
        AddFurther({0, group.text}, group.count);
}

void MessageGroups::AddFurther(const Key& key, std::size_t count)
{
    m_further += count;
    if (m_furtherKinds.size() < kMostCountedKinds)
        m_furtherKinds.insert(HashBytes(key.second.data(), key.second.size(),
                                        m_hashKey + 2 * static_cast<std::uint64_t>(key.first)));
}

} // namespace plexorn
