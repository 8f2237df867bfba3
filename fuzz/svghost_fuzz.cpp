// The reference host: any sequence of the fourteen operations gives a picture that is well-formed XML, holds
// what a picture may hold and nothing else, and gives its texts back.
//
// Input: a byte of how it is written (1: a background, 2: writing stops early, 4: a style sheet, 8: a size by
// the upper four bits; 128 without 8: a limit of elements by the three bits below), then operations: a byte
// for which, and its arguments.
#include "FuzzInput.h"
#include "XmlCheck.h"

#include "support/ModelTexts.h"
#include "svghost/SvgHost.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using Document = std::unique_ptr<SvgHostDocument, decltype(&svgHostDestroy)>;

constexpr std::size_t kMostOperations = 600; // an input is to take milliseconds

constexpr const wchar_t* kNames[] = {L"stroke",
                                     L"stroke-width",
                                     L"stroke-dasharray",
                                     L"fill-opacity",
                                     L"visibility",
                                     L"text-anchor",
                                     L"font-size",
                                     L"center-x",
                                     L"center-y",
                                     L"rotate",
                                     L"scale-x",
                                     L"scale-y",
                                     L"pg-begin-arrow-type",
                                     L"pg-end-arrow-type",
                                     L"pg-begin-arrow-size",
                                     L"pg-end-arrow-size"};
constexpr const wchar_t* kValues[] = {
    L"",        L"0",          L"1",       L"-1",     L"0.5",     L"1e38",        L"1e39",   L"nan",
    L"inf",     L"RGB(1,2,3)", L"RGB(,,)", L"hidden", L"left",    L"right",       L"middle", L"stealth arrow",
    L"1,0.5,0", L"0,0",        L"90",      L"1e-39",  L"#ff0000", L"\"><script>", L"url(#x)"};

// The text as a picture holds it: what XML cannot hold is replaced, and XML readers take a carriage return
// for a line feed.
std::string TextInPicture(std::wstring_view text)
{
    std::string utf8;
    while (!text.empty()) {
        std::uint32_t value = TakeCharacter(text);
        if (value == '\r')
            value = '\n';
        if ((value < 0x20 && value != '\t' && value != '\n') || (value >= 0xD800 && value < 0xE000) ||
            value == 0xFFFE || value == 0xFFFF || value > 0x10FFFF)
            value = 0xFFFD;
        AppendModelUtf8(utf8, value);
    }
    return utf8;
}

class Run {
public:
    // At most so many elements; 0: any number.
    Run(FuzzInput& input, std::size_t mostElements)
        : m_input(input), m_document(svgHostCreate(), svgHostDestroy),
          m_context(svgHostBeginImport(m_document.get())), m_mostElements(mostElements)
    {
        FuzzRequire(m_context != nullptr, "a document has a context node");
        if (mostElements != 0)
            svgHostLimitElements(m_document.get(), mostElements);
    }

    void Draw()
    {
        for (std::size_t i = 0; i < kMostOperations && !m_input.IsAtEnd(); ++i)
            Operate();
    }

    // Writes the picture and holds it against what was drawn.
    void Check(const SvgHostWriteOptions& options)
    {
        const std::string svg = Write(options);
        const std::vector<std::string> texts = RequirePicture(svg, Backdrop::Any);
        FuzzRequireSame("a picture that is written again", svg, Write(options));

        std::sort(m_texts.begin(), m_texts.end());
        FuzzRequire(std::includes(m_texts.begin(), m_texts.end(), texts.begin(), texts.end()),
                    "every text is one that was given");
        SvgHostStatistics statistics;
        FuzzRequire(svgHostGetStatistics(m_document.get(), &statistics), "memory is not short");
        FuzzRequire(statistics.elements == m_elements && statistics.symbols == m_symbols,
                    "elements are counted");
        FuzzRequire(statistics.elementsBeyondLimit == m_refused, "what is beyond the limit is counted");
        FuzzRequire(statistics.undrawableElements <= m_elements, "what is left out was there");
        FuzzRequire(m_texts.size() - texts.size() <= statistics.undrawableElements,
                    "every text that can be drawn is in the picture");
        CheckReports();
    }

