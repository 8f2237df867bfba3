#include "svghost/HostDocument.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace svghost_tests {

HostDocument::HostDocument() : m_document(svgHostCreate()), m_context(svgHostBeginImport(m_document)) {}

HostDocument::~HostDocument()
{
    svgHostDestroy(m_document);
}

QlmNode HostDocument::Line(float x1, float y1, float x2, float y2) const
{
    return qlmCreateLine(m_context, L"", x1, y1, x2, y2, 0, 0);
}

QlmNode HostDocument::Circle(float radius, float x, float y) const
{
    return qlmCreateCircle(m_context, L"", radius, x, y, 0, 0);
}

QlmNode HostDocument::Ellipse(float radiusX, float radiusY, float x, float y) const
{
    return qlmCreateEllipse(m_context, L"", radiusX, radiusY, x, y, 0, 0);
}

QlmNode HostDocument::Path(const wchar_t* data) const
{
    return qlmCreatePath(m_context, L"", data, 0, 0);
}

QlmNode HostDocument::Polyline(const wchar_t* points) const
{
    return qlmCreatePolyline(m_context, L"", points, 0, 0);
}

QlmNode HostDocument::Polygon(const wchar_t* points) const
{
    return qlmCreatePolygon(m_context, L"", points, 0, 0);
}

QlmNode HostDocument::Text(float x, float y, const wchar_t* text) const
{
    return qlmCreateText(m_context, L"", x, y, 0, 0, text, 0, 0);
}

QlmNode HostDocument::Use(const wchar_t* name, float x, float y) const
{
    return qlmCreateUse(m_context, L"", 0, 0, name, L"hmi", x, y);
}

QlmNode HostDocument::Group() const
{
    return qlmCreateG(m_context, L"");
}

void HostDocument::Set(QlmNode node, const wchar_t* name, const wchar_t* value) const
{
    qlmSetAttributeByNode(m_context, node, name, value);
}

QlmNode HostDocument::Begin(const wchar_t* name) const
{
    qlmSetCurrentSvgNode(m_context, nullptr);
    const QlmNode symbol = qlmCreateSymbol(m_context, name);
    qlmSetCurrentSvgNode(m_context, symbol);
    return symbol;
}

void HostDocument::End() const
{
    qlmSetCurrentSvgNode(m_context, nullptr);
}

SvgHostStatistics HostDocument::Statistics() const
{
    SvgHostStatistics statistics{};
    EXPECT_TRUE(svgHostGetStatistics(m_document, &statistics));
    return statistics;
}

std::string HostDocument::Write(const char* background) const
{
    SvgHostWriteOptions options{};
    options.background = background;
    return Write(options);
}

std::string HostDocument::Write(const SvgHostWriteOptions& options) const
{
    std::string text;
    const auto append = [](void* user, const char* bytes, std::size_t size) {
        static_cast<std::string*>(user)->append(bytes, size);
        return true;
    };
    EXPECT_TRUE(svgHostWrite(m_document, &options, append, &text));
    return text;
}

ParsedSvg::ParsedSvg(const std::string& text)
{
    const pugi::xml_parse_result result =
        m_xml.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    EXPECT_TRUE(result) << result.description() << " at " << result.offset;
    EXPECT_TRUE(Root());
}

ViewBox ViewBoxOf(const ParsedSvg& svg)
{
    ViewBox box;
    const int count = std::sscanf(svg.Root().attribute("viewBox").value(), "%lf %lf %lf %lf", &box.x, &box.y,
                                  &box.width, &box.height);
    EXPECT_EQ(count, 4);
    return box;
}

void ExpectTight(const ViewBox& box, double left, double top, double right, double bottom, double slack)
{
    EXPECT_LE(box.x, left);
    EXPECT_LE(box.y, top);
    EXPECT_GE(box.x + box.width, right);
    EXPECT_GE(box.y + box.height, bottom);
    EXPECT_GE(box.x, left - slack);
    EXPECT_GE(box.y, top - slack);
    EXPECT_LE(box.x + box.width, right + slack);
    EXPECT_LE(box.y + box.height, bottom + slack);
}

} // namespace svghost_tests
