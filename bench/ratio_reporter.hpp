// Prints, after the usual report, how each "work/zendara" compares with "work/raw" of the same run, by medians.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <string_view>

namespace zendara {

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    constexpr std::string_view kOurs = "/zendara";
    for (const auto& [name, time] : medians_) {
      if (!name.ends_with(kOurs)) continue;
      const std::string work = name.substr(0, name.size() - kOurs.size());
      const auto raw = medians_.find(work + "/raw");
      if (raw != medians_.end()) {
        GetOutputStream() << "ratio " << work << ": " << static_cast<int>(time / raw->second * 100 + 0.5) << " %\n";
      }
    }
  }

 private:
  std::map<std::string, double> medians_;
};

// Interleaved repetitions, so that what else the machine does falls on both sides alike.
inline int RunWithRatios(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string defaults[] = {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
                            "--benchmark_report_aggregates_only=true"};
  for (std::string& text : defaults) arguments.insert(arguments.begin() + 1, text.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}

}  // namespace zendara
