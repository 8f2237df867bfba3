#include "prepare/plain/Converter.h"

#include "prepare/plain/ClipSink.h"
#include "prepare/plain/Curves.h"
#include "prepare/plain/DrawDimension.h"
#include "prepare/plain/DrawEntity.h"
#include "prepare/plain/InsertBoundary.h"
#include "prepare/plain/NothingToSee.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace prepare {

namespace {

// The content of a block is moved to the block's origin if it is farther away than this many times its size:
// coordinates in a block may have single precision.
constexpr double kFarInSizes = 16;

// A POINT's mark where $PDSIZE does not give its size: a share of the drawing's height, as on a screen.
constexpr double kPointOfHeight = 0.05;

constexpr std::int32_t kConstant = 2; // flag of an attribute
constexpr std::int32_t kInvisible = 1;
constexpr std::int32_t kExternal = 4; // flags of a block
constexpr std::int32_t kOverlaid = 8;

bool IsDrawable(const Matrix& matrix)
{
    return IsDrawable(matrix.x) && IsDrawable(matrix.y) && IsDrawable(matrix.z) && IsDrawable(matrix.origin);
}

// Programs take a factor of 0 for 1 in the plane; in z it flattens.
Point3 UsableScale(Point3 scale)
{
    return {scale.x == 0 ? 1 : scale.x, scale.y == 0 ? 1 : scale.y, scale.z};
}

// $XCLIPFRAME: 0 never, 1 always, 2 while it is edited, but not on paper.
bool ShowsBoundaries(const Drawing& drawing)
{
    return drawing.header.Integer("$XCLIPFRAME", 0) == 1;
}

} // namespace

double PointSizeOf(const Drawing& drawing, const Box& extents)
{
    const double size = drawing.header.Real("$PDSIZE", 0);
    if (size > 0)
        return size / 2;
    return (size < 0 ? -size / 100 : kPointOfHeight) * extents.Height() / 2;
}

Converter::Converter(const Drawing& drawing, const Options& options, const ConvertSettings& settings,
                     PlainOutput& output, Report& report)
    : m_drawing(drawing), m_options(options), m_settings(settings), m_output(output), m_report(report),
      m_whole(drawing, options), m_nesting(report),
      m_scale(settings.tolerance, settings.reach, settings.pointSize),
      m_budget(settings.tolerance, settings.sparePointsOfCurves, settings.mostPoints)
{
    m_whole.pointSize = settings.pointSize;
}

void Converter::KnowBlocks(const BlockVariants& variants, const Measure& measure)
{
    m_knownVariants = &variants;
    m_measure = &measure;
}

void Converter::Take(const Entity& entity)
{
    if (!m_drawing.placeInOrder.empty())
        m_output.UsePlace(m_drawing.PlaceOf(entity.handle));
    if (entity.isInPaperSpace == 0)
        Show(entity, m_whole, m_output.Model());
}

void Converter::Show(const Entity& entity, View& view, PlainSink& sink, const ClipSink* cut)
{
    if (!m_styles) {
        m_styles.emplace(m_drawing);
        m_noInsert = m_styles->OfNoInsert();
    }
    m_view = &view;
    m_scale.UsePointSize(view.pointSize);
    Place(entity, {view.matrix, m_noInsert, false, sink, cut});
}

void Converter::CountHidden(NameId layer)
{
    const HiddenLayer why = m_view->layers.WhyHidden(layer).value_or(HiddenLayer::OffOrFrozen);
    ++m_hidden[static_cast<std::size_t>(why)];
}

void Converter::BeginEntity()
{
    ++m_toBeSeen;
    m_report.BeginEntity();
}

void Converter::Finish()
{
    m_report.isBlank = m_report.isBlank || !m_hasVisible;
    m_report.entities += m_toBeSeen;
    for (std::size_t why = 0; why < kHiddenLayers; ++why)
        m_report.hidden[why] += m_hidden[why];
    for (const TypeCount& type : m_rewritten)
        if (const std::string made = TextOf(type.made); !made.empty())
            m_report.Add(Finding::Rewritten, m_drawing.names.Text(type.name), made, type.firstLine,
                         type.count);
}

