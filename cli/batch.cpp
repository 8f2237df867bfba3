#include "batch.h"

#include "draw.h"
#include "interrupt.h"
#include "native.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <new>
#include <thread>

namespace plexorn {

namespace {

using Clock = std::chrono::steady_clock;

class CBatch {
public:
    CBatch(const std::vector<Job>& jobs, const Options& options, const ReportStyle& style, CPrinter& printer)
        : m_jobs(jobs), m_options(options), m_style(style), m_printer(printer)
    {
    }

    void Run(size_t threads)
    {
        std::vector<std::jthread> others;
        while (others.size() + 1 < threads && Start(others)) {
        }
        Work();
    }

    size_t Failed() const { return m_nFailed; }
    size_t Messages() const { return m_nMessages; }
    bool IsAnyCutOff() const { return m_bCutOff; }
    ExitCode LastFailure() const { return m_lastFailure; }

private:
    // False when the system gives no further thread; those that could be started do.
    bool Start(std::vector<std::jthread>& others)
    {
        try {
            others.emplace_back([this] { Work(); });
            return true;
        } catch (const std::system_error&) {
            return false;
        }
    }

    void Work()
    {
        for (size_t number = m_nNext++; number < m_jobs.size() && !CInterruptGuard::IsInterrupted();
             number = m_nNext++)
            DrawNumber(number);
    }

    void DrawNumber(size_t number)
    {
        const Job& job = m_jobs[number];
        CReport report(m_printer, number, ShownName(job.input), m_style);
        try {
            DrawJob(job, m_options, report);
        } catch (const std::bad_alloc&) {
            report.Failed(ShownName(job.input), "is not drawn: memory is short", ExitFile);
        } catch (const std::exception& error) {
            report.Failed(ShownName(job.input), std::string("is not drawn: ") + error.what(), ExitFile);
        }
        m_nMessages += report.MessageCount();
        if (report.IsCutOff())
            m_bCutOff = true;
        if (report.Code() != ExitDrawn) {
            ++m_nFailed;
            m_lastFailure = report.Code();
        }
    }

    const std::vector<Job>& m_jobs;
    const Options& m_options;
    const ReportStyle& m_style;
    CPrinter& m_printer;
    std::atomic<size_t> m_nNext = 0;
    std::atomic<size_t> m_nFailed = 0;
    std::atomic<size_t> m_nMessages = 0;
    std::atomic<bool> m_bCutOff = false;
    std::atomic<ExitCode> m_lastFailure = ExitDrawn;
};

ReportStyle StyleFor(const Options& options)
{
    const char* noColour = std::getenv("NO_COLOR");
    ReportStyle style;
    style.isJson = options.messageFormat == "json";
    style.isQuiet = options.isQuiet;
    style.isColoured = !style.isJson && !(noColour && *noColour) && IsTerminal(stderr);
    style.maxMessages = options.maxMessages;
    return style;
}

size_t ThreadCount(const Options& options, size_t jobs)
{
    size_t wanted = options.jobs != 0 ? options.jobs : std::max(1u, std::thread::hardware_concurrency());
    return std::min(wanted, jobs);
}

int CodeFor(const CBatch& batch, size_t jobs, bool isStrict)
{
    if (batch.Failed() > 0)
        return jobs > 1 ? ExitSomeFailed : batch.LastFailure();
    bool isDoubtful = batch.Messages() > 0 || batch.IsAnyCutOff();
    return isStrict && isDoubtful ? ExitMessages : ExitDrawn;
}

} // namespace

int DrawAll(const Options& options)
{
    Clock::time_point start = Clock::now();
    std::vector<Job> jobs = PlanJobs(FindInputs(options), options);
    ReportStyle style = StyleFor(options);
    bool isOne = jobs.size() == 1;
    CPrinter printer(jobs.size(), !isOne && !style.isQuiet && !style.isJson && IsTerminal(stderr));
    CBatch batch(jobs, options, style, printer);
    batch.Run(ThreadCount(options, jobs.size()));
    if (!isOne && !style.isQuiet) {
        auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        auto text = style.isJson ? TotalJson : TotalText;
        std::string total = text(jobs.size() - batch.Failed(), batch.Failed(), batch.Messages(), time);
        printer.Close(total + "\n");
    }
    // Who reads objects goes by them: a drawing that none tells of would count as drawn without a message.
    if (style.isJson && printer.IsAnyLost())
        return ExitFile;
    return CodeFor(batch, jobs.size(), options.isStrict);
}

} // namespace plexorn
