#include "cli/batch/RunBatch.h"

#include "cli/files/Inputs.h"
#include "cli/report/ClosingLine.h"
#include "cli/report/Printer.h"
#include "cli/report/ReportStyle.h"
#include "cli/system/InterruptGuard.h"
#include "cli/system/Native.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

namespace plexorn {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kShortMemory = "memory is short";

class Batch {
public:
    Batch(const std::vector<Job>& jobs, const Options& options, DoJob doJob, const ReportStyle& style,
          Printer& printer)
        : m_jobs(jobs), m_options(options), m_doJob(doJob), m_style(style), m_printer(printer)
    {
        for (const Job& job : jobs)
            m_lastWords.push_back(ReasonLine(style, "failed", ShownName(job.input),
                                             NotDone(options.task) + kShortMemory, ExitCode::File));
    }

    void Run(std::size_t threads)
    {
        std::vector<std::jthread> others;
        while (others.size() + 1 < threads && Start(others)) {
        }
        Work();
    }

    std::size_t Failed() const { return m_failed; }
    std::size_t Skipped() const { return m_skipped; }
    std::size_t Messages() const { return m_messages; }
    std::size_t Blank() const { return m_blank; }
    bool IsAnyDoubtful() const { return m_doubtful; }
    bool IsAnyChanged() const { return m_changed; }
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
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    void Work()
    {
        for (std::size_t number = m_next++; number < m_jobs.size() && !InterruptGuard::IsInterrupted();
             number = m_next++)
            DoNumber(number);
    }

    // No exception may leave a thread.
    void DoNumber(std::size_t number) noexcept
    {
        try {
            Report report(m_printer, number, ShownName(m_jobs[number].input), m_style);
            Do(m_jobs[number], report);
            Count(report);
            report.End();
        } catch (const std::bad_alloc&) {
            // There is not even memory for the report.
            CountFailure(ExitCode::File);
            m_printer.Print(number, m_lastWords[number]);
            m_printer.End(number, true);
        }
    }

    void Do(const Job& job, Report& report) const
    {
        try {
            m_doJob(job, job.layout.empty() ? m_options : OptionsFor(job), report);
        } catch (const std::bad_alloc&) {
            report.DropMessages();
            report.Failed(ShownName(job.input), NotDone(m_options.task) + kShortMemory, ExitCode::File);
        } catch (const std::exception& error) {
            report.Failed(ShownName(job.input), NotDone(m_options.task) + error.what(), ExitCode::File);
        }
    }

    void Count(const Report& report)
    {
        m_messages += report.MessageCount();
        if (report.IsChanged())
            m_changed = true;
        if (report.Doubt() == ExitCode::Incomplete)
            m_doubtful = true;
        m_blank += report.Doubt() == ExitCode::Blank;
        m_skipped += report.IsSkipped();
        if (report.Code() != ExitCode::Drawn)
            CountFailure(report.Code());
    }

    void CountFailure(ExitCode code)
    {
        ++m_failed;
        m_lastFailure = code;
    }

    Options OptionsFor(const Job& job) const
    {
        Options options = m_options;
        options.layout = job.layout;
        return options;
    }

    const std::vector<Job>& m_jobs;
    const Options& m_options;
    const DoJob m_doJob;
    const ReportStyle& m_style;
    Printer& m_printer;
    std::vector<std::string> m_lastWords; // what is printed when there is no memory for any other text
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_failed = 0;
    std::atomic<std::size_t> m_skipped = 0;
    std::atomic<std::size_t> m_messages = 0;
    std::atomic<std::size_t> m_blank = 0;
    std::atomic<bool> m_doubtful = false;
    std::atomic<bool> m_changed = false;
    std::atomic<ExitCode> m_lastFailure = ExitCode::Drawn;
};

std::size_t ThreadCount(const Options& options, std::size_t jobs)
{
    const std::size_t wanted =
        options.jobs != 0 ? options.jobs : std::max(1u, std::thread::hardware_concurrency());
    return std::min(wanted, jobs);
}

RunResult ResultOf(const Batch& batch, std::size_t jobs, bool isStrict)
{
    const bool isChanged = batch.Messages() > 0 || batch.IsAnyChanged();
    return {jobs, batch.Failed(), batch.LastFailure(), batch.Blank() > 0,
            batch.IsAnyDoubtful() || (isStrict && isChanged)};
}

// Each drawing once for each of its sheets. A drawing without sheets stays in the list and reports that.
Inputs WithLayouts(const Inputs& inputs, const Options& options, NameLayouts nameLayouts)
{
    Inputs wanted;
    wanted.areMany = true;
    for (const Input& input : inputs.files) {
        const std::vector<std::string> layouts =
            input.reason.empty() ? nameLayouts(input.name, options) : std::vector<std::string>();
        if (layouts.empty())
            wanted.files.push_back(input);
        for (const std::string& layout : layouts)
            wanted.files.push_back({input.name, input.below, {}, layout});
    }
    return wanted;
}

} // namespace

ExitCode RunBatch(const Options& options, DoJob doJob, NameLayouts nameLayouts)
{
    const Clock::time_point start = Clock::now();
    Inputs inputs = FindInputs(options);
    if (options.layout == kAllLayouts)
        inputs = WithLayouts(inputs, options, nameLayouts);
    const std::vector<Job> jobs = PlanJobs(inputs, options);
    const ReportStyle style = StyleFor(options, IsTerminal(stderr));
    const bool isOne = jobs.size() == 1;
    Printer printer(jobs.size(), !isOne && !style.isQuiet && !style.isJson && IsTerminal(stderr));
    Batch batch(jobs, options, doJob, style, printer);
    batch.Run(ThreadCount(options, jobs.size()));
    if (!isOne && !style.isQuiet) {
        auto time = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        auto text = style.isJson ? TotalJson : TotalText;
        const std::size_t done = jobs.size() - batch.Failed() - batch.Skipped();
        const std::string total =
            text({DoneWord(options.task), done, batch.Blank(), batch.Skipped(), batch.Failed()},
                 batch.Messages(), time);
        printer.Close(total + "\n");
    }
    // Programs that read the objects rely on them: a drawing without one would count as drawn without a
    // message.
    if (style.isJson && printer.IsAnyLost())
        return ExitCode::File;
    return ExitCodeOf(ResultOf(batch, jobs.size(), options.isStrict));
}

} // namespace plexorn
