#include "cli/prepare/Texts.h"

#include "cli/prepare/PrepareOptions.h"
#include "cli/prepare/RewoundFile.h"
#include "prepare/drawing/ReadDrawing.h"
#include "prepare/plain/Matrix.h"
#include "prepare/plain/TextWords.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace plexorn {

namespace {

using prepare::EntityType;
using prepare::Point3;

// Where a text is, in the coordinates of the drawing or of its block.
Point3 PlaceOf(const prepare::Entity& entity)
{
    switch (entity.type) {
    case EntityType::Text:
    case EntityType::Attrib:
    case EntityType::AttDef:
        return prepare::FromObject(entity.extrusion).Apply(static_cast<const prepare::Text&>(entity).point);
    case EntityType::Dimension:
        return prepare::FromObject(entity.extrusion)
            .Apply(static_cast<const prepare::Dimension&>(entity).textPoint);
    case EntityType::MText:
        return static_cast<const prepare::MText&>(entity).point;
    case EntityType::MultiLeader:
        return static_cast<const prepare::MultiLeader&>(entity).textPoint;
    case EntityType::Tolerance:
        return static_cast<const prepare::Tolerance&>(entity).point;
    case EntityType::Table:
        return static_cast<const prepare::Table&>(entity).point;
    default:
        return {};
    }
}

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
        if (entity.type == EntityType::Insert)
            for (const auto& attribute : static_cast<const prepare::Insert&>(entity).attributes)
                AddOne(*attribute, block);
        else
            AddOne(entity, block);
    }

    void AddOne(const prepare::Entity& entity, std::string_view block)
    {
        std::string raw = prepare::RawTextOf(entity);
        if (raw.empty())
            return;
        TextInfo text;
        text.type = m_drawing.names.Text(entity.typeName);
        text.layer = m_drawing.names.Text(entity.layer);
        text.block = block;
        text.text = std::move(raw);
        text.line = entity.line;
        text.words = prepare::PlainWordsOf(entity, m_drawing);
        const Point3 place = PlaceOf(entity);
        if (std::isfinite(place.x) && std::isfinite(place.y))
            text.place = HeaderPoint{place.x, place.y};
        m_texts.push_back(std::move(text));
    }

    const prepare::Drawing& m_drawing;
    std::vector<TextInfo> m_texts;
};

} // namespace

std::vector<TextInfo> TextsOf(Source& source, const Options& options)
{
    const std::string encoding = PrepareOptionsFor(options).encoding;
    RewoundFile input(source);
    prepare::Drawing drawing;
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
    texts.AddBlocks();
    return texts.InOrder();
}

} // namespace plexorn