    // A writer that takes only so many bytes stops the writing.
    void CheckStop(std::size_t most)
    {
        struct Room {
            std::size_t left;
            bool isFull;
        } room{most, false};
        const auto take = [](void* user, const char*, std::size_t size) {
            Room& its = *static_cast<Room*>(user);
            FuzzRequire(!its.isFull, "nothing is written after the end");
            its.isFull = size > its.left;
            its.left -= its.isFull ? 0 : size;
            return !its.isFull;
        };
        const bool isWritten = svgHostWrite(m_document.get(), nullptr, take, &room);
        FuzzRequire(isWritten == !room.isFull, "a picture is written or not");
    }

private:
    float Number()
    {
        const std::uint8_t kind = m_input.Byte();
        return kind < 250 ? (static_cast<float>(kind) - 100) / 4 : m_input.Bits<float>();
    }

    std::wstring Text()
    {
        const std::uint8_t length = m_input.Byte();
        std::wstring text;
        for (int i = 0; i < length % 64 && !m_input.IsAtEnd(); ++i) {
            wchar_t unit = static_cast<wchar_t>(m_input.Byte());
            if (length >= 128)
                unit = static_cast<wchar_t>(unit | m_input.Byte() << 8);
            if (length >= 192 && sizeof(wchar_t) == 4)
                unit = static_cast<wchar_t>(static_cast<std::uint32_t>(unit) |
                                            static_cast<std::uint32_t>(m_input.Byte())
                                                << (unit % 2 == 0 ? 16 : 24));
            if (unit != L'\0')
                text += unit;
        }
        return text;
    }

    std::wstring Value()
    {
        const std::uint8_t which = m_input.Byte();
        return which < std::size(kValues) ? kValues[which] : Text();
    }

    // Points and paths as the module writes them, and any other.
    std::wstring Data()
    {
        const std::uint8_t count = m_input.Byte();
        if (count >= 32)
            return Text();
        const auto number = [&] { return std::to_wstring(Number()); };
        std::wstring data;
        for (int i = 0; i < count; ++i) {
            data += i == 0 ? L"" : L" ";
            data += number() + L"," + number();
        }
        return data;
    }

    std::wstring PathData()
    {
        if (m_input.Byte() % 4 == 0)
            return Text();
        const auto pair = [&] { return std::to_wstring(Number()) + L"," + std::to_wstring(Number()); };
        const std::wstring start = L"M " + pair() + L" A " + pair();
        const wchar_t* const flags[] = {L"0,0", L"0,1", L"1,0", L"1,1"};
        return start + L", 0 " + flags[m_input.Byte() % 4] + L" " + pair();
    }

    QlmNode Node()
    {
        const std::uint8_t which = m_input.Byte();
        return which < m_nodes.size() ? m_nodes[m_nodes.size() - 1 - which] : nullptr;
    }

    void Keep(QlmNode node)
    {
        const bool isFull = m_mostElements != 0 && m_elements == m_mostElements;
        FuzzRequire(!isFull || node == nullptr, "nothing is made beyond the limit");
        m_refused += isFull;
        m_nodes.push_back(node);
        m_elements += node != nullptr;
    }

    void Operate()
    {
        const std::uint8_t operation = m_input.Byte();
        if (operation >= 128) // an attribute of the newest element: what elements get most
            return SetAttribute(m_nodes.empty() ? nullptr : m_nodes.back(), operation);
        const wchar_t* const id = L"";
        switch (operation % 14) {
        case 0: {
            const float x1 = Number(), y1 = Number(), x2 = Number(), y2 = Number();
            return Keep(qlmCreateLine(m_context, id, x1, y1, x2, y2, 0, 0));
        }
        case 1:
            return Keep(qlmCreatePath(m_context, id, PathData().c_str(), 0, 0));
        case 2: {
            const float radius = Number(), x = Number(), y = Number();
            return Keep(qlmCreateCircle(m_context, id, radius, x, y, 0, 0));
        }
        case 3: {
            const float radiusX = Number(), radiusY = Number(), x = Number(), y = Number();
            return Keep(qlmCreateEllipse(m_context, id, radiusX, radiusY, x, y, 0, 0));
        }
        case 4:
            return Keep(qlmCreatePolyline(m_context, id, Data().c_str(), 0, 0));
        case 5:
            return Keep(qlmCreatePolygon(m_context, id, Data().c_str(), 0, 0));
        case 6:
            return CreateText();
        case 7: {
            const std::wstring name = Text();
            const float x = Number(), y = Number();
            return Keep(qlmCreateUse(m_context, id, 0, 0, name.c_str(), L"hmi", x, y));
        }
        case 8: {
            const QlmNode symbol = qlmCreateSymbol(m_context, Text().c_str());
            m_symbols += symbol != nullptr;
            return Keep(symbol);
        }
        case 9:
            return Keep(qlmCreateG(m_context, id));
        case 10:
            qlmSetCurrentSvgNode(m_context, qlmGetCurrentSvgNode(m_context));
            return;
        case 11:
            return qlmSetCurrentSvgNode(m_context, Node());
        case 12:
            return SetAttribute(Node(), m_input.Byte());
        default:
            return Report();
        }
    }

