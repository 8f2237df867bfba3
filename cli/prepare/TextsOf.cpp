#include "cli/prepare/TextsOf.h"

#include "cli/prepare/PrepareOptionsFor.h"
#include "cli/prepare/RewoundFile.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/TextWords.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plexorn {

namespace {

class TextSink final : public prepare::EntitySink {
public:
    explicit TextSink(const prepare::Drawing& drawing) : m_drawing(drawing) {}

    void Take(const prepare::Entity& entity) override { Add(entity, {}); }
    void Forget() { m_texts.clear(); }

    void AddBlocks()
    {
        for (const auto& [name, block] : m_drawing.blocks)
            if (!block->isLayout) // their entities come as the drawing's
                for (const auto& entity : block->entities)
                    Add(*entity, m_drawing.names.Text(name));
    }

    std::vector<TextInfo> InOrder()
    {
        std::stable_sort(m_texts.begin(), m_texts.end(),
                         [](const TextInfo& a, const TextInfo& b) { return a.line < b.line; });
        return std::move(m_texts);
    }

private:
    void Add(const prepare::Entity& entity, std::string_view block)
    {
        if (entity.type == prepare::EntityType::Insert)
            for (const auto& attribute : static_cast<const prepare::Insert&>(entity).attributes)
                AddOne(*attribute, block);
        else
            AddOne(entity, block);
    }

    void AddOne(const prepare::Entity& entity, std::string_view block)
    {
        prepare::RawText raw = prepare::RawTextOf(entity);
        if (raw.text.empty())
            return;
        TextInfo text;
        text.type = m_drawing.names.Text(entity.typeName);
        text.layer = m_drawing.names.Text(entity.layer);
        text.block = block;
        text.line = entity.line;
        text.words = prepare::PlainWordsOf(raw, m_drawing);
        text.text = std::move(raw.text);
        if (std::isfinite(raw.place.x) && std::isfinite(raw.place.y))
            text.place = HeaderPoint{raw.place.x, raw.place.y};
        m_texts.push_back(std::move(text));
    }

    const prepare::Drawing& m_drawing;
    std::vector<TextInfo> m_texts;
};

// False when the code page became known only after texts had been read without it; header names it then.
// That happens once at most.
bool ReadTexts(RewoundFile& input, const std::string& encoding, prepare::Header& header,
               std::vector<TextInfo>& found)
{
    prepare::Drawing drawing;
    drawing.header = std::move(header);
    prepare::Report report;
    TextSink texts(drawing);
    bool hasFailed = false;
    const bool hasMetAll = prepare::ReadIndex(input.Rewound(), encoding, drawing, &texts, report, hasFailed);
    if (!hasMetAll && !hasFailed) {
        texts.Forget();
        prepare::ReadEntities(input.Rewound(), encoding, drawing, texts, hasFailed);
    }
    if (hasFailed)
        input.ThrowFailure();
    prepare::GuessCodePage(drawing);
    if (prepare::MustReadAgain(drawing, encoding)) {
        header = std::move(drawing.header);
        return false;
    }
    texts.AddBlocks();
    found = texts.InOrder();
    return true;
}

} // namespace

std::vector<TextInfo> TextsOf(Source& source, const Options& options)
{
    RewoundFile input(source);
    prepare::Header header;
    std::vector<TextInfo> texts;
    while (!ReadTexts(input, PrepareOptionsFor(options).encoding, header, texts)) {
    }
    return texts;
}

} // namespace plexorn
