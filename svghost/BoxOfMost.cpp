#include "svghost/BoxOfMost.h"

#include "svghost/Bounds.h"
#include "svghost/SvgHostDocument.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

namespace svghost {

namespace {

// The box of an element, or of a symbol that is drawn small.
struct Piece {
    float left, top, right, bottom;
    bool isLittle; // a few elements at most

    float Weight() const { return (right - left) + (bottom - top); }
    float CentreX() const { return left / 2 + right / 2; }
    float CentreY() const { return top / 2 + bottom / 2; }
    // How far its farthest side is from the point.
    float Reach(float x, float y) const { return std::max({x - left, right - x, y - top, bottom - y}); }
};

Box BoxOf(const Piece& piece)
{
    Box box;
    box.Add({piece.left, piece.top});
    box.Add({piece.right, piece.bottom});
    return box;
}

bool Holds(const Box& box, const Piece& piece)
{
    return piece.left >= box.Low().x && piece.top >= box.Low().y && piece.right <= box.High().x &&
           piece.bottom <= box.High().y;
}

// Whether the element is the dot of a point: a level line as long as its stroke is wide. Coordinates are
// rounded.
bool IsDot(const Node& node, const Extent& extent)
{
    constexpr double kRounding = 0.05;
    if (node.kind != Kind::Line || extent.bare.IsEmpty() || extent.bare.Low().y != extent.bare.High().y)
        return false;
    return std::fabs(LongerSide(extent.bare) - extent.width) <= extent.width * kRounding;
}

Box CentreOf(const Box& box)
{
    Box centre;
    centre.Add({box.Low().x / 2 + box.High().x / 2, box.Low().y / 2 + box.High().y / 2});
    return centre;
}

// Takes the drawing to pieces. A symbol that takes much of the picture is taken to pieces as well, as long as
// not much more comes of it than the document has elements.
class Collection {
public:
    explicit Collection(const SvgHostDocument& document)
        : m_document(document), m_large(LongerSide(document.root.bare) / 8),
          m_room(document.elements + kRoomAnyhow)
    {
    }

    std::vector<Piece> Run()
    {
        m_waiting.push_back({&m_document.root, Affine()});
        while (!m_waiting.empty()) {
            const Placed next = m_waiting.back();
            m_waiting.pop_back();
            TakeApart(next);
        }
        return std::move(m_pieces);
    }

private:
    static constexpr std::size_t kRoomAnyhow = 1000;

    struct Placed {
        const Symbol* symbol;
        Affine map;
    };

    void TakeApart(const Placed& placed)
    {
        int hiddenGroups = 0;
        Walk(
            *placed.symbol,
            [&](const Node& node) {
                m_room -= m_room > 0;
                if (node.kind == Kind::Group)
                    hiddenGroups += node.isHidden;
                else if (!node.isLeftOut && !node.isHidden && hiddenGroups == 0)
                    Add(node, placed.map);
            },
            [&](const Container& group) { hiddenGroups -= group.isHidden; });
    }

    void Add(const Node& node, const Affine& map)
    {
        const Extent extent = ExtentOf(m_document, node);
        Box box;
        box.Add(IsDot(node, extent) ? CentreOf(extent.bare) : extent.bare, map);
        if (box.IsEmpty())
            return;
        const Symbol* target =
            node.kind == Kind::Use ? static_cast<const Use&>(node).target->definition : nullptr;
        if (target && m_room > 0 && LongerSide(box) > m_large)
            m_waiting.push_back({target, Product(map, TransformOf(node))});
        else
            m_pieces.push_back({static_cast<float>(box.Low().x), static_cast<float>(box.Low().y),
                                static_cast<float>(box.High().x), static_cast<float>(box.High().y),
                                !target || target->rendered <= kStrayElements});
    }

    const SvgHostDocument& m_document;
    double m_large; // the longer side beyond which a symbol is taken apart
    std::size_t m_room;
    std::vector<Placed> m_waiting;
    std::vector<Piece> m_pieces;
};

// A number whose order is that of the float.
std::uint32_t KeyOf(float number)
{
    const auto bits = std::bit_cast<std::uint32_t>(number);
    return bits >> 31 ? ~bits : bits | 0x80000000U;
}

float NumberOf(std::uint32_t key)
{
    return std::bit_cast<float>(key >> 31 ? key & 0x7fffffffU : ~key);
}

class Weighing {
public:
    explicit Weighing(const std::vector<Piece>& pieces) : m_pieces(pieces)
    {
        for (const Piece& piece : pieces)
            m_total += static_cast<double>(piece.Weight());
        m_hasExtent = m_total > 0;
        if (!m_hasExtent)
            m_total = static_cast<double>(pieces.size());
    }