void Converter::Place(const Entity& entity, const Context& context)
{
    // A window of a layout shows nothing by itself.
    if (entity.isInvisible == 1 || entity.type == EntityType::Viewport || !TakePlace(entity.line))
        return;
    Style style = m_styles->Of(entity, context.insert, context.isInBlock);
    style.lineTypeScale *= m_view->lineTypeScale;
    // What an insert shows is decided by the layers in its block, unless its own is frozen.
    if (entity.type == EntityType::Insert)
        return PlaceInsert(static_cast<const Insert&>(entity), context, style);
    if (!IsShownText(entity, context.isInBlock))
        return;
    if (!m_view->layers.Shows(style.layer))
        return CountHidden(style.layer);
    BeginEntity();
    if (entity.fault != Fault::None)
        return ReportFault(entity);
    m_isEarly = m_isEarly || entity.type == EntityType::MultiLine; // its style comes after the entities
    if (entity.type == EntityType::MText && m_options.profile == Profile::Standard)
        ReportCovered(static_cast<const MText&>(entity));
    if (entity.type == EntityType::Wipeout && m_options.profile == Profile::Standard)
        m_report.Add(Finding::NotShown, "WIPEOUT", "what it covers is drawn", entity.line);
    else if (HasTrait(entity.type, Trait::Plain))
        PlaceOther(entity, context, style);
    else
        PlaceRewritten(entity, context, style);
}

void Converter::ReportFault(const Entity& entity)
{
    m_report.Add(Finding::NotShown, m_drawing.names.Text(entity.typeName), TextOf(entity.fault), entity.line);
}

// A fill in the background's colour should hide what is behind the text; this profile cannot express it.
void Converter::ReportCovered(const MText& text)
{
    constexpr std::int32_t kAsBackground = 2;
    if ((text.fill & kAsBackground) != 0)
        m_report.Add(Finding::Changed, "MTEXT", "what is behind it is drawn", text.line);
}

// An entity of which nothing came, though it should be seen and nobody has said why it is not.
void Converter::ReportEmpty(const Entity& entity, const VisibilitySink& made, std::uint64_t lossesBefore)
{
    m_hasVisible = m_hasVisible || made.IsVisible();
    if (!made.HasSize() && m_report.Losses() == lossesBefore && !HasNothingToSee(entity, m_drawing))
        m_report.Add(Finding::NotShown, m_drawing.names.Text(entity.typeName), kHasNoSize, entity.line);
}

void Converter::PlaceRewritten(const Entity& entity, const Context& context, const Style& style)
{
    CountingSink counted(context.sink, CountRewritten(entity).made);
    const Context counting{context.matrix, context.insert, context.isInBlock, counted, context.cut};
    switch (entity.type) {
    case EntityType::Dimension:
        return PlaceDimension(static_cast<const Dimension&>(entity), counting, style);
    case EntityType::Table:
        return PlaceTable(static_cast<const Table&>(entity), counting, style);
    default:
        return PlaceOther(entity, counting, style);
    }
}

void Converter::PlaceOther(const Entity& entity, const Context& context, const Style& style)
{
    if (entity.type == EntityType::Ray || entity.type == EntityType::XLine)
        AddRayStart(static_cast<const Ray&>(entity), context);
    VisibilitySink made(context.sink);
    const Placement placement = PlacementOf(context, style, made);
    const std::uint64_t coarseBefore = m_budget.curves.CoarseParts(), lossesBefore = m_report.Losses();
    const PartStyler styleOf = [this, &style](const StyleOfPart& part) {
        return m_styles->OfPart(part, style);
    };
    const bool isDrawn = DrawEntity(entity, placement, styleOf);
    if (entity.type == EntityType::MultiLeader)
        PlaceLeaderBlock(static_cast<const MultiLeader&>(entity), context, style);
    if (!isDrawn)
        m_report.Add(Finding::NotShown, m_drawing.names.Text(entity.typeName), "cannot be drawn",
                     entity.line);
    if (made.HasSize() && HasTrait(entity.type, Trait::Dashed))
        ReportLineType(entity, style);
    ReportEmpty(entity, made, lossesBefore);
    ReportCoarse(entity, coarseBefore);
}

