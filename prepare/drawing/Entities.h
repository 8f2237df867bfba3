// One record for each type of entity, as it is in the file: coordinates in the entity's own system (object or
// world), angles in the file's units, names not looked up yet.
#pragma once

#include "base/Pi.h"
#include "prepare/drawing/EntityType.h"
#include "prepare/drawing/Fault.h"
#include "prepare/drawing/Names.h"
#include "prepare/drawing/Point.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace prepare {

// A file numbers its objects in hexadecimal; 0 means no object.
using Handle = std::uint64_t;

inline constexpr std::int32_t kByBlock = 0;
inline constexpr std::int32_t kByLayer = 256;
inline constexpr std::int32_t kNoTrueColour = -1;
inline constexpr std::int32_t kWeightByLayer = -1;
inline constexpr std::int32_t kWeightByBlock = -2;
inline constexpr std::int32_t kDefaultWeight = -3;

// What all types have.
struct Entity {
    explicit Entity(EntityType itsType) : type(itsType) {}
    virtual ~Entity() = default;

    EntityType type;
    Fault fault = Fault::None;
    std::uint64_t line = 0; // of the type's name
    NameId typeName = kNoName;
    Handle handle = 0;                       // 5
    Handle owner = 0;                        // 330, outside of groups
    NameId layer = kNoName;                  // 8
    NameId lineType = kNoName;               // 6; none: by layer
    double lineTypeScale = 1;                // 48
    std::int32_t colour = kByLayer;          // 62
    std::int32_t trueColour = kNoTrueColour; // 420, 0xRRGGBB
    std::int32_t weight = kWeightByLayer;    // 370, hundredths of a millimetre
    std::int32_t isInvisible = 0;            // 60
    std::int32_t isInPaperSpace = 0;         // 67
    NameId layout = kNoName;                 // 410
    Point3 extrusion{0, 0, 1};               // 210
};

// The type of each record is its first base's argument.
template <EntityType itsType>
struct EntityOf : Entity {
    EntityOf() : Entity(itsType) {}
};

struct Line : EntityOf<EntityType::Line> { // also 3DLINE; in world coordinates
    Point3 start;                          // 10
    Point3 end;                            // 11
};

struct Circle : EntityOf<EntityType::Circle> {
    Point3 centre;     // 10
    double radius = 0; // 40
};

struct Arc : EntityOf<EntityType::Arc> {
    Point3 centre;         // 10
    double radius = 0;     // 40
    double startAngle = 0; // 50, degrees
    double endAngle = 360; // 51
};

struct Ellipse : EntityOf<EntityType::Ellipse> { // in world coordinates
    Point3 centre;                               // 10
    Point3 majorAxis{1, 0, 0};                   // 11, from the centre
    double ratio = 1;                            // 40
    double start = 0;                            // 41, radians
    double end = kTurn;                          // 42
};

struct PolylineVertex {
    Point3 point;
    double bulge = 0;
    double startWidth = 0;
    double endWidth = 0;
    std::int32_t flags = 0;         // 70 of a VERTEX
    std::int32_t corners[4] = {};   // 71 to 74 of a polyface's face
    std::int32_t colour = kByLayer; // of a polyface's face
    NameId layer = kNoName;
};

struct LwPolyline : EntityOf<EntityType::LwPolyline> {
    std::int32_t flags = 0;               // 70
    double elevation = 0;                 // 38
    double width = 0;                     // 43, of every segment; vertices may have their own
    std::vector<PolylineVertex> vertices; // 10 begins one; 40, 41, 42; z is not set
    std::int32_t statedVertices = 0;      // 90
    bool lacksVertices = false;           // those with a fault
    bool lacksYs = false;                 // of a vertex
};

struct Polyline : EntityOf<EntityType::Polyline> {
    std::int32_t flags = 0;               // 70
    Point3 elevation;                     // 10: only z counts
    double startWidth = 0;                // 40, for vertices without their own
    double endWidth = 0;                  // 41
    std::int32_t mCount = 0;              // 71: of vertices; a polyface's vertices
    std::int32_t nCount = 0;              // 72; a polyface's faces
    std::int32_t mDensity = 0;            // 73
    std::int32_t nDensity = 0;            // 74
    std::vector<PolylineVertex> vertices; // the VERTEX entities that follow, up to the SEQEND
};

struct Spline : EntityOf<EntityType::Spline> { // also HELIX, by its spline; in world coordinates
    std::int32_t flags = 0;                    // 70
    std::int32_t degree = 3;                   // 71
    std::vector<double> knots;                 // 40
    std::vector<double> weights;               // 41
    std::vector<Point3> controlPoints;         // 10
    std::vector<Point3> fitPoints;             // 11
    Point3 startTangent;                       // 12
    Point3 endTangent;                         // 13
};