    // The smallest value up to which that share of the weight lies; byte by byte of the values' keys.
    template <class Value>
    float Quantile(double share, const Value& valueOf) const
    {
        double rest = share * m_total;
        std::uint32_t prefix = 0;
        for (int shift = 24; shift >= 0; shift -= 8) {
            std::array<double, 256> weights{};
            for (const Piece& piece : m_pieces) {
                const std::uint32_t key = KeyOf(valueOf(piece));
                if ((std::uint64_t{key} >> (shift + 8)) == prefix)
                    weights[key >> shift & 255] += WeightOf(piece);
            }
            prefix = prefix << 8 | ByteOf(weights, rest);
        }
        return NumberOf(prefix);
    }

private:
    double WeightOf(const Piece& piece) const
    {
        return m_hasExtent ? static_cast<double>(piece.Weight()) : 1;
    }

    // Where rest is used up; what is left of it then. By rounding, a little may be left at the end.
    static std::uint32_t ByteOf(const std::array<double, 256>& weights, double& rest)
    {
        std::uint32_t last = 0;
        for (std::uint32_t byte = 0; byte < weights.size(); ++byte) {
            if (weights[byte] == 0)
                continue;
            last = byte;
            if (weights[byte] >= rest)
                break;
            rest -= weights[byte];
        }
        return last;
    }

    const std::vector<Piece>& m_pieces;
    double m_total = 0;
    bool m_hasExtent = false; // otherwise each piece has the same weight
};

// The greatest reach of the pieces, except for that of a single one that is small against the others and has
// few elements.
float ReachWithoutStray(const std::vector<Piece>& pieces, float x, float y)
{
    const auto reachOf = [&](const Piece& piece) { return piece.Reach(x, y); };
    const auto farthest = std::max_element(pieces.begin(), pieces.end(), [&](const Piece& a, const Piece& b) {
        return reachOf(a) < reachOf(b);
    });
    Box others;
    float reach = 0;
    for (const Piece& piece : pieces) {
        if (&piece == &*farthest)
            continue;
        others.Add(BoxOf(piece));
        reach = std::max(reach, reachOf(piece));
    }
    const bool isStray = farthest->isLittle && LongerSide(BoxOf(*farthest)) < LongerSide(others) * kStraySize;
    return isStray ? reach : reachOf(*farthest);
}

// The box round the share of the pieces that lies nearest to their middle.
Box Middle(const std::vector<Piece>& pieces)
{
    const Weighing weighing(pieces);
    const float x = weighing.Quantile(0.5, [](const Piece& piece) { return piece.CentreX(); });
    const float y = weighing.Quantile(0.5, [](const Piece& piece) { return piece.CentreY(); });
    const float share = weighing.Quantile(kMostShare, [&](const Piece& piece) { return piece.Reach(x, y); });
    const float reach = std::min(share, ReachWithoutStray(pieces, x, y));
    Box box;
    for (const Piece& piece : pieces) {
        if (piece.Reach(x, y) <= reach)
            box.Add(BoxOf(piece));
    }
    return box;
}

} // namespace

double LongerSide(const Box& box)
{
    return box.IsEmpty() ? 0 : std::max(box.High().x - box.Low().x, box.High().y - box.Low().y);
}

Box BoxOfMost(const SvgHostDocument& document)
{
    const std::vector<Piece> pieces = Collection(document).Run();
    if (pieces.empty())
        return document.root.bare;
    Box most = Middle(pieces);
    const Box surroundings = most.Grown(LongerSide(most) / 2);
    bool isAll = true;
    for (const Piece& piece : pieces) {
        const bool isNear = Holds(surroundings, piece);
        isAll = isAll && isNear;
        if (isNear)
            most.Add(BoxOf(piece));
    }
    return isAll ? document.root.bare : most;
}

} // namespace svghost
