#include "cli/info/Summary.h"

#include "cli/info/Table.h"
#include "cli/report/Counted.h"
#include "cli/report/Json.h"
#include "cli/report/Printable.h"
#include "cli/report/ShareText.h"

namespace plexorn {

void Summary::Add(const Share& share)
{
    ++m_drawings;
    m_whole += share.IsWhole();
    m_share.Add(share);
    for (const auto& [type, count] : share.missing)
        ++m_drawingsMissing[type];
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        m_drawingsOtherwise[i] += share.otherwise[i] > 0;
    for (const auto& [how, count] : share.changed)
        ++m_drawingsChanged[how];
}

std::string Summary::Text() const
{
    std::string out = Counted(m_drawings, "drawing", "drawings") + ", " + std::to_string(m_whole) +
                      " shown as stated, " + std::to_string(m_failed) + " failed; " + ShareText(m_share) +
                      "\n";
    Table missing({"missing", ">entities", ">drawings"});
    for (const auto& [type, count] : m_share.missing)
        missing.Add({Printable(type), std::to_string(count), std::to_string(m_drawingsMissing.at(type))});
    if (missing.Rows() > 0)
        out.append("\n").append(missing.Text());
    Table otherwise({"shown otherwise", ">entities", ">drawings"});
    for (std::size_t i = 0; i < kDifferenceCount; ++i)
        if (m_share.otherwise[i] > 0)
            otherwise.Add({std::string(kDifferenceRows[i].plural), std::to_string(m_share.otherwise[i]),
                           std::to_string(m_drawingsOtherwise[i])});
    for (const auto& [how, count] : m_share.changed)
        otherwise.Add({Printable(how), std::to_string(count), std::to_string(m_drawingsChanged.at(how))});
    if (otherwise.Rows() > 0)
        out.append("\n").append(otherwise.Text());
    return out;
}

std::string Summary::JsonText() const
{
    Json json;
    json.Open('{').Member("drawings", m_drawings).Member("failed", m_failed).Member("whole", m_whole);
    AddShare(json, m_share);
    return json.Close('}').Result() + "\n";
}

} // namespace plexorn
