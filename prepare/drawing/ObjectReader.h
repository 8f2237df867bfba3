// Reads what objects say about entities: where inserts are cut off, the order of drawing, and the sheets.
#pragma once

#include "prepare/drawing/RecordReader.h"

#include <map>
#include <string_view>
#include <vector>

namespace prepare {

// Collects objects, of which each knows only its owner.
class ObjectReader {
public:
    explicit ObjectReader(RecordReader& reader) : m_reader(reader) {}

    // Reads an object whose type's name is the current pair, up to the next record.
    void Read(std::string_view type);
    // Enters into the drawing what was read. Call it once, after the last object.
    void Finish();

private:
    // A boundary around which an insert is shown. Programs that cannot invert a boundary keep this record
    // with a filter whose own boundary (compared) shows about the same.
    struct InvertedClip {
        std::vector<Point2> boundary;
        std::vector<Point2> compared;
        Handle owner = 0;
    };

    void ReadDictionary();
    void ReadXRecord();
    void ReadSortTable();
    void ReadLayout();
    Handle OwnerOf(Handle dictionary) const;
    void KnowInvertedClips();
    void KnowFilters();
    void KnowLayouts();
    void MakeLayouts();

    RecordReader& m_reader;
    std::map<Handle, Handle> m_owners; // of dictionaries
    std::vector<SpatialFilter> m_filters;
    std::vector<InvertedClip> m_inverted;
    std::vector<Layout> m_layouts;
};

} // namespace prepare
