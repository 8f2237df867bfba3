// The document as an SVG file.
#ifndef SVGHOST_SVGWRITER_H
#define SVGHOST_SVGWRITER_H

#include "svghost/Document.h"

#include <string>
#include <string_view>

namespace svghost {

// Writes one document, in pieces of some tens of kilobytes. The document has been laid out.
class SvgWriter {
public:
    SvgWriter(const SvgHostDocument& document, const Layout& layout, SvgHostWriteFunction write, void* user);

    // False when the write function returned false; it is not called again then.
    bool run(const char* background);

private:
    void writeHead();
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

    void writeStyle(const Node& node);
    void writeValue(std::string_view name, AttributeId id, std::uint32_t index);
    void writeExtras(const Node& node);
    void writeExtra(const Node& node, const ExtraAttribute& attribute);
    void writeRotation(const Node& node, double centreX, double centreY);
    void writeArrowReference(std::string_view name, const char* end, const Node& node, double size);
    std::string_view strokeColour(std::uint32_t stroke) const;

    void put(std::string_view text) { m_out.append(text); }
    template <class Number>
    void put(std::string_view before, Number number);
    template <class Number>
    void attribute(std::string_view name, Number number);
    void flush();
    void flushWhenFull();

    const SvgHostDocument& m_document;
    const Layout& m_layout;
    SvgHostWriteFunction m_write;
    void* m_user;
    std::string m_out;
    bool m_good = true;
};

} // namespace svghost

#endif