// SOLID and TRACE in object coordinates, 3DFACE in world coordinates.
struct Solid : EntityOf<EntityType::Solid> {
    Point3 corners[4];            // 10 to 13
    bool hasFourth = false;       // whether 13 came
    std::int32_t hiddenEdges = 0; // 70 of a 3DFACE
};

struct Mesh : EntityOf<EntityType::Mesh> { // in world coordinates
    std::vector<Point3> vertices;          // 10 after 92
    std::vector<std::int32_t> faces;       // the 90 after 93: a count, then so many indices, again and again
    std::vector<std::int32_t> edges;       // the 90 after 94: pairs of indices
};

struct MultiLineVertex {
    Point3 point;                                // 11
    Point3 direction;                            // 12, of the segment that begins here
    Point3 mitre;                                // 13
    std::vector<std::vector<double>> parameters; // 41 of each element, after its 74
};

struct MultiLine : EntityOf<EntityType::MultiLine> { // in world coordinates
    NameId style = kNoName;                          // 2
    Handle styleHandle = 0;                          // 340
    double scale = 1;                                // 40
    std::int32_t justification = 0;                  // 70: top, zero, bottom
    std::int32_t flags = 0;                          // 71: 2 closed, 4 no start cap, 8 no end cap
    std::int32_t elements = 0;                       // 73
    std::vector<MultiLineVertex> vertices;
};

struct Leader : EntityOf<EntityType::Leader> { // in world coordinates
    NameId dimStyle = kNoName;                 // 3
    std::int32_t hasArrow = 1;                 // 71
    std::int32_t isSpline = 0;                 // 72
    std::vector<Point3> vertices;              // 10
    // Overrides of the style, as a DIMENSION's.
    std::vector<std::pair<std::int32_t, std::string>> overrides;
};

struct LeaderLine {
    std::vector<Point3> vertices;
};

struct LeaderBranch {
    Point3 landing;    // 10 of LEADER{: where the dogleg begins
    Point3 dogleg;     // 11: its direction
    double length = 0; // 40
    bool hasLanding = false;
    std::int32_t isVertical = 0; // 271: to the text's top or bottom, without a dogleg
    std::vector<LeaderLine> lines;
};

// What a multileader's block says in place of one of its ATTDEFs.
struct LeaderAttribute {
    Handle definition = 0; // 330
    std::string text;      // 302
};

struct MultiLeader : EntityOf<EntityType::MultiLeader> { // in world coordinates
    std::vector<LeaderBranch> branches;
    std::int32_t leaderType = 1;     // 170: none, straight, spline
    std::int32_t lineColour = 0;     // 91, packed
    std::int32_t hasDogleg = 1;      // 291
    std::int32_t contentType = 0;    // 172: 1 a block, 2 an MTEXT
    double arrowSize = 0;            // 140 of the context
    double textHeight = 0;           // 41 of the context
    std::string text;                // 304 of the context, raw as an MTEXT's
    Point3 textPoint;                // 12
    Point3 textDirection{1, 0, 0};   // 13
    double textWidth = 0;            // 43
    std::int32_t textAttachment = 1; // 171: left, centre, right
    std::int32_t textFlow = 1;       // 172 of the context: as an MTEXT's
    std::int32_t textColour = 0;     // 90, packed
    std::int32_t hasFill = 0;        // 292: behind the text
    std::int32_t fillColour = 0;     // 91, packed
    std::int32_t fillsAsWindow = 0;  // 291: in the background's colour
    double fillScale = 1.5;          // 141, as an MTEXT's
    std::int32_t hasFrame = 0;       // 292 of the entity: around the text
    std::int32_t leftLanding = 1;    // 174 of the context: where the text is met by a leader from the left
    std::int32_t rightLanding = 1;   // 175: and from the right
    double landingGap = -1;          // 145 of the context: from the text to its frame, too
    NameId textStyle = kNoName;
    Handle textStyleHandle = 0; // 340 of the context
    Handle blockHandle = 0;     // 341 of the context: its BLOCK_RECORD
    Point3 blockPoint;          // 15
    Point3 blockScale{1, 1, 1}; // 16
    double blockRotation = 0;   // 46
    std::vector<LeaderAttribute> attributes;
    Handle arrowHandle = 0; // 342
};

// RAY and XLINE, in world coordinates.
struct Ray : EntityOf<EntityType::Ray> {
    Point3 start;              // 10
    Point3 direction{1, 0, 0}; // 11
};

