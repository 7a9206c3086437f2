#include "adapters/plain_c/outside_call.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kNotServed = 438;

// Plain memory, as what has a destructor would keep the library loaded until the thread ends.
struct Said {
  int number;
  char detail[400];
};
thread_local Said said{};

std::string Hexadecimal(zendara_result result) {
  std::string digits;
  for (auto rest = static_cast<std::uint32_t>(result); rest != 0; rest /= 16) {
    digits.insert(digits.begin(), "0123456789ABCDEF"[rest % 16]);
  }
  return "0x" + digits;
}

}  // namespace

void SetOutsideError(int number, std::string_view detail) noexcept {
  std::size_t length = std::min(detail.size(), sizeof said.detail - 1);
  // No half of a character.
  while (length < detail.size() && length > 0 && (detail[length] & 0xC0) == 0x80) --length;
  detail.copy(said.detail, length);
  said.detail[length] = '\0';
  said.number = number;
}

void ForgetOutsideError() noexcept { said.number = 0; }

void ThrowOutsideError(std::string_view what, zendara_result result) {
  const int number = std::exchange(said.number, 0);
  std::string detail = std::string(what) + " gives " + Hexadecimal(result);
  if (number == 0) throw RuntimeError(kInternalError, {}, detail);
  if (said.detail[0] != '\0') detail += std::string(": ") + said.detail;
  throw RuntimeError(number, {}, detail);
}

void ThrowNotServed(std::string_view what) { throw RuntimeError(kNotServed, {}, std::string(what) + " is not there"); }

}  // namespace zendara
