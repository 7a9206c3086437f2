#include "apps/desk/start/demo_maker.hpp"

#include <stdexcept>
#include <utility>

#include "runtime/failure.hpp"

namespace zendara {

DemoMaker::~DemoMaker() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

void DemoMaker::Start(const std::string& place, std::function<void(int, int)> progress,
                      std::function<void(const std::string&)> ended) {
  const auto here = [this](std::function<void()> call) {
    QMetaObject::invokeMethod(this, std::move(call), Qt::QueuedConnection);
  };
  thread_ = std::thread([this, here, place, progress = std::move(progress), ended = std::move(ended)] {
    std::string why_not;
    try {
      write_(place, [&](int done, int of) {
        if (stop_) throw std::runtime_error("stopped");
        here([progress, done, of] { progress(done, of); });
      });
    } catch (const RuntimeError& error) {
      why_not = OneLine(error);
    } catch (const std::exception& error) {
      why_not = error.what();
    }
    here([this, ended, why_not] {
      thread_.join();
      ended(why_not);
    });
  });
}

}  // namespace zendara
