// The document as an SVG file.
#ifndef SVGHOST_SVGWRITER_H
#define SVGHOST_SVGWRITER_H

#include "svghost/Document.h"
#include "svghost/XmlOutput.h"

#include <string>
#include <string_view>

namespace svghost {

// Writes one document. It has been laid out.
class SvgWriter {
public:
    SvgWriter(const SvgHostDocument& document, const Layout& layout, SvgHostWriteFunction write, void* user);

    // False when memory is short or the write function returned false; it is not called again then.
    bool run(const SvgHostWriteOptions& options);

private:
    void openRoot(double unit);
    void setPixelSize();
    bool setPhysicalSize(double unit);
    void writeStyle(const char* style);
    void openDrawing();
    void writeDefinitions();
    void writeSymbol(const Symbol& symbol);
    void writeArrow(const char* end, double direction, std::uint32_t stroke, double size, std::size_t number);
    void writeBackground(const char* colour);
    void writeContents(const Container& container);

    void writeNode(const Node& node);
    void writeLine(const Line& line);
    void writeEllipse(const Ellipse& ellipse);
    void writeShape(const Shape& shape);
    void writeText(const Text& text);
    void writeUse(const Use& use);
    void openGroup(const Container& group);

    void setStyle(const Node& node);
    void setValue(const char* name, AttributeId id, std::uint32_t index);
    void setDashes(std::uint32_t index);
    void setExtras(const Node& node);
    void setExtra(const Node& node, const ExtraAttribute& extra);
    void setRotation(const Node& node, double centreX, double centreY);
    void setArrow(const char* name, const char* end, const Node& node, double size);
    std::string_view strokeColour(std::uint32_t stroke) const;

    void begin(const char* element) { m_element = m_out.addElement(element); }
    void set(const char* attribute, std::string_view value)
    {
        m_out.addAttribute(m_element, attribute, value);
    }
    // Appends texts and numbers to m_value. The numbers are not left to pugixml: what it makes of them
    // depends on the locale and is not the shortest.
    template <class... Parts>
    void appendParts(const Parts&... parts);
    template <class... Parts>
    void setJoined(const char* attribute, const Parts&... parts);

    const SvgHostDocument& m_document;
    const Layout& m_layout;
    XmlOutput m_out;
    pugi::xml_node m_element; // the one that is being made
    std::string m_value;
};

} // namespace svghost

#endif
