// A document of the reference host for tests: made, filled through the operations, written, read back.
#ifndef TESTS_SVGHOST_HOSTDOCUMENT_H
#define TESTS_SVGHOST_HOSTDOCUMENT_H

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

    SvgHostDocument* get() const { return m_document; }
    QlmNode context() const { return m_context; }

    // Short forms of the operations, with "" and 0 where the module passes them.
    QlmNode line(float x1, float y1, float x2, float y2) const;
    QlmNode circle(float radius, float x, float y) const;
    QlmNode ellipse(float radiusX, float radiusY, float x, float y) const;
    QlmNode path(const wchar_t* data) const;
    QlmNode polyline(const wchar_t* points) const;
    QlmNode polygon(const wchar_t* points) const;
    QlmNode text(float x, float y, const wchar_t* text) const;
    QlmNode use(const wchar_t* name, float x, float y) const;
    QlmNode group() const;
    void set(QlmNode node, const wchar_t* name, const wchar_t* value) const;

    // Makes a symbol and collects what is created next in it; end() returns to the top of the drawing.
    QlmNode begin(const wchar_t* name) const;
    void end() const;

    SvgHostStatistics statistics() const;
    std::string write(const char* background = nullptr) const;
    std::string write(const SvgHostWriteOptions& options) const;

private:
    SvgHostDocument* m_document;
    QlmNode m_context;
};

// A written document, parsed. Fails the test when it is no well-formed XML.
class ParsedSvg {
public:
    explicit ParsedSvg(const std::string& text);
    explicit ParsedSvg(const HostDocument& document) : ParsedSvg(document.write()) {}

    pugi::xml_node root() const { return m_xml.child("svg"); }
    pugi::xml_node drawing() const { return root().child("g"); }
    pugi::xml_node definitions() const { return root().child("defs"); }
    // The first element of that name in the drawing.
    pugi::xml_node first(const char* element) const { return drawing().child(element); }

private:
    pugi::xml_document m_xml;
};

struct ViewBox {
    double x = 0, y = 0, width = 0, height = 0;
};

ViewBox viewBoxOf(const ParsedSvg& svg);

// Fails the test unless box holds everything from (left, top) to (right, bottom) with at most slack more on
// each side.
void expectTight(const ViewBox& box, double left, double top, double right, double bottom, double slack);

} // namespace svghost_tests

#endif
