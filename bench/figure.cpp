#include "bench/figure.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

#include "bench/registry.h"

namespace bench {
namespace {

std::vector<Row>& knownRows() {
  static std::vector<Row> rows;
  return rows;
}

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + std::ssize(values) / 2;
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void compare(benchmark::State& state, const Works& works, Bound bound) {
  std::vector<double> measured, reference;
  for (auto _ : state) {
    reference.push_back(works.reference());
    measured.push_back(works.measured());
    state.SetIterationTime(measured.back() + reference.back());
  }
  const double measuredTime = medianOf(measured), referenceTime = medianOf(reference);
  const bool faster = bound.kind == Bound::Kind::AtLeast;
  state.counters[measuredCounter] = measuredTime;
  state.counters[referenceCounter] = referenceTime;
  state.counters[ratioCounter] = faster ? referenceTime / measuredTime : measuredTime / referenceTime;
}

}  // namespace

double processorSeconds() {
  constexpr double nanosecond = 1e-9;
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return double(time.tv_sec) + double(time.tv_nsec) * nanosecond;
}

const std::vector<Row>& rows() { return knownRows(); }

void addFigure(std::string name, std::string reference, Bound bound, std::function<Works()> prepare) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    // Once for all repetitions; the process is this figure's own.
    static const Works works = prepare();
    compare(state, works, bound);
  })->UseManualTime();
  knownRows().push_back({std::move(name), std::move(reference), bound, false});
}

void addCount(std::string name, std::string what, int most, std::function<int()> count) {
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    static const int result = count();
    for (auto _ : state) benchmark::DoNotOptimize(result);
    state.counters[ratioCounter] = result;
  });
  knownRows().push_back({std::move(name), std::move(what), atMost(most), true});
}

}  // namespace bench
