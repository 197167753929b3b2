#pragma once

#include <functional>
#include <string>
#include <utility>

namespace bench {

/// How large a figure's ratio may be, or has to be.
struct Bound {
  enum class Kind { AtMost, AtLeast } kind;
  double ratio;
};
inline Bound atMost(double ratio) { return {Bound::Kind::AtMost, ratio}; }
inline Bound atLeast(double ratio) { return {Bound::Kind::AtLeast, ratio}; }

/// What a figure compares. Each does its work once and returns how long that took, in seconds, without what
/// it had to prepare; they take turns, so that a slower machine is so for both.
struct Works {
  std::function<double()> measured;
  std::function<double()> reference;
};

/// A row of the table: how long a work takes beside its reference. The ratio is measured / reference where it
/// is to be small (AtMost), and reference / measured, "so many times faster", where it is to be large.
/// `prepare` and the works run in a process of their own; what they hold on to is destroyed with them.
void addFigure(std::string name, std::string reference, Bound bound, std::function<Works()> prepare);

/// A row that is a number and no time: at most `most` of `what`.
void addCount(std::string name, std::string what, int most, std::function<int()> count);

/// What this thread has had of a processor: what else runs on the machine does not count.
double processorSeconds();

template <class Work>
double secondsOf(Work work) {
  const double begin = processorSeconds();
  work();
  return processorSeconds() - begin;
}

/// A work that needs no preparation.
template <class Work>
std::function<double()> timed(Work work) {
  return [work = std::move(work)] { return secondsOf(work); };
}

// The rows, by what they are about; each adds its own.
void addFrameFigures();
void addSwitcherFigures();
void addStackBlurFigures();
void addPreferencesFigures();
void addTreeFigures();
void addIdleFigures();

}  // namespace bench
