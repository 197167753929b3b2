#include "monkey/event_sequence.h"

#include <fstream>
#include <stdexcept>

#include "monkey/event_generator.h"

namespace monkey {

EventSequence sequenceOf(std::uint64_t seed, std::uint64_t count) {
  EventGenerator generator(seed);
  EventSequence sequence{generator.boot(), {}};
  while (sequence.events.size() < count) sequence.events.push_back(generator.next());
  return sequence;
}

EventSequence readSequence(const std::filesystem::path& file) {
  std::ifstream stream(file);
  EventSequence sequence;
  if (!std::filesystem::is_regular_file(file) || !std::getline(stream, sequence.boot))
    throw std::runtime_error(file.string() + ": cannot be read");
  for (std::string line; std::getline(stream, line);) sequence.events.push_back(line);
  return sequence;
}

void writeSequence(const EventSequence& sequence, const std::filesystem::path& file) {
  std::ofstream stream(file);
  stream << sequence.boot << '\n';
  for (const std::string& event : sequence.events) stream << event << '\n';
  if (!stream.flush()) throw std::runtime_error(file.string() + ": cannot be written");
}

}  // namespace monkey
