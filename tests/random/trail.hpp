// What a session did last, in readable form, for a failure of any kind: a check, a crash, a hang.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>

namespace zendara {

class Trail {
 public:
  // `aloud`: prints each line as it comes.
  explicit Trail(bool aloud) : aloud_(aloud) {}

  void Begin(std::uint64_t seed);
  void Event(const std::string& what);
  // What came of the event: boxes, lists, errors.
  void Note(const std::string& what) { Add("         " + what); }

  // The seed, the number of the event and the last events.
  std::string Text(const std::string& reason) const;
  // Prints the text when the process is about to die, or is stopped because an event does not end.
  void WatchProcess() const;

 private:
  void Add(const std::string& line);

  bool aloud_;
  std::uint64_t seed_ = 0;
  int events_ = 0;
  std::deque<std::pair<int, std::string>> lines_;  // with the event that each belongs to
};

}  // namespace zendara
