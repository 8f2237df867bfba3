// The document as an SVG file.
#pragma once

#include "svghost/ByteBudget.h"
#include "svghost/LayerRun.h"
#include "svghost/Picture.h"
#include "svghost/SvgHostDocument.h"
#include "svghost/XmlStream.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace svghost {

// Writes one document. It has been laid out.
class SvgWriter {
public:
    SvgWriter(const SvgHostDocument& document, const PictureLayout& layout, const Picture& picture,
              SvgHostWriteFunction write, void* user);

    // False when memory is short or the write function returned false; it is not called again then.
    bool Run(const SvgHostWriteOptions& options);

    // How many elements were left out because the file would have become too large.
    std::size_t ElementsBeyondBytes() const { return m_budget.Beyond(); }

private:
    void OpenRoot(const SvgHostWriteOptions& options);
    void SetPixelSize();
    void SetPhysicalSize();
    void WriteStyle(const char* style);
    void WriteDashClasses();
    void OpenDrawing();
    void WriteDefinitions();
    void WriteSymbol(const Symbol& symbol);
    void WriteArrow(const char* end, double direction, std::uint32_t stroke, double size, std::size_t number);
    void WriteBackground(const char* colour);
    void WriteContents(const Container& container);
    void WriteRuns(const Container& container);
    void WriteLayers(const Container& container);

    bool HasRoomFor(const Node& node);
    void WriteNode(const Node& node);
    void WriteLine(const Line& line);
    void WriteEllipse(const Ellipse& ellipse);
    void WriteShape(const Shape& shape);
    void WriteText(const Text& text);
    void WriteUse(const Use& use);
    void WriteInPlace(const Use& use, const Symbol& symbol);
    void WriteFill(const Symbol& fill);
    void WritePart(const Use& use, const Symbol& part);
    void WriteLineOfText(const Use& use, const Symbol& writing);
    void SetLength(double length);
    void SetShift(const char* name, double shift);
    void WriteFollowingRuns(const Text& first, double spread);
    void WritePlacedRuns(const Text& first, double spread, double width);
    void SetLook(const Text& run, const Text& first);
    void SetPlace(const Use& use);
    void PutPlace(const Use& use);
    void OpenGroup(const Container& group);

    void SetStyle(const Node& node);
    void SetStrokeWidth(const Node& node);
    float SheetWidth(std::uint32_t index, double scale);
    template <std::size_t size>
    void SetValue(const char (&name)[size], AttributeId id, std::uint32_t index);
    void SetDashes(std::uint32_t index);
    void SetExtras(const Node& node);
    void SetExtra(const Node& node, const ExtraAttribute& extra);
    void SetRotation(const Node& node, double centreX, double centreY);
    void SetArrow(const char* name, const char* end, const Node& node, double size);
    std::string_view StrokeColour(std::uint32_t stroke) const;

    const SvgHostDocument& m_document;
    const PictureLayout& m_layout;
    const Picture& m_picture;
    XmlStream m_out;
    const char* m_background = nullptr; // null: none
    const char* m_fontFamily = nullptr;
    bool m_groupsLayers = false;
    std::uint32_t m_lastDashClass = 0; // of the patterns that are written once
    ByteBudget m_budget;
    LayerTexts m_layerTexts;
    LayerRun* m_run = nullptr; // of the container that is being written
    double m_scale = 1;        // at which what is being written is shown
    // For each value of a stroke's width the one that was written last, and for which scale.
    struct WrittenWidth {
        double scale = 0;
        float width = 0;
    };
    std::vector<WrittenWidth> m_widths;
    std::string m_id; // of the symbol that is being written or drawn
};

} // namespace svghost
