// A console reporter that, after the usual table, pairs the benchmarks named
// ".../kai18n" and ".../<peer>" and prints how many times faster ours is
// (peer time / our time; above 1.0 we are faster). With repetitions it uses
// the medians.
#ifndef KAI18N_BENCH_RATIO_REPORTER_H
#define KAI18N_BENCH_RATIO_REPORTER_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    struct Times {
        double single = 0;  // the last plain run
        double median = 0;  // the median aggregate, when repetitions ran
    };
    std::map<std::string, Times> m_times;  // by full benchmark name
};

/// Runs the registered benchmarks with the ratio reporter; use as main().
int RunBenchmarksWithRatios(int argc, char** argv);

#endif  // KAI18N_BENCH_RATIO_REPORTER_H