void Converter::ReportLineType(const Entity& entity, const Style& style)
{
    const std::string_view type = m_drawing.names.Text(entity.typeName);
    if (style.lineType != nullptr && style.lineType->hasShapes)
        m_report.Add(Finding::Changed, type, "without the texts or shapes of its line type", entity.line);
    if (style.lineType != nullptr || !m_styles)
        return;
    const NameId missing = m_styles->MissingLineType(entity, style.layer);
    if (missing != kNoName)
        m_report.Add(Finding::Changed, type,
                     "its line type " + std::string(m_drawing.names.Text(missing)) +
                         " is missing: a solid line",
                     entity.line);
}

Placement Converter::PlacementOf(const Context& context, const Style& style, PlainSink& sink)
{
    return {m_drawing, context.matrix, style, m_scale, sink, m_report, m_budget};
}

void Converter::ReportCoarse(const Entity& entity, std::uint64_t coarseBefore)
{
    if (m_budget.curves.CoarseParts() > coarseBefore)
        m_report.Add(Finding::Changed, m_drawing.names.Text(entity.typeName),
                     "drawn coarser: the drawing has more curves than can be shown", entity.line);
}

void Converter::AddRayStart(const Ray& ray, const Context& context)
{
    const Point2 start = context.matrix.Flat(ray.start);
    if (std::isfinite(start.x) && std::isfinite(start.y))
        m_rayStarts.Add(start);
}

// In a block the definition of an attribute is a text only if it is constant: of any other an insert has its
// own copy.
bool Converter::IsShownText(const Entity& entity, bool isInBlock) const
{
    if (entity.type != EntityType::AttDef && entity.type != EntityType::Attrib)
        return true;
    const std::int32_t flags = static_cast<const Text&>(entity).flags;
    const std::int32_t mode = m_drawing.header.Integer("$ATTMODE", 1);
    if (mode == 0 || (mode == 1 && (flags & kInvisible) != 0))
        return false;
    return entity.type == EntityType::Attrib || !isInBlock || (flags & kConstant) != 0;
}

void Converter::PlaceInsert(const Insert& insert, const Context& context, const Style& style)
{
    if (m_view->layers.IsFrozen(style.layer))
        return CountHidden(style.layer);
    BeginEntity();
    PlaceAttributes(insert, context, style);
    if (insert.fault != Fault::None)
        return ReportFault(insert);
    const Block* const block = m_drawing.FindBlock(insert.block);
    if (block == nullptr)
        return m_report.Add(Finding::NotShown, "INSERT", "its block is missing", insert.line);
    if ((block->flags & (kExternal | kOverlaid)) != 0 && block->entities.empty())
        return m_report.Add(Finding::NotShown, "INSERT", "it shows another file: " + block->path,
                            insert.line);
    PlaceArray(insert, *block, context, style);
}

// Rows and columns are turned with the insert, but not scaled. Each place has the attributes, too.
void Converter::PlaceArray(const Insert& insert, const Block& block, const Context& context,
                           const Style& style)
{
    const Matrix place = context.matrix * FromObject(insert.extrusion) * Moved(insert.point) *
                         Turned(Radians(insert.rotation));
    const Matrix shape = Scaled(UsableScale(insert.scale)) * Moved(-1 * block.base);
    const SpatialFilter* const filter = m_drawing.FindFilter(insert.handle);
    const std::int32_t rows = std::max(insert.rows, 1), columns = std::max(insert.columns, 1);
    const bool mayUse = MayUse(block, place * shape, insert.line); // said once of all places
    for (std::int32_t row = 0; row < rows; ++row)
        for (std::int32_t column = 0; column < columns; ++column) {
            if (row + column > 0 && !TakePlace(insert.line))
                return;
            const Point3 step{column * insert.columnSpacing, row * insert.rowSpacing, 0};
            if (row + column > 0)
                PlaceAttributes(insert, MovedBy(step, insert, context), style);
            const Matrix placement = place * Moved(step) * shape;
            if (!mayUse)
                continue;
            if (filter != nullptr)
                DrawCut(insert, *filter, block, placement, context, style);
            else
                UseBlock(block, placement, context, style, insert.line);
        }
}

