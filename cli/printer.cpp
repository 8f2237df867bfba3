#include "printer.h"

#include "joined.h"

#include <cstdio>

namespace plexorn {

namespace {

// Enough for the last words of thousands of drawings while they wait for a slow one.
constexpr size_t MostWaitingBytes = 1 << 24;

constexpr std::chrono::milliseconds ProgressInterval(100);

bool PutOut(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stderr) == text.size() && std::fflush(stderr) == 0;
}

} // namespace

CPrinter::CPrinter(size_t count, bool showsProgress) : m_nCount(count), m_bShowsProgress(showsProgress) {}

CPrinter::~CPrinter()
{
    ClearProgress();
}

void CPrinter::Print(size_t number, std::string_view lines)
{
    std::unique_lock lock(m_mutex);
    if (m_nTurn != number && m_nWaitingBytes + lines.size() > MostWaitingBytes)
        m_turnCame.wait(lock, [&] { return m_nTurn == number; });
    if (m_nTurn == number) {
        Write(lines);
    } else {
        m_waiting[number].lines += lines;
        m_nWaitingBytes += lines.size();
    }
}

void CPrinter::End(size_t number, bool hasFailed)
{
    std::lock_guard lock(m_mutex);
    ++m_nEnded;
    m_nFailed += hasFailed;
    m_waiting[number].isEnded = true;
    Advance();
    ShowProgress();
}

void CPrinter::Close(std::string_view lines)
{
    std::lock_guard lock(m_mutex);
    Write(lines);
}

bool CPrinter::IsAnyLost()
{
    std::lock_guard lock(m_mutex);
    return m_bLost;
}

// Prints what waited for its turn, as far as the drawings before it have ended.
void CPrinter::Advance()
{
    for (auto first = m_waiting.begin(); first != m_waiting.end() && first->first == m_nTurn;
         first = m_waiting.begin()) {
        Write(first->second.lines);
        m_nWaitingBytes -= first->second.lines.size();
        first->second.lines.clear();
        if (!first->second.isEnded)
            break;
        m_waiting.erase(first);
        ++m_nTurn;
    }
    m_turnCame.notify_all();
}

void CPrinter::Write(std::string_view lines)
{
    if (lines.empty())
        return;
    ClearProgress();
    if (!PutOut(lines))
        m_bLost = true;
}

void CPrinter::ShowProgress()
{
    auto now = std::chrono::steady_clock::now();
    if (!m_bShowsProgress || now - m_shownAt < ProgressInterval)
        return;
    std::string text = std::to_string(m_nEnded) + " of " + std::to_string(m_nCount);
    if (m_nFailed > 0)
        text += ", " + std::to_string(m_nFailed) + " failed";
    ClearProgress();
    PutOut(text);
    m_nShownWidth = text.size();
    m_shownAt = now;
}

// Blanks instead of a control sequence, which not every terminal knows.
void CPrinter::ClearProgress()
{
    if (m_nShownWidth == 0)
        return;
    PutOut(Joined({"\r", std::string(m_nShownWidth, ' '), "\r"}));
    m_nShownWidth = 0;
}

} // namespace plexorn
