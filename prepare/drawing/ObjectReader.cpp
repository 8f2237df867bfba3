#include "prepare/drawing/ObjectReader.h"

#include "base/Letters.h"
#include "prepare/drawing/EntityReader.h"
#include "prepare/drawing/Fields.h"

#include <algorithm>
#include <set>

namespace prepare {

namespace {

constexpr auto kSpatialFilter = Fields<SpatialFilter>({
    {5, &SpatialFilter::handle},
    {10, &SpatialFilter::boundary},
    {40, &SpatialFilter::numbers},
    {71, &SpatialFilter::isOn},
    {102, SkipGroup<SpatialFilter>},
    {330, &SpatialFilter::owner},
});

// What a page setup says comes first, with some codes that the layout has, too.
constexpr auto kLayout = Fields<Layout>({
    {1, &Layout::name},
    {10, &Layout::limitsMin},
    {11, &Layout::limitsMax},
    {14, &Layout::extentsMin},
    {15, &Layout::extentsMax},
    {40, &Layout::leftMargin},
    {41, &Layout::bottomMargin},
    {42, &Layout::rightMargin},
    {43, &Layout::topMargin},
    {44, &Layout::paperWidth},
    {45, &Layout::paperHeight},
    {46, &Layout::offsetX},
    {47, &Layout::offsetY},
    {48, &Layout::windowLeft},
    {49, &Layout::windowBottom},
    Field<Layout>(70, &Layout::plotFlags).OnlyFirst(),
    {71, &Layout::order},
    {72, &Layout::paperUnits},
    {73, &Layout::quarterTurns},
    {74, &Layout::plotArea},
    {102, SkipGroup<Layout>},
    {140, &Layout::windowRight},
    {141, &Layout::windowTop},
    {142, &Layout::scaledLength},
    {143, &Layout::unscaledLength},
    {330, &Layout::record},
});

bool IsActivePaper(std::string_view block)
{
    constexpr std::size_t kLength = std::string_view("*Paper_Space").size();
    return block.size() == kLength && IsPaperSpaceName(block);
}

} // namespace

void ObjectReader::Read(std::string_view type)
{
    if (type == "DICTIONARY")
        return ReadDictionary();
    if (type == "SORTENTSTABLE")
        return ReadSortTable();
    if (type == "LAYOUT")
        return ReadLayout();
    if (type == "XRECORD")
        return ReadXRecord();
    if (type != "SPATIAL_FILTER")
        return m_reader.SkipFields();
    SpatialFilter filter;
    const std::uint64_t line = m_reader.Line() + 1;
    m_reader.Read(filter, kSpatialFilter);
    m_reader.NoteZeros("SPATIAL_FILTER", line);
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

// Points follow the name of what they are.
void ObjectReader::ReadXRecord()
{
    InvertedClip clip;
    std::vector<Point2>* points = nullptr;
    const std::uint64_t line = m_reader.Line() + 1;
    while (m_reader.NextField()) {
        const std::int32_t code = m_reader.Code();
        if (code == 102) {
            const std::string_view name = m_reader.Word();
            points = name == "ACAD_INVERTEDCLIP_ROUNDTRIP"           ? &clip.boundary
                     : name == "ACAD_INVERTEDCLIP_ROUNDTRIP_COMPARE" ? &clip.compared
                                                                     : nullptr;
            m_reader.SkipGroup();
        } else if (code == 330 && clip.owner == 0) {
            clip.owner = m_reader.ReadHandle(m_reader.Value());
        } else if (code == 10 && points != nullptr) {
            m_reader.Append(*points, Point2{m_reader.Real(m_reader.Value()), 0});
        } else if (code == 20 && points != nullptr && !points->empty()) {
            points->back().y = m_reader.Real(m_reader.Value());
        }
    }
    m_reader.NoteZeros("XRECORD", line);
    if (clip.boundary.size() > 1)
        m_inverted.push_back(std::move(clip));
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

void ObjectReader::ReadLayout()
{
    Layout layout;
    const std::uint64_t line = m_reader.Line() + 1;
    m_reader.Read(layout, kLayout);
    m_reader.NoteZeros("LAYOUT", line);
    layout.name = Trim(layout.name);
    if (!layout.name.empty())
        m_layouts.push_back(std::move(layout));
}

// Of layouts of one name, the first counts.
void ObjectReader::KnowLayouts()
{
    const Drawing& drawing = m_reader.drawing;
    std::set<std::string> names;
    for (Layout& layout : m_layouts) {
        const auto record = drawing.blockOfRecord.find(layout.record);
        const std::string_view block =
            record != drawing.blockOfRecord.end() ? drawing.names.Text(record->second) : std::string_view();
        const std::string key = InSmallLetters(layout.name);
        if (IsModelSpaceName(block) || (key == "model" && block.empty()) || !names.insert(key).second)
            continue;
        layout.isActive = IsActivePaper(block);
        m_reader.drawing.layouts.push_back(std::move(layout));
    }
    std::stable_sort(m_reader.drawing.layouts.begin(), m_reader.drawing.layouts.end(),
                     [](const Layout& a, const Layout& b) { return a.order < b.order; });
}

// Drawings that are older than layouts have a single paper space; those that lost them have their blocks.
void ObjectReader::MakeLayouts()
{
    for (const auto& [name, block] : m_reader.drawing.blocks) {
        if (!IsPaperSpaceName(m_reader.drawing.names.Text(name)))
            continue;
        Layout layout;
        layout.name = "Layout" + std::to_string(m_reader.drawing.layouts.size() + 1);
        layout.record = block->record;
        layout.isActive = IsActivePaper(m_reader.drawing.names.Text(name));
        m_reader.drawing.layouts.push_back(std::move(layout));
    }
}

// 0 if it is not known.
Handle ObjectReader::OwnerOf(Handle dictionary) const
{
    const auto owner = m_owners.find(dictionary);
    return owner != m_owners.end() ? owner->second : 0;
}

// The record belongs to a dictionary of the filter's own. It no longer counts if a program that does not know
// it has given the filter another boundary.
void ObjectReader::KnowInvertedClips()
{
    std::map<Handle, InvertedClip*> clips;
    for (InvertedClip& clip : m_inverted)
        clips.try_emplace(OwnerOf(clip.owner), &clip);
    for (SpatialFilter& filter : m_filters) {
        const auto found = filter.handle != 0 ? clips.find(filter.handle) : clips.end();
        if (found == clips.end())
            continue;
        InvertedClip& clip = *found->second;
        filter.isInverted = clip.compared.empty() || clip.compared.size() == filter.boundary.size();
        if (filter.isInverted)
            filter.boundary = clip.boundary;
    }
}

// A filter belongs to a dictionary of filters, that to a dictionary of the insert's own.
void ObjectReader::KnowFilters()
{
    for (SpatialFilter& filter : m_filters)
        if (const Handle insert = OwnerOf(OwnerOf(filter.owner)); insert != 0)
            m_reader.drawing.filterOfInsert.try_emplace(insert, std::move(filter));
}

void ObjectReader::Finish()
{
    KnowInvertedClips();
    KnowFilters();
    KnowLayouts();
    if (m_reader.drawing.layouts.empty())
        MakeLayouts();
}

} // namespace prepare
