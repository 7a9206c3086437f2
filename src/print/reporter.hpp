// Asks a Progress no more often than somebody wants to see it.
#pragma once

#include <chrono>
#include <cstddef>

#include "print/listing_writer.hpp"

namespace zendara::print {

class Reporter {
 public:
  static constexpr std::chrono::milliseconds kEach{50};

  // REQUIRES: progress outlives it; an empty one stops nothing.
  explicit Reporter(const Progress& progress) : progress_(progress) {}

  bool MayGoOn(std::size_t rows_done) {
    const auto now = std::chrono::steady_clock::now();
    if (!progress_ || now - last_ < kEach) return true;
    last_ = now;
    return progress_(rows_done);
  }

 private:
  const Progress& progress_;
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace zendara::print
