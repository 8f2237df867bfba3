// A document of the reference host for tests: made, filled through the operations, written, read back.
#pragma once

#include "svghost/SvgHost.h"

#include <pugixml.hpp>

#include <string>

namespace svghost_tests {

class HostDocument {
public:
    HostDocument();
    ~HostDocument();
    HostDocument(const HostDocument&) = delete;
    HostDocument& operator=(const HostDocument&) = delete;

    SvgHostDocument* Get() const { return m_document; }
    QlmNode Context() const { return m_context; }

    // Short forms of the operations, with "" and 0 where the module passes them.
    QlmNode Line(float x1, float y1, float x2, float y2) const;
    QlmNode Circle(float radius, float x, float y) const;
    QlmNode Ellipse(float radiusX, float radiusY, float x, float y) const;
    QlmNode Path(const wchar_t* data) const;
    QlmNode Polyline(const wchar_t* points) const;
    QlmNode Polygon(const wchar_t* points) const;
    QlmNode Text(float x, float y, const wchar_t* text) const;
    QlmNode Use(const wchar_t* name, float x, float y) const;
    QlmNode Group() const;
    void Set(QlmNode node, const wchar_t* name, const wchar_t* value) const;

    // Makes a symbol and collects what is created next in it; End() returns to the top of the drawing.
    QlmNode Begin(const wchar_t* name) const;
    void End() const;

    SvgHostStatistics Statistics() const;
    std::string Write(const char* background = nullptr) const;
    std::string Write(const SvgHostWriteOptions& options) const;

private:
    SvgHostDocument* m_document;
    QlmNode m_context;
};

// A written document, parsed. Fails the test when it is no well-formed XML.
class ParsedSvg {
public:
    explicit ParsedSvg(const std::string& text);
    explicit ParsedSvg(const HostDocument& document) : ParsedSvg(document.Write()) {}

    pugi::xml_node Root() const { return m_xml.child("svg"); }
    pugi::xml_node Drawing() const { return Root().child("g"); }
    pugi::xml_node Definitions() const { return Root().child("defs"); }
    // The first element of that name in the drawing.
    pugi::xml_node First(const char* element) const { return Drawing().child(element); }

private:
    pugi::xml_document m_xml;
};

struct ViewBox {
    double x = 0, y = 0, width = 0, height = 0;
};

ViewBox ViewBoxOf(const ParsedSvg& svg);

// Fails the test unless box holds everything from (left, top) to (right, bottom) with at most slack more on
// each side.
void ExpectTight(const ViewBox& box, double left, double top, double right, double bottom, double slack);

} // namespace svghost_tests
