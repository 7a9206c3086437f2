// The demonstration company, written on a thread of its own.
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace zendara {

class DemoMaker : public QObject {
 public:
  // Writes to a place, tells how many parts of how many are done, throws std::exception with the reason when it
  // cannot. What `progress` throws passes through it.
  using Write = std::function<void(const std::string& place, const std::function<void(int done, int of)>& progress)>;

  explicit DemoMaker(Write write) : write_(std::move(write)) {}
  // Waits for the thread, which stops at its next step; nothing is left half written.
  ~DemoMaker() override;

  // Both are called on the thread of this object; `ended` with an empty text, or the reason in one line.
  // REQUIRES: none is being written.
  void Start(const std::string& place, std::function<void(int done, int of)> progress,
             std::function<void(const std::string& why_not)> ended);
  bool Running() const { return thread_.joinable(); }

 private:
  Write write_;
  std::thread thread_;
  std::atomic<bool> stop_ = false;
};

}  // namespace zendara
