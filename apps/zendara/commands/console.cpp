#include "apps/zendara/commands/console.hpp"

#include <algorithm>
#include <cerrno>

namespace zendara {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;

}  // namespace

void Console::Out(std::string_view text) {
  buffer_ += text;
  if (buffer_.size() >= kBufferSize) Flush();
}

void Console::Flush() {
  ClearProgress();
  errno = 0;
  out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  out_.flush();
  buffer_.clear();
  if (!out_) throw OutputError{errno};
}

void Console::Error(std::string_view text) {
  ClearProgress();
  std::string line = "zendara: " + std::string(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  err_ << line << '\n' << std::flush;
}

void Console::Progress(std::string_view what, std::int64_t done, std::int64_t all) {
  if (!terminal_ || Clock::now() < next_progress_) return;
  next_progress_ = Clock::now() + std::chrono::milliseconds(200);
  ClearProgress();
  std::string line = std::string(what) + ": " + std::to_string(done);
  if (all > 0) line += " of " + std::to_string(all);
  err_ << line << std::flush;
  progress_shown_ = true;
}

void Console::ClearProgress() {
  if (!progress_shown_) return;
  err_ << "\r\x1b[K" << std::flush;
  progress_shown_ = false;
}

}  // namespace zendara
