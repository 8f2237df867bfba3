// Turns a drawing's entities into plain ones.
#pragma once

#include "prepare/Options.h"
#include "prepare/plain/BlockNesting.h"
#include "prepare/plain/BlockVariants.h"
#include "prepare/plain/Budget.h"
#include "prepare/plain/ClipSink.h"
#include "prepare/plain/CountingSink.h"
#include "prepare/plain/LayerChoice.h"
#include "prepare/plain/Measure.h"
#include "prepare/plain/Placement.h"
#include "prepare/plain/StyleResolver.h"
#include "prepare/plain/VisibilitySink.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace prepare {

struct ConvertSettings {
    double tolerance = 1; // of flattened curves, in drawing units
    Box reach;            // of the whole drawing without rays; empty while it is not known
    double pointSize = 0; // half the size of a POINT's mark
    // How many entities may be placed, those in blocks counted for each variant of their block. A drawing
    // that a program wrote has more than eight bytes for each.
    std::uint64_t mostPlaced = UINT64_MAX;
    // As a budget has them.
    std::uint64_t sparePointsOfCurves = UINT64_MAX;
    std::uint64_t mostPoints = UINT64_MAX;
};

// Half the size of a POINT's mark. $PDSIZE is a length when it is above 0, else percents of the view's
// height.
double PointSizeOf(const Drawing& drawing, const Box& extents);

// A way in which entities are seen. frozen, which may be null, has the layers that are frozen there.
struct View {
    View(const Drawing& drawing, const Options& options, const std::set<NameId>* frozen = nullptr)
        : layers(drawing, options, frozen)
    {
    }

    Matrix matrix; // from the world to the output's plane
    LayerChoice layers;
    double lineTypeScale = 1; // of all line types, in the output's units
    double pointSize = 0;     // as ConvertSettings has it
    std::size_t number = 0;   // views of equal numbers show the same of a block
};

// Takes the entities of the model space and gives plain ones to the output. The drawing must be complete when
// the first entity comes.
class Converter final : public EntitySink {
public:
    Converter(const Drawing& drawing, const Options& options, const ConvertSettings& settings,
              PlainOutput& output, Report& report);

    // Blocks whose content is far from their origin are made around it: known from converting the same
    // drawing into a measure before. Both must outlive this.
    void KnowBlocks(const BlockVariants& variants, const Measure& measure);

    void Take(const Entity& entity) override;
    // Shows an entity of any space as view says, in sink, which is that of the model or a block of the
    // output, or cut, which ends in one of these.
    void Show(const Entity& entity, View& view, PlainSink& sink, const ClipSink* cut = nullptr);
    // Whether more entities may be placed.
    bool HasRoom() const { return m_placed < m_settings.mostPlaced && !m_budget.IsSpent(); }
    // The points that all it shows may have. What cuts things off for it takes points from here, too.
    Budget& Room() { return m_budget; }

    // Reports what was counted. To be called once, after the last entity.
    void Finish();

    // Whether nothing that was made so far depends on what is known only once all has been read, such as the
    // size of the drawing.
    bool HasNeededNothing() const;
    // The same of all blocks, once measure has all that was made.
    bool AreBlocksFinal(const Measure& measure) const;

    const BlockVariants& Variants() const { return m_variants; }
    // Around the points where rays start, wherever they reach.
    const Box& RayStarts() const { return m_rayStarts; }

private:
    // Where entities are placed.
    struct Context {
        Matrix matrix; // from their world or block coordinates to the sink's plane
        Style insert;
        bool isInBlock = false;
        PlainSink& sink;
        const ClipSink* cut = nullptr; // what the sink cuts off; null: nothing
    };
    struct BlockTraits {
        bool inherits = false;
        bool hasRays = false;
    };
    // The entities of a type, and what they became.
    struct TypeCount {
        std::uint64_t count = 0;
        std::uint64_t firstLine = 0;
        NameId name = kNoName;
        PlainCounts made{};
    };

