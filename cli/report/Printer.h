// What is said about several drawings that are drawn at the same time, printed one drawing after the other.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// How many bytes are kept at most: enough for the last words of thousands of drawings while they wait for a
// slow one.
inline constexpr std::size_t kMostWaitingBytes = 1 << 24;

// Prints to the standard error stream, in the order of the drawings' numbers, from 0 on: what a drawing says
// is kept until its turn has come, and when much is kept already, a thread that says more waits. All its
// functions can be called on any thread, and none of them but the constructor fails for lack of memory.
// Numbers have to be begun in their order.
class Printer {
public:
    // Shows on a terminal how far count drawings are, when showsProgress.
    Printer(std::size_t count, bool showsProgress);
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // Prints whole lines that drawing number has to say.
    void Print(std::size_t number, std::string_view lines) noexcept;
    // Drawing number has nothing more to say.
    void End(std::size_t number, bool hasFailed) noexcept;
    // Prints lines after those of all drawings, which have ended.
    void Close(std::string_view lines);
    // Whether something could not be printed.
    bool IsAnyLost();

private:
    bool Keep(std::size_t number, std::string_view lines);
    void Write(std::string_view lines);
    void Advance();
    void ShowProgress();
    void ClearProgress();

    std::mutex m_mutex;
    std::condition_variable m_turnCame;
    std::size_t m_turn = 0;
    std::map<std::size_t, std::string> m_waiting; // lines whose turn has not come
    std::size_t m_waitingBytes = 0;
    std::vector<bool> m_isEnded;
    bool m_hasLost = false;

    bool m_showsProgress;
    std::size_t m_ended = 0;
    std::size_t m_failed = 0;
    std::size_t m_shownWidth = 0;
    std::chrono::steady_clock::time_point m_shownAt;
};

} // namespace plexorn