// A box in the place of an inverted boundary would hide what is to be seen.
bool Converter::MayCut(const Insert& insert, const SpatialFilter& filter, const ClipRegion& region)
{
    if (region.IsEmpty())
        m_report.Add(Finding::Changed, "INSERT", kNotCutByNothing, insert.line);
    else if (region.IsReplaced())
        m_report.Add(Finding::Changed, "INSERT", filter.isInverted ? kNotCutByRing : kCutAlongBox,
                     insert.line);
    return !region.IsEmpty() && !(region.IsReplaced() && filter.isInverted);
}

void Converter::DrawCut(const Insert& insert, const SpatialFilter& filter, const Block& block,
                        const Matrix& placement, const Context& context, const Style& style)
{
    const ClipRegion region(BoundaryOf(filter, placement), filter.isInverted);
    if (!IsDrawable(placement) || !MayCut(insert, filter, region))
        return UseBlock(block, placement, context, style, insert.line);
    if (!m_nesting.MayEnter(block, insert.line))
        return;
    m_budget.Take(region.Corners().size());
    const ClipSink* const outer = context.cut;
    ClipSink sink(region, m_budget, context.sink, outer);
    DrawContents(block, {placement, style, true, sink, &sink});
    if (!ShowsBoundaries(m_drawing))
        return;
    std::vector<PlainVertex> frame;
    for (const Point2 corner : region.Corners())
        frame.push_back({corner, 0});
    context.sink.Polyline(style, frame, true);
}

Converter::Context Converter::MovedBy(Point3 step, const Insert& insert, const Context& context)
{
    const Point3 turned = (FromObject(insert.extrusion) * Turned(Radians(insert.rotation))).Direction(step);
    return {context.matrix * Moved(turned), context.insert, context.isInBlock, context.sink, context.cut};
}

// Attributes stand in the insert's space, but layer 0 and by block mean the insert's, as in its block.
void Converter::PlaceAttributes(const Insert& insert, const Context& context, const Style& style)
{
    const Context its{context.matrix, style, true, context.sink, context.cut};
    for (const auto& attribute : insert.attributes)
        Place(*attribute, its);
}

// The block of a dimension holds what its author saw, in the coordinates of the dimension's own space.
void Converter::PlaceDimension(const Dimension& dimension, const Context& context, const Style& style)
{
    const Block* const block = m_drawing.FindBlock(dimension.block);
    if (m_options.redrawsDimensions || block == nullptr || block->entities.empty())
        return RedrawDimension(dimension, context, style);
    if (!m_nesting.MayEnter(*block, dimension.line))
        return;
    const Matrix place = context.matrix * FromObject(dimension.extrusion) * Moved(dimension.insertion);
    const Matrix matrix = dimension.insertion == Point3{} ? context.matrix : place;
    DrawContents(*block, {matrix * Moved(-1 * block->base), style, true, context.sink, context.cut});
}

void Converter::RedrawDimension(const Dimension& dimension, const Context& context, const Style& style)
{
    const PartStyler styleOf = [this, &style](const StyleOfPart& part) {
        return m_styles->OfPart(part, style);
    };
    VisibilitySink made(context.sink);
    const Context within{context.matrix, context.insert, context.isInBlock, made, context.cut};
    const std::uint64_t lossesBefore = m_report.Losses();
    const BlockPlacer placeBlock = [&](const Block& block, const Matrix& matrix, const Style& ofPart) {
        if (TakePlace(dimension.line))
            UseBlock(block, matrix, within, ofPart, dimension.line);
    };
    DrawDimension(dimension, PlacementOf(within, style, made), styleOf, placeBlock);
    ReportEmpty(dimension, made, lossesBefore);
}

void Converter::PlaceTable(const Table& table, const Context& context, const Style& style)
{
    const Block* const block = m_drawing.FindBlock(table.block);
    if (block == nullptr || block->entities.empty())
        return PlaceOther(table, context, style);
    if (!m_nesting.MayEnter(*block, table.line))
        return;
    const double rotation = std::atan2(table.direction.y, table.direction.x);
    const Matrix matrix = context.matrix * FromObject(table.extrusion) * Moved(table.point) *
                          Turned(rotation) * Moved(-1 * block->base);
    DrawContents(*block, {matrix, style, true, context.sink, context.cut});
}