struct PointEntity : EntityOf<EntityType::Point> { // in world coordinates
    Point3 point;                                  // 10
    double xAxisAngle = 0;                         // 50
};

// TEXT, ATTRIB and ATTDEF, in object coordinates.
struct Text : EntityOf<EntityType::Text> {
    Point3 point;                // 10
    Point3 alignment;            // 11
    bool hasAlignment = false;   // whether 11 came
    double height = 0;           // 40; 0: the style's
    std::string text;            // 1, UTF-8, with blanks and codes
    double rotation = 0;         // 50, degrees
    double widthFactor = 0;      // 41; 0: the style's
    double oblique = 0;          // 51, degrees
    NameId style = kNoName;      // 7
    std::int32_t generation = 0; // 71: 2 backward, 4 upside down
    std::int32_t horizontal = 0; // 72
    std::int32_t vertical = 0;   // 73 of a TEXT, 74 of the others
    std::int32_t flags = 0;      // 70 of the others: 1 invisible, 2 constant
    std::string tag;             // 2
    bool hasMText = false;       // an embedded MTEXT (101) holds the text
};

struct MText : EntityOf<EntityType::MText> { // in world coordinates but for the direction from 50
    Point3 point;                            // 10
    double height = 0;                       // 40; 0: the style's
    double width = 0;                        // 41: wrapping
    std::int32_t attachment = 1;             // 71
    static constexpr std::int32_t kFlowsDown = 3;
    std::int32_t flow = 1;         // 72
    std::string text;              // 3 ..., 1, joined; UTF-8
    NameId style = kNoName;        // 7
    Point3 direction;              // 11
    bool hasDirection = false;     // 11 came, and after 50: the last one counts
    double rotation = 0;           // 50
    std::int32_t spacingStyle = 1; // 73: at least, exact
    double spacing = 1;            // 44
    static constexpr std::int32_t kFill = 1, kWindowFill = 2, kFrame = 16;
    std::int32_t fill = 0;              // 90: a colour behind it, the background's, a frame
    std::int32_t fillColour = kByLayer; // 63
    bool hasFillColour = false;
    std::int32_t fillTrueColour = kNoTrueColour; // 421
    double fillScale = 1.5;                      // 45: heights of letters around it, and one
    double frameGap = -1;                        // from the letters to a frame; below 0: as the fill's
    std::int32_t columnType = 0;                 // 75 or 71 of the embedded object
    std::int32_t columns = 0;
    double columnWidth = 0;
    double columnGutter = 0;
    std::vector<double> columnHeights;
    double definedHeight = 0;
    std::int32_t columnsFlowReversed = 0;
    // Up to R2004 the further columns are MTEXTs of their own: so many. Their texts are in them, or all of
    // the text is in the first.
    std::size_t linkedColumns = 0;
};

struct Insert : EntityOf<EntityType::Insert> {
    NameId block = kNoName;                        // 2
    Point3 point;                                  // 10, object coordinates
    Point3 scale{1, 1, 1};                         // 41 to 43
    double rotation = 0;                           // 50, degrees
    std::int32_t columns = 1;                      // 70
    std::int32_t rows = 1;                         // 71
    double columnSpacing = 0;                      // 44
    double rowSpacing = 0;                         // 45
    std::int32_t hasAttributes = 0;                // 66
    std::vector<std::unique_ptr<Text>> attributes; // the ATTRIB entities that follow, up to the SEQEND
};

struct Dimension : EntityOf<EntityType::Dimension> {
    NameId block = kNoName; // 2: its picture
    NameId style = kNoName; // 3
    std::int32_t kind = 0;  // 70
    std::string text;       // 1
    Point3 definition;      // 10
    Point3 textPoint;       // 11, object coordinates
    Point3 points[4];       // 13 to 16
    Point3 insertion;       // 12: where clones of the block go
    double measurement = 0; // 42
    bool hasMeasurement = false;
    double rotation = 0;            // 50
    double textRotation = 0;        // 53
    double oblique = 0;             // 52
    double horizontalDirection = 0; // 51
    std::int32_t attachment = 5;    // 71
    // Overrides of the style: the pairs between the braces of DSTYLE.
    std::vector<std::pair<std::int32_t, std::string>> overrides;
};

struct Tolerance : EntityOf<EntityType::Tolerance> { // in world coordinates
    NameId style = kNoName;                          // 3
    Point3 point;                                    // 10
    std::string text;                                // 1
    Point3 direction{1, 0, 0};                       // 11
};

