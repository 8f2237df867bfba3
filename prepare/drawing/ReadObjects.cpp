#include "prepare/drawing/ReadObjects.h"

#include "prepare/drawing/Fields.h"

namespace prepare {

namespace {

void SkipGroup(RecordReader& reader, SpatialFilter&, CDxfLine)
{
    reader.SkipGroup();
}

constexpr auto kSpatialFilter = Fields<SpatialFilter>({
    {10, &SpatialFilter::boundary},
    {40, &SpatialFilter::numbers},
    {71, &SpatialFilter::isOn},
    {102, SkipGroup},
    {330, &SpatialFilter::owner},
});

} // namespace

void ObjectReader::Read(std::string_view type)
{
    if (type == "DICTIONARY")
        return ReadDictionary();
    if (type == "SORTENTSTABLE")
        return ReadSortTable();
    if (type != "SPATIAL_FILTER")
        return m_reader.SkipFields();
    SpatialFilter filter;
    m_reader.Read(filter, kSpatialFilter);
    if (filter.owner != 0 && filter.isOn != 0)
        m_filters.push_back(std::move(filter));
}

void ObjectReader::ReadDictionary()
{
    Handle handle = 0, owner = 0;
    while (m_reader.NextField()) {
        if (m_reader.Code() == 102)
            m_reader.SkipGroup();
        else if (m_reader.Code() == 5)
            handle = m_reader.ReadHandle(m_reader.Value());
        else if (m_reader.Code() == 330)
            owner = m_reader.ReadHandle(m_reader.Value());
    }
    m_owners.try_emplace(handle, owner);
}

// After the table's own handle, each entity (331) is followed by the handle (5) in whose place it is drawn.
void ObjectReader::ReadSortTable()
{
    Handle entity = 0;
    while (m_reader.NextField()) {
        if (m_reader.Code() == 331) {
            entity = m_reader.ReadHandle(m_reader.Value());
        } else if (m_reader.Code() == 5 && entity != 0) {
            const Handle place = m_reader.ReadHandle(m_reader.Value());
            if (place != entity)
                m_reader.drawing.placeInOrder.try_emplace(entity, place);
            entity = 0;
        }
    }
}

// A filter belongs to a dictionary of filters, that to a dictionary of the insert's own.
void ObjectReader::Finish()
{
    for (SpatialFilter& filter : m_filters) {
        const auto filters = m_owners.find(filter.owner);
        const auto own = filters == m_owners.end() ? m_owners.end() : m_owners.find(filters->second);
        if (own != m_owners.end() && own->second != 0)
            m_reader.drawing.filterOfInsert.try_emplace(own->second, std::move(filter));
    }
}

} // namespace prepare
