#include "cli/report/Printer.h"

#include <array>
#include <cstdio>
#include <new>

namespace plexorn {

namespace {

constexpr std::chrono::milliseconds kProgressInterval(100);
constexpr std::size_t kWidestProgress = 78; // more than three of the greatest numbers and the words take

bool PutOut(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stderr) == text.size() && std::fflush(stderr) == 0;
}

} // namespace

Printer::Printer(std::size_t count, bool showsProgress) : m_isEnded(count), m_showsProgress(showsProgress) {}

Printer::~Printer()
{
    ClearProgress();
}

void Printer::Print(std::size_t number, std::string_view lines) noexcept
{
    std::unique_lock lock(m_mutex);
    if (m_turn != number && Keep(number, lines))
        return;
    m_turnCame.wait(lock, [&] { return m_turn == number; });
    Write(lines);
}

// False when these lines would take more memory than there is or should be taken.
bool Printer::Keep(std::size_t number, std::string_view lines)
{
    if (m_waitingBytes + lines.size() > kMostWaitingBytes)
        return false;
    try {
        m_waiting[number] += lines;
    } catch (const std::bad_alloc&) {
        return false;
    }
    m_waitingBytes += lines.size();
    return true;
}

void Printer::End(std::size_t number, bool hasFailed) noexcept
{
    const std::lock_guard lock(m_mutex);
    ++m_ended;
    m_failed += hasFailed;
    m_isEnded[number] = true;
    Advance();
    ShowProgress();
}

void Printer::Close(std::string_view lines)
{
    const std::lock_guard lock(m_mutex);
    Write(lines);
}

bool Printer::IsAnyLost()
{
    const std::lock_guard lock(m_mutex);
    return m_hasLost;
}

// Prints what waited for its turn, as far as the drawings before it have ended.
void Printer::Advance()
{
    while (m_turn < m_isEnded.size() && m_isEnded[m_turn]) {
        ++m_turn;
        const auto lines = m_waiting.find(m_turn);
        if (lines == m_waiting.end())
            continue;
        Write(lines->second);
        m_waitingBytes -= lines->second.size();
        m_waiting.erase(lines);
    }
    m_turnCame.notify_all();
}

void Printer::Write(std::string_view lines)
{
    if (lines.empty())
        return;
    ClearProgress();
    if (!PutOut(lines))
        m_hasLost = true;
}

void Printer::ShowProgress()
{
    auto now = std::chrono::steady_clock::now();
    if (!m_showsProgress || now - m_shownAt < kProgressInterval)
        return;
    try {
        std::string text = std::to_string(m_ended) + " of " + std::to_string(m_isEnded.size());
        if (m_failed > 0)
            text += ", " + std::to_string(m_failed) + " failed";
        ClearProgress();
        PutOut(text);
        m_shownWidth = text.size();
        m_shownAt = now;
    } catch (const std::bad_alloc&) {
        m_shownAt = now; // a later drawing shows it
    }
}

// Blanks instead of a control sequence, which not every terminal knows.
void Printer::ClearProgress()
{
    if (m_shownWidth == 0)
        return;
    std::array<char, kWidestProgress + 2> blanks{};
    blanks.fill(' ');
    blanks.front() = blanks[m_shownWidth + 1] = '\r';
    PutOut({blanks.data(), m_shownWidth + 2});
    m_shownWidth = 0;
}

} // namespace plexorn