void Converter::PlaceLeaderBlock(const MultiLeader& leader, const Context& context, const Style& style)
{
    constexpr std::int32_t kBlockContent = 1;
    if (leader.contentType != kBlockContent)
        return;
    const auto name = m_drawing.blockOfRecord.find(leader.blockHandle);
    const Block* const block =
        name != m_drawing.blockOfRecord.end() ? m_drawing.FindBlock(name->second) : nullptr;
    if (block == nullptr)
        return m_report.Add(Finding::NotShown, "MULTILEADER", "its block is missing", leader.line);
    const Matrix matrix = context.matrix * FromObject(leader.extrusion) * Moved(leader.blockPoint) *
                          Turned(leader.blockRotation) * Scaled(UsableScale(leader.blockScale)) *
                          Moved(-1 * block->base);
    UseBlock(*block, matrix, context, style, leader.line);
    if (IsDrawable(matrix))
        PlaceLeaderAttributes(leader, {matrix, style, true, context.sink, context.cut});
}

void Converter::PlaceLeaderAttributes(const MultiLeader& leader, const Context& ofBlock)
{
    for (const LeaderAttribute& attribute : leader.attributes) {
        const Text* const definition =
            attribute.text.empty() ? nullptr : FindDefinition(attribute.definition);
        if (definition == nullptr || !TakePlace(leader.line))
            continue;
        Text text = *definition;
        text.type = EntityType::Attrib;
        text.line = leader.line;
        text.text = attribute.text;
        Place(text, ofBlock);
    }
}

// The definition of an attribute in any block. All are found at once, since leaders name them by handle.
const Text* Converter::FindDefinition(Handle handle)
{
    if (!m_definitions) {
        m_definitions.emplace();
        for (const auto& [name, block] : m_drawing.blocks)
            for (const auto& entity : block->entities)
                if (entity->type == EntityType::AttDef)
                    m_definitions->try_emplace(entity->handle, static_cast<const Text*>(entity.get()));
    }
    const auto found = m_definitions->find(handle);
    return handle != 0 && found != m_definitions->end() ? found->second : nullptr;
}

bool Converter::MayUse(const Block& block, const Matrix& placement, std::uint64_t line)
{
    if (!IsDrawable(placement)) {
        m_report.Add(Finding::NotShown, "INSERT", "its place is no number", line);
        return false;
    }
    return block.entities.empty() || m_nesting.MayEnter(block, line);
}

// A block with rays is drawn in place: how far they reach depends on where they are. So is what is cut
// across.
void Converter::UseBlock(const Block& block, const Matrix& placement, const Context& context,
                         const Style& style, std::uint64_t line)
{
    if (!MayUse(block, placement, line) || block.entities.empty())
        return;
    if (TraitsOf(block).hasRays)
        return DrawContents(block, {placement, style, true, context.sink, context.cut});
    const SplitPlacement split = Split(placement);
    const VariantKey key(block, split, TraitsOf(block).inherits, style, m_view->number);
    m_isEarly = m_isEarly || (context.cut != nullptr && m_measure == nullptr);
    const ClipSide side = context.cut != nullptr ? SideOf(key, split, *context.cut) : ClipSide::Inside;
    if (side == ClipSide::Outside)
        return;
    if (side == ClipSide::Across)
        return DrawContents(block, {placement, style, true, context.sink, context.cut});
    const BlockVariant* const variant = VariantOf(key, split, style);
    Point2 origin = variant->origin;
    if (split.isMirrored)
        origin.y = -origin.y;
    const double cosine = std::cos(split.rotation), sine = std::sin(split.rotation);
    const Point2 turned{cosine * origin.x - sine * origin.y, sine * origin.x + cosine * origin.y};
    PlainSink& sink = context.cut != nullptr ? context.cut->Uncut() : context.sink;
    sink.Insert(variant->number, split.point + turned, split.rotation, split.isMirrored);
}