    void Place(const Entity& entity, const Context& context);
    void ReportFault(const Entity& entity);
    void ReportCovered(const MText& text);
    void ReportEmpty(const Entity& entity, const VisibilitySink& made, std::uint64_t lossesBefore);
    void PlaceRewritten(const Entity& entity, const Context& context, const Style& style);
    void AddRayStart(const Ray& ray, const Context& context);
    void PlaceOther(const Entity& entity, const Context& context, const Style& style);
    void PlaceInsert(const Insert& insert, const Context& context, const Style& style);
    void PlaceArray(const Insert& insert, const Block& block, const Context& context, const Style& style);
    static Context MovedBy(Point3 step, const Insert& insert, const Context& context);
    void PlaceAttributes(const Insert& insert, const Context& context, const Style& style);
    void PlaceDimension(const Dimension& dimension, const Context& context, const Style& style);
    void RedrawDimension(const Dimension& dimension, const Context& context, const Style& style);
    void PlaceTable(const Table& table, const Context& context, const Style& style);
    void PlaceLeaderBlock(const MultiLeader& leader, const Context& context, const Style& style);
    void PlaceLeaderAttributes(const MultiLeader& leader, const Context& ofBlock);
    const Text* FindDefinition(Handle handle);
    bool MayCut(const Insert& insert, const SpatialFilter& filter, const ClipRegion& region);
    void DrawCut(const Insert& insert, const SpatialFilter& filter, const Block& block,
                 const Matrix& placement, const Context& context, const Style& style);
    bool MayUse(const Block& block, const Matrix& placement, std::uint64_t line);
    void UseBlock(const Block& block, const Matrix& placement, const Context& context, const Style& style,
                  std::uint64_t line);
    void DrawContents(const Block& block, const Context& context);
    const BlockVariant* VariantOf(const VariantKey& key, const SplitPlacement& split, const Style& style);
    ClipSide SideOf(const VariantKey& key, const SplitPlacement& split, const ClipSink& cut) const;
    Point2 OriginOf(const VariantKey& key) const;
    static Point2 OriginOf(const MeasuredBlock& block);
    bool TakePlace(std::uint64_t line);
    Placement PlacementOf(const Context& context, const Style& style, PlainSink& sink);
    void ReportLineType(const Entity& entity, const Style& style);
    void ReportCoarse(const Entity& entity, std::uint64_t coarseBefore);
    bool IsShownText(const Entity& entity, bool isInBlock) const;
    const BlockTraits& TraitsOf(const Block& block);
    TypeCount& CountRewritten(const Entity& entity);
    void CountHidden(NameId layer);
    void BeginEntity();

    const Drawing& m_drawing;
    const Options& m_options;
    const ConvertSettings m_settings;
    PlainOutput& m_output;
    Report& m_report;
    View m_whole;
    View* m_view = &m_whole;
    std::optional<std::map<Handle, const Text*>>
        m_definitions;                     // ATTDEFs of blocks, made for the first leader
    std::optional<StyleResolver> m_styles; // made with the first entity: the tables are complete then
    Style m_noInsert;
    BlockVariants m_variants;
    const BlockVariants* m_knownVariants = nullptr;
    const Measure* m_measure = nullptr;
    std::map<const Block*, BlockTraits> m_traits;
    BlockNesting m_nesting;
    Box m_rayStarts;
    std::uint64_t m_placed = 0;
    DrawingScale m_scale;
    Budget m_budget;
    bool m_isCut = false;
    bool m_isEarly = false;    // something may have lacked what is known only once all has been read
    bool m_hasVisible = false; // something of it can be seen
    std::uint64_t m_toBeSeen = 0;
    std::array<std::uint64_t, kHiddenLayers> m_hidden{};
    std::array<TypeCount, static_cast<std::size_t>(EntityType::Other) + 1> m_rewritten;
};

} // namespace prepare
