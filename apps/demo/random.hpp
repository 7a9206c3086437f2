// Draws that are the same on every machine and with every standard library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zendara {

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  // One stream for each worker, so that a worker does not depend on those before him.
  Random(std::uint64_t seed, std::uint64_t stream) : state_(Mix(seed) ^ Mix(~stream)) {}

  std::uint64_t Next() { return Mix(state_ += kStep); }
  // Both bounds are drawn.
  int Between(int low, int high) {
    return low + static_cast<int>(Next() % (static_cast<std::uint64_t>(high - low) + 1));
  }
  bool Chance(double percent) { return static_cast<double>(Next() % 100'000) < percent * 1000; }
  template <typename List>
  const auto& Pick(const List& list) {
    return list[static_cast<std::size_t>(Next() % std::size(list))];
  }

 private:
  // splitmix64
  static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;
  static std::uint64_t Mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
  }

  std::uint64_t state_;
};

}  // namespace zendara
