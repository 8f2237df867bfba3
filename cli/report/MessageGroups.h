// Messages about a drawing, gathered by what they say.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace plexorn {

// The messages that a reader takes for the same one: they differ in the line and in a value of the file.
struct MessageGroup {
    std::string line; // the digits of the first one's line; empty when it names none
    std::string text; // without the line; values that differ are shown as "…", and a long text is cut
    std::size_t count = 0;
};

// Counts messages by group. It keeps at most kMostGroups groups and a bounded part of each text, so that no
// drawing fills memory with its messages.
class MessageGroups {
public:
    static constexpr std::size_t kMostGroups = 300;
    static constexpr std::size_t kMostCountedKinds = 10'000;

    // Keeps the first groups, at most that many.
    explicit MessageGroups(std::size_t most);

    // kind is a DXF_ERROR_KIND, text the module's text in UTF-8.
    void Add(int kind, std::string_view text);
    // Adds a group that is already counted and unlike all others.
    void AddGroup(MessageGroup group);

    // The groups, in the order of their first messages.
    const std::vector<MessageGroup>& Groups() const { return m_groups; }
    // The messages that are in none of the groups, and how many kinds of them there are: kMostCountedKinds
    // also means any larger number.
    std::size_t Further() const { return m_further; }
    std::size_t FurtherKinds() const { return m_furtherKinds.size(); }

private:
    using Key = std::pair<int, std::string>;

    void AddFurther(const Key& key, std::size_t count);

    std::size_t m_most;
    std::vector<MessageGroup> m_groups;
    std::map<Key, std::size_t> m_indices;
    std::size_t m_further = 0;
    std::uint64_t m_hashKey;                // the texts are a drawing's
    std::set<std::uint64_t> m_furtherKinds; // by their hashes
};

} // namespace plexorn
