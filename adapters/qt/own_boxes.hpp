// The boxes and beeps of the front end's own windows: they go where those of the screens go.
#pragma once

#include <functional>
#include <utility>

#include "zendara/ports.hpp"

namespace zendara {

// Stands where an exception would fly through the toolkit: what the host's dialogs throw is a line of the log, and the
// box is shown by the front end itself.
class OwnBoxes final : public Dialogs {
 public:
  // `host`: the dialogs of the platform at that moment. Both outlive it.
  OwnBoxes(std::function<Dialogs&()> host, Dialogs& front_end) : host_(std::move(host)), front_end_(front_end) {}

  BoxAnswer Show(const Box& box) noexcept override;
  void Beep() noexcept override;

 private:
  std::function<Dialogs&()> host_;
  Dialogs& front_end_;
};

}  // namespace zendara
