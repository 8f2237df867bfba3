#include "cli/options/OptionTable.h"

#include "cli/options/ExitCode.h"
#include "cli/options/OptionChecks.h"

namespace plexorn {

namespace {

constexpr OptionRow kFilesFrom = {
    "--files-from", "LIST",
    "Read further names of drawings and folders from the file LIST, one a line; - is the standard input",
    &Options::list, CheckNotEmpty};
constexpr OptionRow kNull = {"-0,--null", "", "The names in LIST end with a NUL byte instead of a line end",
                             &Options::isNullSeparated};
constexpr OptionRow kRecursive = {
    "-r,--recursive", "", "Take the drawings in the folders within a folder as well", &Options::isRecursive};
constexpr OptionRow kHelp = {"-h,--help", "", "Print this help and end"};
constexpr OptionRow kLayers = {
    "--layers", "WHICH",
    "The layers that are shown: shown, the default, are those that are neither off nor frozen, without "
    "DEFPOINTS; all are all",
    &Options::layers, CheckLayers};
constexpr OptionRow kLayer = {"--layer", "NAME",
                              "Show this layer alone, or those alone that match NAME, in which * is any "
                              "text; may be given several times",
                              &Options::onlyLayers, CheckNotEmpty};
constexpr OptionRow kNotLayer = {"--not-layer", "NAME",
                                 "Leave this layer out, or those that match NAME; may be given several times",
                                 &Options::withoutLayers, CheckNotEmpty};
constexpr OptionRow kTolerance = {
    "--tolerance", "LENGTH",
    "How far a curve that is drawn as short lines may be from the true one, in units of the drawing. By "
    "default a twentieth of the thinnest stroke, and at most 1/4000 of the drawing's size",
    &Options::tolerance, CheckTolerance};
constexpr OptionRow kNoWrap = {
    "--no-wrap", "",
    "Never put a drawing that is far from its origin, or very small, into one block near the origin, which "
    "keeps it sharp",
    &Options::forbidsWrap};
constexpr OptionRow kEncoding = {"--encoding", "NAME",
                                 "The encoding of the drawing's texts, such as ANSI_1252 or SHIFT_JIS, "
                                 "whatever the drawing says of itself",
                                 &Options::encoding, CheckEncoding};
constexpr OptionRow kRedrawDimensions = {
    "--redraw-dimensions", "",
    "Draw dimensions from their points and styles, even those that come with a picture of their own",
    &Options::redrawsDimensions};
constexpr OptionRow kFill = {
    "--fill", "HOW",
    "How areas are drawn, such as solid hatches, wide polylines and arrowheads: filled, the default, or "
    "outline, along their edges alone",
    &Options::fill, CheckFill};
constexpr OptionRow kLayout = {
    "--layout", "NAME",
    "Take the sheet NAME, with what its viewports show, at its size in millimetres and with strokes as wide "
    "as on paper; all takes each sheet, and the name of what is made of it ends in the sheet's. By default "
    "the model space is taken",
    &Options::layout, CheckLayout};
constexpr OptionRow kQuiet = {"-q,--quiet", "", "Print errors only, no messages about the drawings",
                              &Options::isQuiet};
constexpr OptionRow kMessages = {"--messages", "FORM",
                                 "The form of what is printed: text, the default, or json, one object a line",
                                 &Options::messageFormat, CheckMessageFormat};
constexpr OptionRow kMaxMessages = {
    "--max-messages", "N",
    "Print at most N lines of messages about each drawing, and how many more messages there are",
    &Options::maxMessages, CheckCount};
constexpr OptionRow kStrict = {
    "--strict", "",
    "End with exit code 1 when anything of a drawing is not shown as the drawing states it, or there was any "
    "message about it, or its file has no EOF",
    &Options::isStrict};
constexpr OptionRow kVerbose = {"--verbose", "",
                                "Print every message, instead of one line for all that say the same",
                                &Options::isVerbose};
constexpr OptionRow kForce = {"--force", "",
                              "Replace files that are read-only, and follow links in folders of others",
                              &Options::isForced};
constexpr OptionRow kMinDrawn = {
    "--min-drawn", "SHARE",
    "End with exit code 1 when less than this share of a drawing's entities is shown, such as 95%",
    &Options::minDrawn, CheckPercentage};

constexpr OptionRow kDrawRows[] = {
    {"-o,--output", "PATH",
     "The picture; - is the standard output. For several drawings, or with a slash at its end, the folder "
     "for the pictures, which is made when it is missing. By default each picture is next to its drawing, "
     "with .svg in place of .dxf; that of the standard input goes to the standard output",
     &Options::output, CheckNotEmpty},
    {"--no-clobber", "", "Skip drawings whose picture exists", &Options::keepsPictures},
    {"--newer-only", "", "Skip drawings that are not newer than their picture", &Options::drawsNewerOnly},
    kForce,
    {"-j,--jobs", "N", "Draw N drawings at a time; by default as many as the machine has cores",
     &Options::jobs, CheckJobs},
    kFilesFrom,
    kNull,
    kRecursive,
    {"--units", "UNIT",
     "How long one unit of the drawing is, which gives the picture its width and height in millimetres: "
     "header, the default, takes the drawing's $INSUNITS and falls back to none; guess falls back to "
     "$MEASUREMENT and then to millimetres; none makes the larger side 1024 pixels; or a unit's name, such "
     "as mm, cm, m, in, ft",
     &Options::units, CheckUnits},
    {"--scale", "RATIO",
     "Write the width and height in millimetres at a scale, 1:N. By default at their true size up to A0 "
     "(1189 x 841 mm), and larger ones at the first of 1:2, 1:5, 1:10, 1:20, 1:25, 1:50, 1:100 and so on at "
     "which the drawing fits A0",
     &Options::scale, CheckScale},
    {"--true-size", "", "Write the width and height at their true size, however large",
     &Options::hasTrueSize},
    {"--fit", "WHAT",
     "What the picture frames: all of the drawing, the default, or most, which leaves out small things that "
     "lie far from the rest",
     &Options::fit, CheckFit},
    {"--as-is", "",
     "Draw what the module draws by itself, with widths of strokes as lengths of the drawing, and sizes as "
     "true sizes. By default a drawing is prepared first, so that all of it is drawn, widths are "
     "millimetres on a sheet A3 that the drawing fills, and no stroke is thinner than 1/1500 of the "
     "drawing's longer side",
     &Options::isAsIs},
    kLayers,
    kLayer,
    kNotLayer,
    kTolerance,
    kNoWrap,
    kEncoding,
    kRedrawDimensions,
    kFill,
    kLayout,
    {"--list-layouts", "", "Print the names of the drawing's sheets, one a line, and draw nothing",
     &Options::listsLayouts},
    {"--layers-as", "FORM",
     "How layers are in the picture: groups, the default, are groups with the attribute data-layer, in the "
     "drawing's order; inkscape puts all of a layer into one group, which Inkscape shows as a layer",
     &Options::layersAs, CheckLayersAs},
    {"--background", "COLOUR",
     "The CSS colour behind the drawing, or none. By default #1e1e1e, as most drawings are white, and white "
     "with --paper and --layout",
     &Options::background, CheckColour},
    {"--paper", "",
     "Show the drawing as on a sheet of paper: white is shown black, on a white background, and layers that "
     "are not plotted are left out",
     &Options::isOnPaper},
    {"--hairline", "", "Let strokes keep their width on the screen however far the picture is enlarged",
     &Options::hasHairlines},
    kQuiet,
    kVerbose,
    kMessages,
    kMaxMessages,
    kStrict,
    kMinDrawn,
    {"--keep-going", "",
     "Draw what there is of a drawing that cannot be read to its end or for which memory is short, say what "
     "is missing, and end with exit code 1",
     &Options::keepsGoing},
    kHelp,
    {"--version", "", "Print the version and end"},
};

constexpr OptionRow kPrepareRows[] = {
    {"-o,--output", "PATH",
     "The prepared drawing; - is the standard output. For several drawings, or with a slash at its end, the "
     "folder for them, which is made when it is missing. Only a drawing of the standard input does without, "
     "and goes to the standard output",
     &Options::output, CheckNotEmpty},
    {"--for", "READER",
     "Who reads the prepared drawing: module, the default, is Plexorn's module, and standard any other "
     "program",
     &Options::readBy, CheckReader},
    {"--no-clobber", "", "Skip drawings whose prepared drawing exists", &Options::keepsPictures},
    {"--newer-only", "", "Skip drawings that are not newer than their prepared drawing",
     &Options::drawsNewerOnly},
    kForce,
    {"-j,--jobs", "N", "Prepare N drawings at a time; by default as many as the machine has cores",
     &Options::jobs, CheckJobs},
    kFilesFrom,
    kNull,
    kRecursive,
    kLayers,
    kLayer,
    kNotLayer,
    {"--paper", "", "Leave out layers that are not plotted", &Options::isOnPaper},
    kTolerance,
    kNoWrap,
    kEncoding,
    kRedrawDimensions,
    kFill,
    kLayout,
    kQuiet,
    kVerbose,
    kMessages,
    kMaxMessages,
    kStrict,
    kMinDrawn,
    kHelp,
};

constexpr OptionRow kInfoRows[] = {
    {"--json", "", "Print one JSON object a line, one for each drawing", &Options::isJson},
    {"--texts", "", "List the texts of the drawing too", &Options::withTexts},
    {"--as-is", "", "Show what the module does by itself, without preparing", &Options::isAsIs},
    {"--summary", "", "Print one sum of all drawings: how much of them is shown, and what is missing",
     &Options::isSummary},
    kFilesFrom,
    kNull,
    kRecursive,
    kHelp,
};

constexpr HelpRow kDrawExamples[] = {
    {"plexorn plan.dxf", "Draw plan.svg next to the drawing"},
    {"plexorn -r in -o out/", "Draw a tree of drawings into a tree of pictures"},
    {"plexorn info plan.dxf", "Show what the drawing holds and what of it is drawn"},
};

constexpr HelpRow kInfoExamples[] = {
    {"plexorn info plan.dxf", "Show what the drawing holds and what of it is drawn"},
    {"plexorn info -r --json .", "The same of all drawings in this folder and those in it, for a program"},
    {"plexorn info --texts a.dxf", "List the texts of the drawing too"},
};

constexpr HelpRow kPrepareExamples[] = {
    {"plexorn prepare plan.dxf -o flat.dxf", "Rewrite a drawing for the module"},
    {"plexorn prepare --for standard plan.dxf -o cut.dxf",
     "The same for a laser cutter or an old CAD program"},
    {"plexorn prepare -r in -o out/", "Rewrite a tree of drawings into another"},
};

constexpr HelpRow kLimits[] = {
    {"Drawings", "text or binary DXF, no DWG; a closing line names the types that are not drawn"},
    {"Pictures", "SVG; other programs, such as rsvg-convert or Inkscape, convert it"},
    {"Elements", "100,000 for each drawing, and one more for each eight bytes of its prepared form"},
    {"Faults", "Report them to those from whom you have plexorn, with the drawing and with what plexorn "
               "--version prints"},
};

constexpr CommandRow kCommands[] = {
    {Task::Draw, "plexorn", "Draws DXF files as SVG pictures.",
     "A drawing, a DXF file; - is the standard input, a folder means every .dxf file in it", kDrawRows,
     kDrawExamples},
    {Task::Info, "plexorn info",
     "Shows what DXF files hold: version, units, extents, layers, line types, blocks, and for each "
     "type of entity how many there are and what becomes of them.",
     "A drawing, as for plexorn itself", kInfoRows, kInfoExamples},
    {Task::Prepare, "plexorn prepare",
     "Rewrites DXF files into plain ones, of lines, arcs, circles, ellipses, polylines, texts and inserts "
     "alone, that show the same.",
     "A drawing, as for plexorn itself", kPrepareRows, kPrepareExamples},
};

constexpr ExitRow kExitRows[] = {
    {ExitCode::Drawn, "drawn (or shown, for info; or prepared), whatever the messages"},
    {ExitCode::Incomplete, "drawn, but not all of a drawing is shown as it should be, and --strict, "
                           "--min-drawn or --keep-going was "
                           "given"},
    {ExitCode::Usage, "wrong usage"},
    {ExitCode::File, "the file cannot be read, or the SVG or what was asked for cannot be written"},
    {ExitCode::NotAsciiDxf, "the file is not a DXF that can be read"},
    {ExitCode::SomeFailed, "of several drawings, at least one failed; the others are drawn"},
    {ExitCode::Blank,
     "drawn, but nothing is visible of a drawing that holds entities or is damaged, or of one of several"},
};

} // namespace

std::span<const CommandRow> Commands()
{
    return kCommands;
}

const CommandRow& CommandFor(Task task)
{
    return kCommands[static_cast<std::size_t>(task)];
}

std::span<const HelpRow> LimitTable()
{
    return kLimits;
}

std::span<const ExitRow> ExitTable()
{
    return kExitRows;
}

} // namespace plexorn