struct HatchEdge {
    enum class Kind : std::uint8_t { Line = 1, Arc = 2, Ellipse = 3, Spline = 4 };
    Kind kind = Kind::Line;
    Point2 a;          // start; centre
    Point2 b;          // end; major axis
    double radius = 0; // of an arc; ratio of an ellipse
    double start = 0;  // degrees
    double end = 0;
    bool isCounterClockwise = true;
    std::int32_t degree = 0;
    bool isRational = false;
    bool isPeriodic = false;
    std::vector<double> knots;
    std::vector<double> weights;
    std::vector<Point2> controlPoints;
    std::vector<Point2> fitPoints;
};

struct HatchLoop {
    std::int32_t flags = 0;               // 92; 2: a polyline
    bool isClosed = true;                 // 73
    std::vector<PolylineVertex> vertices; // of a polyline
    std::vector<HatchEdge> edges;
};

struct HatchLine {
    double angle = 0;           // 53, degrees
    Point2 base;                // 43, 44
    Point2 offset;              // 45, 46
    std::vector<double> dashes; // 49
};

struct Hatch : EntityOf<EntityType::Hatch> { // also MPOLYGON; in object coordinates
    std::string pattern;                     // 2
    Point3 elevation;                        // 10: only z counts
    std::int32_t isSolid = 0;                // 70; 71 of an MPOLYGON
    std::int32_t style = 0;                  // 75: odd parity, outer, ignore
    double angle = 0;                        // 52
    double scale = 1;                        // 41
    std::vector<HatchLoop> loops;
    std::vector<HatchLine> lines;
    std::int32_t isGradient = 0;               // 450
    std::vector<std::int32_t> gradientColours; // 421
    bool hasOutline = false;                   // an MPOLYGON
    std::int32_t fillColour = kByLayer;        // 63 of an MPOLYGON
    Point2 offset;                             // 11 of an MPOLYGON: of its loops
};

// IMAGE, WIPEOUT and underlays, in world coordinates.
struct Image : EntityOf<EntityType::Image> {
    Point3 point;               // 10
    Point3 u{1, 0, 0};          // 11: one pixel
    Point3 v{0, 1, 0};          // 12
    Point2 size;                // 13: pixels
    std::int32_t display = 1;   // 70
    std::int32_t isClipped = 0; // 280
    std::vector<Point2> clip;   // 14 (11 of an underlay), in pixels
    Point3 scale{1, 1, 1};      // 41 to 43 of an underlay
    double rotation = 0;        // 50 of an underlay
};

// OLEFRAME and OLE2FRAME.
struct OleFrame : EntityOf<EntityType::Ole2Frame> {
    Point3 upperLeft;  // 10
    Point3 lowerRight; // 11
};

struct Table : EntityOf<EntityType::Table> {
    NameId block = kNoName;           // 2: its picture
    Point3 point;                     // 10
    Point3 direction{1, 0, 0};        // 11
    std::int32_t rows = 0;            // 91
    std::int32_t columns = 0;         // 92
    std::vector<double> rowHeights;   // 141
    std::vector<double> columnWidths; // 142
    std::vector<std::string> cells;   // the text of each, by rows
};

struct Proxy : EntityOf<EntityType::Proxy> {
    std::string graphics; // the bytes of 310
};

// A window of a sheet. Old drawings say in the program's own data (1001 to 1070) what it shows.
struct Viewport : EntityOf<EntityType::Viewport> {
    Point3 centre;                         // 10
    double width = 0;                      // 40
    double height = 0;                     // 41
    std::int32_t status = 1;               // 68: 0 off, in old drawings
    std::int32_t id = 0;                   // 69: 1 is the sheet itself
    Point2 viewCentre;                     // 12, in the view's own coordinates, from the target
    Point3 target;                         // 17
    Point3 direction{0, 0, 1};             // 16: from the target to the eye
    double viewHeight = 0;                 // 45: of what is shown
    double twist = 0;                      // 51, degrees: how far that is turned, counter-clockwise
    std::int32_t flags = 0;                // 90: 1 in perspective, 0x20000 off
    bool hasFlags = false;                 // whether 90 came
    Handle clip = 0;                       // 340: the entity that it is cut along
    std::vector<Handle> frozen;            // 331, 341: layers
    std::vector<NameId> frozenByName;      // 1003
    bool isOldView = false;                // whether the current data are about the view
    std::vector<Point3> oldPoints;         // 1010: the target, the direction
    std::vector<double> oldReals;          // 1040: the twist, the height, x and y of the centre, and others
    std::vector<std::int32_t> oldIntegers; // 1070: a version, the mode (1 in perspective), and others
};

// Any type that is not drawn.
struct Other : EntityOf<EntityType::Other> {};

} // namespace prepare
