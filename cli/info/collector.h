// Counts what the pairs of a drawing tell.
#ifndef PLEXORN_CLI_INFO_COLLECTOR_H
#define PLEXORN_CLI_INFO_COLLECTOR_H

#include "cli/info/drawing.h"
#include "cli/info/scanner.h"

namespace plexorn {

// Takes a drawing's pairs in their order.
class CCollector {
public:
    CCollector(DrawingInfo& info, bool withTexts) : m_info(info), m_header(info.header), m_bTexts(withTexts)
    {
    }

    // False when the drawing has come to its end mark.
    bool Take(const CPairScanner& pair);
    // To be called once, after the last pair.
    void Finish() { EndRecord(); }

private:
    enum class Section { None, Named, Header, Tables, Blocks, Entities, Other };
    enum class Record { None, Layer, LineType, BlockRecord, Block, Entity };

    bool Begin(std::string_view name, std::uint64_t line);
    void BeginEntry(std::string_view name);
    void BeginEntity(std::string_view name);
    bool NeedsMarker() const;
    void EndRecord();
    void EndLayer();
    void EndLineType();
    void EndBlockHeader();
    void EndEntity();
    void KeepText();
    void TakeValue(int code, std::string_view value, std::uint64_t line);
    void TakeEntry(int code, std::string_view value);
    void TakeEntity(int code, std::string_view value);
    bool HasTexts() const;
    void CheckText(std::string_view value, std::uint64_t line);

    DrawingInfo& m_info;
    CHeaderReader m_header;
    bool m_bTexts;
    Section m_section = Section::None;
    Record m_record = Record::None;
    bool m_bInBlock = false;
    std::string m_strBlock; // the block that is open

    // What the record that is read has told until now.
    std::string m_strType;
    std::uint64_t m_nLine = 0;
    std::string m_strName;
    std::string m_strLayer;
    std::string m_strLineType;
    std::string m_strText;
    LayerInfo m_layer;
    LineTypeInfo m_lineType;
    bool m_bHidden = false;
    bool m_bMarked = false;
};

} // namespace plexorn

#endif