// Every variant is complete before it is used.
const BlockVariant* Converter::VariantOf(const VariantKey& key, const SplitPlacement& split,
                                         const Style& style)
{
    const Block& block = *key.block;
    const auto [place, isNew] = m_variants.Add(key);
    BlockVariant& variant = *place;
    if (!isNew)
        return &variant;
    variant.origin = OriginOf(key);
    variant.number = static_cast<std::uint32_t>(m_output.NewBlock(m_drawing.names.Text(block.name)));
    const Matrix matrix = Moved({-variant.origin.x, -variant.origin.y, 0}) * split.baked;
    DrawContents(block, {matrix, style, true, m_output.Block(variant.number)});
    m_output.EndBlock(variant.number);
    return &variant;
}

// Where the use of a block is, as far as it was measured. What is not known may be anywhere.
ClipSide Converter::SideOf(const VariantKey& key, const SplitPlacement& split, const ClipSink& cut) const
{
    constexpr double kHullMisses = 1.0 / 50; // of its size, where it is turned
    if (m_measure == nullptr)
        return ClipSide::Across;
    const BlockVariant* const known = m_knownVariants->Find(key);
    const std::span<const Point2> points =
        known == nullptr ? std::span<const Point2>() : m_measure->OfBlock(known->number).Points();
    if (points.empty())
        return ClipSide::Across;
    const double cosine = std::cos(split.rotation), sine = std::sin(split.rotation);
    Box box;
    for (Point2 point : points) {
        if (split.isMirrored)
            point.y = -point.y;
        box.Add(split.point + Point2{cosine * point.x - sine * point.y, sine * point.x + cosine * point.y});
    }
    const double more = kHullMisses * box.LongerSide();
    box.Add(box.min - Point2{more, more});
    box.Add(box.max + Point2{more, more});
    return cut.SideOf(box);
}

Point2 Converter::OriginOf(const VariantKey& key) const
{
    const BlockVariant* const known = m_measure == nullptr ? nullptr : m_knownVariants->Find(key);
    return known == nullptr ? Point2{} : OriginOf(m_measure->OfBlock(known->number));
}

Point2 Converter::OriginOf(const MeasuredBlock& block)
{
    const Box box = block.Bounds();
    if (box.IsEmpty())
        return {};
    const Point2 centre = 0.5 * (box.min + box.max);
    return Length(centre) > kFarInSizes * box.LongerSide() ? centre : Point2{};
}

void Converter::DrawContents(const Block& block, const Context& context)
{
    m_nesting.Enter(block);
    for (const auto& entity : block.entities)
        Place(*entity, context);
    m_nesting.Leave();
}

bool Converter::HasNeededNothing() const
{
    return !m_isEarly && !m_isCut && !m_budget.IsSpent() && !m_scale.WasAsked() &&
           !m_budget.curves.WasAsked();
}

bool Converter::AreBlocksFinal(const Measure& measure) const
{
    return m_variants.AreAll([&](const BlockVariant& variant) {
        return OriginOf(measure.OfBlock(variant.number)) == variant.origin;
    });
}

bool Converter::TakePlace(std::uint64_t line)
{
    const bool isSpent = m_budget.IsSpent();
    if (!isSpent && m_placed < m_settings.mostPlaced) {
        ++m_placed;
        return true;
    }
    if (std::exchange(m_isCut, true))
        return false;
    m_report.Add(Finding::Cut, "drawing",
                 isSpent ? "it has more in it than can be shown" : "its blocks and arrays unfold too far",
                 line);
    return false;
}

const Converter::BlockTraits& Converter::TraitsOf(const Block& block)
{
    const auto [place, isNew] = m_traits.try_emplace(&block);
    BlockTraits& traits = place->second;
    if (isNew)
        for (const auto& entity : block.entities) {
            // The styles are made before the first entity is drawn.
            const StyleResolver& styles = *m_styles; // NOLINT(bugprone-unchecked-optional-access)
            traits.inherits = traits.inherits || styles.InheritsFromInsert(*entity);
            traits.hasRays =
                traits.hasRays || entity->type == EntityType::Ray || entity->type == EntityType::XLine;
        }
    return traits;
}

Converter::TypeCount& Converter::CountRewritten(const Entity& entity)
{
    TypeCount& type = m_rewritten[static_cast<std::size_t>(entity.type)];
    if (type.count++ == 0) {
        type.firstLine = entity.line;
        type.name = entity.typeName;
    }
    return type;
}

} // namespace prepare
