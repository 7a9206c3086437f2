// Whether anybody has written into a file, asked of the store itself: far cheaper than to read all rows.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace zendara {

class Pulse {
 public:
  virtual ~Pulse() = default;
  // Of each file, in the order given: another text than before when rows were written since then.
  virtual std::vector<std::string> Beats() = 0;
};

// `place` as OpenStore takes it, `files` as the engine there opens them.
std::unique_ptr<Pulse> MakePulse(const std::string& place, const std::vector<std::string>& files);

}  // namespace zendara