    void CreateText()
    {
        const std::wstring text = Text();
        const float x = Number(), y = Number();
        const bool isFirst = m_input.Byte() % 2 == 0;
        const QlmNode node = isFirst ? qlmCreateText(m_context, L"", x, y, 0, 0, text.c_str(), 0, 0)
                                     : qlmCreateText(m_context, L"", 0, 0, 0, 0, text.c_str(), x, y);
        Keep(node);
        if (node != nullptr)
            m_texts.push_back(TextInPicture(text));
    }

    void SetAttribute(QlmNode node, std::uint8_t which)
    {
        const std::size_t name = which % (std::size(kNames) + 1);
        const std::wstring other = name == std::size(kNames) ? Text() : kNames[name];
        qlmSetAttributeByNode(m_context, node, other.c_str(), Value().c_str());
    }

    void Report()
    {
        const int kind = m_input.Byte();
        m_reports.push_back(Text());
        FuzzRequire(qlmSetLastError(kind, L"DXF", kind, m_reports.back().c_str(), false, 0) == kind,
                    "a report's code is handed back");
    }

    void CheckReports()
    {
        FuzzRequire(svgHostErrorCount(m_document.get()) == m_reports.size(), "every report is kept");
        for (std::size_t i = 0; i < m_reports.size(); ++i) {
            SvgHostError error;
            FuzzRequire(svgHostGetError(m_document.get(), i, &error), "a report can be asked for");
            FuzzRequire(error.code == error.kind && m_reports[i] == error.message, "a report comes back");
        }
    }

    std::string Write(const SvgHostWriteOptions& options)
    {
        std::string svg;
        const auto append = [](void* user, const char* bytes, std::size_t size) {
            static_cast<std::string*>(user)->append(bytes, size);
            return true;
        };
        FuzzRequire(svgHostWrite(m_document.get(), &options, append, &svg), "a picture is written");
        return svg;
    }

    FuzzInput& m_input;
    Document m_document;
    QlmNode m_context;
    std::vector<QlmNode> m_nodes;
    std::vector<std::string> m_texts;
    std::vector<std::wstring> m_reports;
    std::size_t m_mostElements;
    std::size_t m_elements = 0;
    std::size_t m_refused = 0;
    std::size_t m_symbols = 0;
};

} // namespace

// Millimetres for a unit of the drawing, sensible ones and others.
constexpr double kUnits[16] = {1,
                               10,
                               25.4,
                               304.8,
                               1000,
                               0.001,
                               1e-30,
                               1e30,
                               1e308,
                               1e-308,
                               5e-324,
                               -1,
                               -0.0,
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const std::uint8_t how = input.Byte();
    std::string background;
    if ((how & 5) != 0)
        background = input.Text(input.Byte() % 16);
    const std::size_t most = (how & 2) != 0 ? 16 * std::size_t{input.Byte()} : 0;
    const std::size_t mostElements = (how & 0x88) == 0x80 ? std::size_t{1} << (how >> 4 & 7) : 0;
    Run run(input, mostElements);
    run.Draw();
    SvgHostWriteOptions options{};
    if ((how & 1) != 0)
        options.background = background.c_str();
    if ((how & 4) != 0)
        options.style = background.c_str();
    if ((how & 8) != 0)
        options.unit = kUnits[how >> 4];
    run.Check(options);
    options.sheet = 420;
    options.usesStandardScale = true;
    options.showsMost = true;
    run.Check(options);
    if ((how & 2) != 0)
        run.CheckStop(most);
    return 0;
}
