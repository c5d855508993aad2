#include "ratio_reporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        // CPU time: on a shared machine it is steadier than wall time.
        const double time = run.GetAdjustedCPUTime();
        if (run.run_type == Run::RT_Aggregate) {
            if (run.aggregate_name == "median") m_times[run.run_name.str()].median = time;
        } else {
            m_times[run.run_name.str()].single = time;
        }
    }
}

void RatioReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::printf("\n%-48s %12s %12s %8s\n", "benchmark (ours vs peer)", "ours", "peer", "ratio");
    for (const auto& [name, ours] : m_times) {
        const std::string suffix = "/kai18n";
        if (name.size() < suffix.size() ||
            name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
            continue;
        const std::string stem = name.substr(0, name.size() - suffix.size());
        for (const auto& [peerName, peer] : m_times) {
            if (peerName == name || peerName.compare(0, stem.size() + 1, stem + "/") != 0) continue;
            if (peerName.find('/', stem.size() + 1) != std::string::npos) continue;
            const double a = ours.median > 0 ? ours.median : ours.single;
            const double b = peer.median > 0 ? peer.median : peer.single;
            std::printf("%-48s %12.0f %12.0f %8.2f  (%s)\n", stem.c_str(), a, b, b / a,
                        peerName.substr(stem.size() + 1).c_str());
        }
    }
    std::fflush(stdout);
}

int RunBenchmarksWithRatios(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
