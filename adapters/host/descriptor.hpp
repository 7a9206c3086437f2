// An open file or folder of the machine, closed at the end.
#pragma once

#include <unistd.h>

#include <utility>

namespace zendara {

class Descriptor {
 public:
  // What open() gave; below 0 it is none.
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  explicit operator bool() const { return number_ >= 0; }
  int get() const { return number_; }

 private:
  int number_;
};

}  // namespace zendara
