#include "runtime/surroundings.hpp"

#include <chrono>
#include <ctime>
#include <iostream>
#include <string>
#include <utility>

namespace zendara {
namespace {

std::function<Date()> clock_set;
std::function<void(std::string_view)> log_set;

Date MachineTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  if (const std::tm* known = std::localtime(&now)) local = *known;
  using namespace std::chrono;
  const sys_days day = year{1900 + local.tm_year} / (1 + local.tm_mon) / local.tm_mday;
  const duration<double, days::period> time = hours(local.tm_hour) + minutes(local.tm_min) + seconds(local.tm_sec);
  return {static_cast<double>((day - sys_days{year{1899} / December / 30}).count()) + time.count()};
}

}  // namespace

Date Now() { return clock_set ? clock_set() : MachineTime(); }

void LogLine(std::string_view line) noexcept try {
  if (log_set) return log_set(line);
  std::cerr << "zendara: " + std::string(line) + "\n" << std::flush;
} catch (...) {
  // A log that fails has nowhere to say so.
}

void SetClock(std::function<Date()> clock) { clock_set = std::move(clock); }

void SetLog(std::function<void(std::string_view)> log) { log_set = std::move(log); }

}  // namespace zendara
