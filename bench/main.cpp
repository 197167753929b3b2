// Measures the figures, each in a process of its own, for the state of what they measure is the process's;
// prints the table and keeps Google Benchmark's results.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "bench/registry.h"

namespace bench {
namespace {

struct Options {
  std::string filter = ".*";
  bool once = false;
  int repetitions = 9;
  std::string output = "figures.json";
};

constexpr int exitMisused = 2;

/// Runs as the child process, and ends it. The results go to `file`.
[[noreturn]] void measure(const Row& row, const Options& options, const std::string& file) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);  // Not to go on alone.
  std::vector<std::string> arguments = {
      "bench",
      "--benchmark_filter=^" + row.name + "(/manual_time)?$",
      fmt::format("--benchmark_repetitions={}", options.once ? 1 : options.repetitions),
      fmt::format("--benchmark_min_time={}", options.once ? 0.0 : 0.1),
      "--benchmark_out=" + file,
      "--benchmark_out_format=json",
  };
  std::vector<char*> pointers;
  for (auto& argument : arguments) pointers.push_back(argument.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  struct Silent : benchmark::BenchmarkReporter {
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>&) override {}
  } silent;
  benchmark::RunSpecifiedBenchmarks(&silent);
  std::exit(EXIT_SUCCESS);
}

/// The results of one figure; nothing when its process failed, which has then said why.
std::optional<nlohmann::json> measuredInAChild(const Row& row, const Options& options) {
  // In memory, so that nothing is left behind and nobody else meets it; the child opens it by its number.
  const int memory = memfd_create("figure", 0);
  const std::string file = fmt::format("/proc/{}/fd/{}", getpid(), memory);
  std::fflush(stdout);  // Or the child would print it once more.
  const pid_t child = fork();
  if (child == 0) measure(row, options, file);
  int status = 0;
  const bool succeeded = child > 0 && waitpid(child, &status, 0) == child && status == 0;
  std::ifstream input(file);
  const std::string text{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  close(memory);
  // Google Benchmark writes NaN for how much counts of 0 vary, which is no JSON.
  auto results =
      nlohmann::json::parse(std::regex_replace(text, std::regex(": -?(nan|NaN)"), ": null"), nullptr, false);
  return succeeded && !results.is_discarded() ? std::optional(results) : std::nullopt;
}

/// One value a repetition, ascending.
std::vector<double> valuesOf(const nlohmann::json& results, const char* counter) {
  std::vector<double> values;
  for (const auto& run : results.at("benchmarks")) {
    if (run.value("run_type", "") == "iteration" && run.contains(counter)) values.push_back(run.at(counter));
  }
  std::ranges::sort(values);
  return values;
}

/// Three digits that count, but none below the point of large numbers.
std::string shortNumber(double number) {
  return std::abs(number) < 100 ? fmt::format("{:.3g}", number) : fmt::format("{:.0f}", number);
}

std::string milliseconds(const std::vector<double>& seconds) {
  return seconds.empty() ? "" : shortNumber(seconds[seconds.size() / 2] * 1000);
}

constexpr const char* layout = "{:<44} {:<44} {:>9} {:>9} {:>9} {:>15} {:>9} {}\n";

bool isReached(const Bound& bound, double ratio) {
  return bound.kind == Bound::Kind::AtMost ? ratio <= bound.ratio : ratio >= bound.ratio;
}

std::string textOf(const Bound& bound) {
  return (bound.kind == Bound::Kind::AtMost ? "<= " : ">= ") + shortNumber(bound.ratio);
}

/// A count is the same however often it is measured, and on every machine.
bool isBroken(const Row& row, const nlohmann::json& results) {
  return row.isCount && !isReached(row.bound, valuesOf(results, ratioCounter).front());
}

void print(const Row& row, const nlohmann::json& results) {
  const auto ratios = valuesOf(results, ratioCounter);
  const double median = ratios[ratios.size() / 2];
  const std::string spread = shortNumber(ratios.front()) + ".." + shortNumber(ratios.back());
  fmt::print(layout, row.name, row.reference, milliseconds(valuesOf(results, measuredCounter)),
             milliseconds(valuesOf(results, referenceCounter)), shortNumber(median),
             row.isCount ? "" : spread, textOf(row.bound),
             isReached(row.bound, median) ? "reached" : "NOT REACHED");
  std::fflush(stdout);
}

void printHead(const Options& options) {
  if (options.once) {
    fmt::print("Every work once; times would say nothing:\n");
  } else {
    fmt::print(layout, "figure", "reference", "ms", "ref. ms", "ratio", "spread", "bound", "");
  }
}

/// Measures and prints those rows; their results, and in `failures` how many of them failed.
nlohmann::json measureAll(const std::vector<Row>& wanted, const Options& options, int& failures) {
  nlohmann::json all;
  for (const Row& row : wanted) {
    const auto results = measuredInAChild(row, options);
    if (!results || valuesOf(*results, ratioCounter).empty()) {
      fmt::print(stderr, "{}: failed\n", row.name);
      ++failures;
      continue;
    }
    if (options.once) {
      fmt::print("{}: {}\n", row.name, isBroken(row, *results) ? "too many" : "works");
    } else {
      print(row, *results);
    }
    failures += isBroken(row, *results);
    if (all.is_null()) {
      all = *results;
    } else {
      for (const auto& run : results->at("benchmarks")) all["benchmarks"].push_back(run);
    }
  }
  return all;
}

int complain(const std::string& cause) {
  fmt::print(stderr, "bench: {}\n", cause);
  return exitMisused;
}

int run(const Options& options) {
  std::vector<Row> wanted;
  std::ranges::copy_if(
      rows(), std::back_inserter(wanted),
      [filter = std::regex(options.filter)](const Row& row) { return std::regex_search(row.name, filter); });
  if (wanted.empty()) return complain(fmt::format("\"{}\" is found in no figure's name", options.filter));
  // Now, and not when all has been measured.
  if (!options.once && !std::ofstream(options.output, std::ios::app))
    return complain(options.output + ": cannot be written");

  printHead(options);
  int failures = 0;
  const nlohmann::json all = measureAll(wanted, options, failures);
  if (!options.once) {
    std::ofstream(options.output) << all.dump(1) << '\n';
    fmt::print("Results: {}\n", options.output);
  }
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Nothing when there is something to measure; else the exit code of a process that has said why not.
std::optional<int> parse(int argc, char** argv, Options& options) {
  CLI::App app("Measures how fast the switcher is, each figure beside its reference.", "./dev bench");
  app.add_option("FILTER", options.filter,
                 "a regular expression: measure the figures whose names it is found in")
      ->check([](const std::string& text) -> std::string {
        try {
          std::regex{text};
        } catch (const std::regex_error&) {
          return "\"" + text + "\" is no regular expression";
        }
        return "";
      });
  app.add_flag("--once", options.once, "every work once, to see that it works: no times, no results");
  app.add_option("--repetitions", options.repetitions, "of each figure")->check(CLI::Range(1, 1000));
  app.add_option("--output", options.output, "where Google Benchmark's results are kept, as JSON")
      ->take_last();
  try {
    app.parse(argc, argv);
    return std::nullopt;
  } catch (const CLI::Success& asked) {
    return app.exit(asked);
  } catch (const CLI::ParseError& mistake) {
    return complain(mistake.what());
  }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  using namespace bench;
  addFrameFigures();
  addSwitcherFigures();
  addStackBlurFigures();
  addPreferencesFigures();
  addTreeFigures();
  addIdleFigures();

  Options options;
  if (const auto exitCode = parse(argc, argv, options)) return *exitCode;
  return run(options);
}
