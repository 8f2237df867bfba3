#include "cli/contents/Share.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <vector>

namespace plexorn {

namespace {

// Sums the counts of the parts that make up the picture.
class Summing {
public:
    explicit Summing(const DrawingInfo& info) : m_counts(info.types.Count()) {}

    void Add(const PartCounts& counts)
    {
        for (const auto& [type, count] : counts.types) {
            m_counts[type].shown += count.shown;
            m_counts[type].missing += count.missing;
        }
        for (std::size_t i = 0; i < kDifferenceCount; ++i)
            m_share.otherwise[i] += counts.otherwise[i];
    }

    // This many further inserts show nothing.
    void AddEmptyInserts(const DrawingInfo& info, std::uint64_t count)
    {
        for (std::size_t i = 0; const TypeInfo& type : info.types) {
            if (type.name == "INSERT") {
                count = std::min(count, m_counts[i].shown);
                m_counts[i].shown -= count;
                m_counts[i].missing += count;
            }
            ++i;
        }
    }

    Share Finish(const DrawingInfo& info)
    {
        for (std::size_t i = 0; const TypeInfo& type : info.types) {
            const TypeCount& count = m_counts[i++];
            m_share.shown += count.shown;
            m_share.entities += count.shown + count.missing;
            if (count.missing > 0)
                m_share.missing[type.name] = count.missing;
        }
        return m_share;
    }

private:
    std::vector<TypeCount> m_counts;
    Share m_share;
};

// Those of the blocks that make up the picture: the drawing itself inserts them, or one of them does. Inserts
// of blocks that are missing are counted.
std::vector<const PartCounts*> InsertedParts(const DrawingInfo& info, std::uint64_t& emptyInserts)
{
    std::vector<const PartCounts*> found;
    std::vector<bool> isFound(info.blocks.Count());
    const auto addFrom = [&](const PartCounts& counts) {
        for (const auto& [place, shown] : counts.inserts) {
            const BlockInfo& block = *std::next(info.blocks.begin(), static_cast<std::ptrdiff_t>(place));
            if (block.definitions == 0)
                emptyInserts += shown;
            else if (!isFound[place])
                found.push_back(&block.counts);
            isFound[place] = true;
        }
    };
    addFrom(info.counts);
    for (std::size_t next = 0; next < found.size(); ++next)
        addFrom(*found[next]);
    return found;
}

std::uint64_t& CountOf(DifferenceCounts& counts, Difference what)
{
    return counts[static_cast<std::size_t>(what)];
}

} // namespace

double Share::Percent() const
{
    return entities == 0 ? 100 : static_cast<double>(shown) * 100 / static_cast<double>(entities);
}

bool Share::IsWhole() const
{
    return shown == entities && changed.empty() &&
           std::all_of(otherwise.begin(), otherwise.end(), [](std::uint64_t count) { return count == 0; });
}

void Share::NameRest()
{
    const std::uint64_t named =
        std::accumulate(missing.begin(), missing.end(), std::uint64_t(0),
                        [](std::uint64_t sum, const auto& entry) { return sum + entry.second; });
    if (entities - shown > named)
        missing["of unknown type"] += entities - shown - named;
}

void Share::Add(const Share& other)
{
    entities += other.entities;
    shown += other.shown;
    for (const auto& [type, count] : other.missing)
        missing[type] += count;
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        otherwise[i] += other.otherwise[i];
    for (const auto& [how, count] : other.changed)
        changed[how] += count;
    isCut = isCut || other.isCut;
    for (std::size_t i = 0; i < hidden.size(); ++i)
        hidden[i] += other.hidden[i];
}

Share ShareOf(const DrawingInfo& info)
{
    Summing summing(info);
    summing.Add(info.counts);
    std::uint64_t emptyInserts = 0;
    for (const PartCounts* const counts : InsertedParts(info, emptyInserts))
        summing.Add(*counts);
    summing.AddEmptyInserts(info, emptyInserts);
    Share share = summing.Finish(info);
    // A drawing that only has sheets is shown correctly by them.
    std::uint64_t& paper = CountOf(share.otherwise, Difference::PaperSpace);
    if (paper ==
        std::accumulate(info.counts.types.begin(), info.counts.types.end(), std::uint64_t(0),
                        [](std::uint64_t sum, const auto& entry) { return sum + entry.second.shown; }))
        paper = 0;
    return share;
}

} // namespace plexorn
