#include "random/trail.hpp"

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string_view>
#include <tuple>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>

// Undefined behaviour ends the process by a signal, which is heard below.
extern "C" const char* __ubsan_default_options() { return "abort_on_error=1:print_stacktrace=1"; }
#endif

namespace zendara {
namespace {

constexpr int kEventsTold = 30;

const Trail* watched = nullptr;

// Not what a signal handler may do in general; the process is lost anyway.
void LastWords(std::string_view reason) {
  const std::string text = watched->Text(std::string(reason));
  std::ignore = write(STDERR_FILENO, text.data(), text.size());
}

void Die(int signal) {
  std::signal(signal, SIG_DFL);
  LastWords(signal == SIGINT || signal == SIGTERM ? "stopped" : "signal " + std::to_string(signal));
  raise(signal);
}

}  // namespace

void Trail::Begin(std::uint64_t seed) {
  seed_ = seed;
  events_ = 0;
  lines_.clear();
}

void Trail::Event(const std::string& what) {
  ++events_;
  while (!lines_.empty() && lines_.front().first <= events_ - kEventsTold) lines_.pop_front();
  const std::string number = std::to_string(events_);
  Add(std::string(number.size() < 7 ? 7 - number.size() : 0, ' ') + number + "  " + what);
}

void Trail::Add(const std::string& line) {
  lines_.emplace_back(events_, line);
  if (aloud_) std::cout << line << std::endl;
}

std::string Trail::Text(const std::string& reason) const {
  std::string text = "\nseed " + std::to_string(seed_) + ", event " + std::to_string(events_) + ": " + reason + "\n";
  for (const auto& [event, line] : lines_) text += line + "\n";
  return text;
}

void Trail::WatchProcess() const {
  watched = this;
#ifdef __SANITIZE_ADDRESS__
  // These report a crash themselves, and end the process without a signal.
  __sanitizer_set_death_callback([] { LastWords("told above"); });
  for (const int signal : {SIGINT, SIGTERM, SIGABRT}) std::signal(signal, Die);
#else
  for (const int signal : {SIGINT, SIGTERM, SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(signal, Die);
#endif
}

}  // namespace zendara
