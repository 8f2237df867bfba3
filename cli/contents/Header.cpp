#include "cli/contents/Header.h"

#include "base/Numbers.h"
#include "input/CDxfOpenFile.h"
#include "prepare/pairs/PairReader.h"

namespace plexorn {

namespace {

constexpr std::string_view kReleases[][2] = {
    {"AC1006", "R10"},   {"AC1009", "R12"},   {"AC1012", "R13"},   {"AC1014", "R14"},   {"AC1015", "R2000"},
    {"AC1018", "R2004"}, {"AC1021", "R2007"}, {"AC1024", "R2010"}, {"AC1027", "R2013"}, {"AC1032", "R2018"},
};

} // namespace

std::string_view ReleaseOfVersion(std::string_view version)
{
    for (const auto& [number, release] : kReleases)
        if (number == version)
            return release;
    return {};
}

void HeaderReader::Take(int code, std::string_view value)
{
    if (code == 9) {
        m_variable = value;
    } else if (m_variable == "$ACADVER" && code == 1) {
        m_header.version = value;
    } else if (m_variable == "$DWGCODEPAGE" && code == 3) {
        m_header.codePage = value;
    } else if (m_variable == "$INSUNITS" && code == 70) {
        m_header.units = LeadingInteger(value);
        m_header.unitsText = value.substr(0, value.find_first_not_of("0123456789", 1));
    } else if (m_variable == "$MEASUREMENT" && code == 70) {
        m_header.measurement = LeadingInteger(value);
    } else if (code == 10 || code == 20) {
        std::optional<HeaderPoint>* point = Point();
        std::optional<double> number = LeadingReal(value);
        if (!point || !number)
            return;
        if (!*point)
            point->emplace();
        (code == 10 ? (*point)->x : (*point)->y) = *number;
    }
}

std::optional<HeaderPoint>* HeaderReader::Point() const
{
    if (m_variable == "$EXTMIN")
        return &m_header.extentsMin;
    if (m_variable == "$EXTMAX")
        return &m_header.extentsMax;
    if (m_variable == "$LIMMIN")
        return &m_header.limitsMin;
    return m_variable == "$LIMMAX" ? &m_header.limitsMax : nullptr;
}

Header ReadHeader(std::FILE* file)
{
    Header header;
    HeaderReader reader(header);
    CDxfOpenFile source(file);
    prepare::PairReader pairs(source, prepare::TextSource::DoubledEnds::Kept); // as the module does
    bool isInSection = false, isInHeader = false;
    while (pairs.Next()) {
        const std::string_view value = Trim(pairs.Value());
        if (pairs.Code() == 0) {
            isInSection = value == "SECTION";
            if (!isInSection)
                break;
        } else if (isInHeader) {
            reader.Take(pairs.Code(), value);
        } else if (isInSection && pairs.Code() == 2) {
            isInHeader = value == "HEADER";
            if (!isInHeader)
                break;
        }
    }
    header.readError = source.Error();
    return header;
}

} // namespace plexorn
