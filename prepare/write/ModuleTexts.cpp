#include "prepare/write/ModuleTexts.h"

#include "base/Pi.h"
#include "prepare/write/AgreedBlocks.h"

#include <cmath>

namespace prepare {

namespace {

std::int64_t MillionthsOf(double radians)
{
    return std::llround(DegreesOf(radians) * 1e6);
}

std::string NameOfTurned(std::size_t number)
{
    return Numbered(kTextPrefix, number);
}

std::string NameOfLine(const ModuleLine& line, std::size_t number)
{
    constexpr std::string_view kPrefixes[] = {kTextPrefix, kMiddleTextPrefix, kEndTextPrefix};
    const ModuleRun& first = line.front();
    if (first.spread > 0)
        return Numbered(Numbered(kSpreadTextPrefix, static_cast<std::size_t>(first.spread)) + "_", number);
    return Numbered(kPrefixes[static_cast<std::size_t>(first.origin)], number);
}

} // namespace

double DegreesOf(double radians)
{
    const double degrees = std::fmod(radians * kDegreesPerRadian, 360);
    return degrees < 0 ? degrees + 360 : degrees;
}

void WriteModuleText(PairWriter& pairs, const ModuleStyles& styles, const ModuleText& text, Point2 point,
                     int decimals)
{
    pairs.Text(0, "TEXT");
    pairs.Raw(styles.OfLetters(text.style));
    pairs.Fixed(10, point.x, decimals);
    pairs.Fixed(20, point.y + text.size, decimals); // the module takes it off again
    pairs.Fixed(40, text.size, decimals);
    pairs.Text(1, text.value);
    if (text.anchor != Anchor::Start)
        pairs.Integer(72, text.anchor == Anchor::Middle ? 1 : 2);
}

void ModuleTexts::Add(const ModuleLine& line, double innerRotation)
{
    const auto [place, isNew] = m_numbers.try_emplace(line, m_lines.size() + 1);
    if (isNew)
        m_lines.push_back(&place->first);
    if (innerRotation != 0)
        m_turned.try_emplace({place->second, MillionthsOf(innerRotation)}, m_turned.size() + 1);
}

// Those that are turned are numbered after the lines.
std::string ModuleTexts::NameOf(const ModuleLine& line, double innerRotation) const
{
    const std::size_t number = m_numbers.at(line);
    if (innerRotation == 0)
        return NameOfLine(line, number);
    return NameOfTurned(m_lines.size() + m_turned.at({number, MillionthsOf(innerRotation)}));
}

void ModuleTexts::WriteBlocks(PairWriter& pairs, const ModuleStyles& styles, int decimals) const
{
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        pairs.Text(0, "BLOCK");
        pairs.Text(2, NameOfLine(*m_lines[i], i + 1));
        for (const ModuleRun& run : *m_lines[i])
            WriteModuleText(pairs, styles, run.text, {run.x, run.y}, decimals);
        pairs.Text(0, "ENDBLK");
    }
    for (const auto& [turned, number] : m_turned) {
        pairs.Text(0, "BLOCK");
        pairs.Text(2, NameOfTurned(m_lines.size() + number));
        pairs.Text(0, "INSERT");
        pairs.Text(2, NameOfLine(*m_lines[turned.first - 1], turned.first));
        pairs.Fixed(50, static_cast<double>(turned.second) * 1e-6, kRotationDecimals);
        pairs.Text(0, "ENDBLK");
    }
}

} // namespace prepare
