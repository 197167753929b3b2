// Measures the figures, each in a process of its own, for the state of what they measure is the process's;
// prints the table and keeps Google Benchmark's results.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
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
  std::string output;
};

/// Runs as the child process, and ends it.
[[noreturn]] void measure(const Row& row, const Options& options, const std::string& file) {
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
  const std::string file = options.output + ".part";
  std::fflush(stdout);  // Or the child would print it once more.
  const pid_t child = fork();
  if (child == 0) measure(row, options, file);
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) return std::nullopt;
  std::ifstream input(file);
  const std::string text{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
  // Google Benchmark writes NaN for how much counts of 0 vary, which is no JSON.
  auto results =
      nlohmann::json::parse(std::regex_replace(text, std::regex(": -?(nan|NaN)"), ": null"), nullptr, false);
  std::filesystem::remove(file);
  return results.is_discarded() ? std::nullopt : std::optional(results);
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

int run(const Options& options) {
  const std::regex filter(options.filter);
  printHead(options);
  nlohmann::json all;
  int failures = 0;
  for (const Row& row : rows()) {
    if (!std::regex_search(row.name, filter)) continue;
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
  if (all.is_null()) {
    fmt::print(stderr, "no figure has been measured; the filter was \"{}\"\n", options.filter);
    return EXIT_FAILURE;
  }
  if (!(std::ofstream(options.output) << all.dump(1) << '\n' << std::flush)) {
    fmt::print(stderr, "{}: cannot be written\n", options.output);
    return EXIT_FAILURE;
  }
  fmt::print("Results: {}\n", options.output);
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
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
  options.output = "figures.json";
  CLI::App app("Measures how fast the switcher is, each figure beside its reference.");
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
  app.add_flag("--once", options.once, "every work once, to see that it works; the times say nothing");
  app.add_option("--repetitions", options.repetitions, "of each figure")->check(CLI::Range(1, 1000));
  app.add_option("--output", options.output, "where Google Benchmark's results are kept, as JSON")
      ->take_last();
  CLI11_PARSE(app, argc, argv);
  return run(options);
}
