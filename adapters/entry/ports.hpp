// The tables that a host installs, as the ports of the component.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zendara/ports.hpp"
#include "zendara/zendara.h"

namespace zendara {

// A box as functions in plain C get it. The box outlives it.
class PlainBox {
 public:
  explicit PlainBox(const Box& box);
  PlainBox(const PlainBox&) = delete;
  PlainBox& operator=(const PlainBox&) = delete;

  const zendara_box* Get() const { return &box_; }

 private:
  std::vector<zendara_box_detail> detail_;
  zendara_box box_;
};
// The answer that a host gives. Error 5 for one that the box does not offer.
BoxAnswer AnswerTo(const Box& box, std::int64_t answer);

// Each serves what the table has; `rest`, which outlives it and may be null but for the files, what it leaves null.
std::unique_ptr<Dialogs> DialogsOf(const zendara_dialogs& table, Dialogs* rest);
std::unique_ptr<Files> FilesOf(const zendara_files& table, const Files& rest);
std::unique_ptr<Shell> ShellOf(const zendara_shell& table, Shell* rest);
std::unique_ptr<Clock> ClockOf(const zendara_clock& table);
std::unique_ptr<Log> LogOf(const zendara_log& table);

}  // namespace zendara
