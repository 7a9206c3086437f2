// What a command prints: its output in large pieces, error lines, and a progress line on a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace zendara {

// Standard output takes no more.
struct OutputError {
  int system_error = 0;  // errno
};

class Console {
 public:
  // `terminal`: `err` is read by a person, who gets progress lines.
  Console(std::ostream& out, std::ostream& err, bool terminal) : out_(out), err_(err), terminal_(terminal) {}
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  // Kept until there is much of it. OutputError when it cannot be written.
  void Out(std::string_view text);
  void Flush();

  // One line on standard error, whatever line ends the text holds.
  void Error(std::string_view text);

  // What is being done, for the line of an error that ends the command.
  void Doing(std::string what) { doing_ = std::move(what); }
  const std::string& Doing() const { return doing_; }

  // Shows "what: done of all" when the command has run for longer than a second; `all` is 0 when it is not known.
  void Progress(std::string_view what, std::int64_t done, std::int64_t all = 0);

 private:
  using Clock = std::chrono::steady_clock;

  void ClearProgress();

  std::ostream& out_;
  std::ostream& err_;
  bool terminal_;
  std::string buffer_;
  std::string doing_;
  Clock::time_point next_progress_ = Clock::now() + std::chrono::seconds(1);
  bool progress_shown_ = false;
};

}  // namespace zendara
