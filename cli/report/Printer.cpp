#include "cli/report/Printer.h"

#include "base/Joined.h"

#include <cstdio>

namespace plexorn {

namespace {

// Enough for the last words of thousands of drawings while they wait for a slow one.
constexpr std::size_t kMostWaitingBytes = 1 << 24;

constexpr std::chrono::milliseconds kProgressInterval(100);

bool PutOut(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stderr) == text.size() && std::fflush(stderr) == 0;
}

} // namespace

Printer::Printer(std::size_t count, bool showsProgress) : m_count(count), m_showsProgress(showsProgress) {}

Printer::~Printer()
{
    ClearProgress();
}

void Printer::Print(std::size_t number, std::string_view lines)
{
    std::unique_lock lock(m_mutex);
    if (m_turn != number && m_waitingBytes + lines.size() > kMostWaitingBytes)
        m_turnCame.wait(lock, [&] { return m_turn == number; });
    if (m_turn == number) {
        Write(lines);
    } else {
        m_waiting[number].lines += lines;
        m_waitingBytes += lines.size();
    }
}

void Printer::End(std::size_t number, bool hasFailed)
{
    const std::lock_guard lock(m_mutex);
    ++m_ended;
    m_failed += hasFailed;
    m_waiting[number].isEnded = true;
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
    return m_lost;
}

// Prints what waited for its turn, as far as the drawings before it have ended.
void Printer::Advance()
{
    for (auto first = m_waiting.begin(); first != m_waiting.end() && first->first == m_turn;
         first = m_waiting.begin()) {
        Write(first->second.lines);
        m_waitingBytes -= first->second.lines.size();
        first->second.lines.clear();
        if (!first->second.isEnded)
            break;
        m_waiting.erase(first);
        ++m_turn;
    }
    m_turnCame.notify_all();
}

void Printer::Write(std::string_view lines)
{
    if (lines.empty())
        return;
    ClearProgress();
    if (!PutOut(lines))
        m_lost = true;
}

void Printer::ShowProgress()
{
    auto now = std::chrono::steady_clock::now();
    if (!m_showsProgress || now - m_shownAt < kProgressInterval)
        return;
    std::string text = std::to_string(m_ended) + " of " + std::to_string(m_count);
    if (m_failed > 0)
        text += ", " + std::to_string(m_failed) + " failed";
    ClearProgress();
    PutOut(text);
    m_shownWidth = text.size();
    m_shownAt = now;
}

// Blanks instead of a control sequence, which not every terminal knows.
void Printer::ClearProgress()
{
    if (m_shownWidth == 0)
        return;
    PutOut(Joined({"\r", std::string(m_shownWidth, ' '), "\r"}));
    m_shownWidth = 0;
}

} // namespace plexorn
