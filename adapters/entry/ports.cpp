#include "adapters/entry/ports.hpp"

#include <cmath>
#include <utility>

#include "adapters/plain_c/outside_call.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

static_assert(static_cast<int>(BoxButtons::kOk) == ZENDARA_BUTTONS_OK &&
              static_cast<int>(BoxButtons::kYesNo) == ZENDARA_BUTTONS_YES_NO);
static_assert(static_cast<int>(BoxIcon::kNone) == ZENDARA_ICON_NONE &&
              static_cast<int>(BoxIcon::kInformation) == ZENDARA_ICON_INFORMATION);
static_assert(static_cast<int>(BoxAnswer::kOk) == ZENDARA_ANSWER_OK &&
              static_cast<int>(BoxAnswer::kYes) == ZENDARA_ANSWER_YES &&
              static_cast<int>(BoxAnswer::kNo) == ZENDARA_ANSWER_NO);

class TableDialogs final : public Dialogs {
 public:
  TableDialogs(const zendara_dialogs& table, Dialogs* rest) : table_(table), rest_(rest) {}

  BoxAnswer Show(const Box& box) override {
    if (!table_.Show && rest_) return rest_->Show(box);
    const PlainBox plain(box);
    auto answer = static_cast<std::uint32_t>(DefaultAnswer(box));
    CallOutside("dialogs: Show", table_.Show, table_.self, plain.Get(), &answer);
    return AnswerTo(box, answer);
  }
  void Beep() override {
    if (table_.Beep) CallOutside("dialogs: Beep", table_.Beep, table_.self);
  }

 private:
  zendara_dialogs table_;
  Dialogs* rest_;
};

class TableFiles final : public Files {
 public:
  TableFiles(const zendara_files& table, const Files& rest) : table_(table), rest_(rest) {}

  bool Exists(std::string_view path) const override {
    if (!table_.Exists) return rest_.Exists(path);
    return CallOutside("files: Exists", table_.Exists, table_.self, std::string(path).c_str()) == ZENDARA_OK;
  }
  std::string ReadRecord(std::string_view path, std::size_t length) const override {
    if (!table_.ReadRecord) return rest_.ReadRecord(path, length);
    std::string bytes(length, '\0');
    CallOutside("files: ReadRecord", table_.ReadRecord, table_.self, std::string(path).c_str(),
                reinterpret_cast<std::uint8_t*>(bytes.data()), length);
    return bytes;
  }

 private:
  zendara_files table_;
  const Files& rest_;
};

class TableShell final : public Shell {
 public:
  TableShell(const zendara_shell& table, Shell* rest) : table_(table), rest_(rest) {}

  int FindWindow(std::string_view class_name, std::string_view title) override {
    if (!table_.FindWindow && rest_) return rest_->FindWindow(class_name, title);
    std::int32_t window = 0;
    CallOutside("shell: FindWindow", table_.FindWindow, table_.self, std::string(class_name).c_str(),
                std::string(title).c_str(), &window);
    return window;
  }
  int Start(std::string_view program) override {
    if (!table_.Start && rest_) return rest_->Start(program);
    std::int32_t task = 0;
    CallOutside("shell: Start", table_.Start, table_.self, std::string(program).c_str(), &task);
    return task;
  }
  void Activate(int task) override {
    if (!table_.ActivateTask && rest_) return rest_->Activate(task);
    CallOutside("shell: ActivateTask", table_.ActivateTask, table_.self, task);
  }
  void Activate(std::string_view title) override {
    if (!table_.ActivateTitle && rest_) return rest_->Activate(title);
    CallOutside("shell: ActivateTitle", table_.ActivateTitle, table_.self, std::string(title).c_str());
  }

 private:
  zendara_shell table_;
  Shell* rest_;
};

class TableClock final : public Clock {
 public:
  explicit TableClock(const zendara_clock& table) : table_(table) {}
  Date Now() override {
    Date now;
    CallOutside("clock: Now", table_.Now, table_.self, &now.serial);
    if (!std::isfinite(now.serial)) throw RuntimeError(kOverflow, {}, "clock: Now is no date");
    return now;
  }

 private:
  zendara_clock table_;
};

class TableLog final : public Log {
 public:
  explicit TableLog(const zendara_log& table) : table_(table) {}
  void Line(std::string_view line) override {
    CallOutside("log: Line", table_.Line, table_.self, std::string(line).c_str());
  }

 private:
  zendara_log table_;
};

}  // namespace

PlainBox::PlainBox(const Box& box) {
  for (const BoxDetail& row : box.detail) {
    detail_.push_back({row.label.c_str(), row.figure.c_str(), row.source.c_str()});
  }
  box_ = {.size = sizeof box_,
          .buttons = static_cast<std::uint32_t>(box.buttons),
          .icon = static_cast<std::uint32_t>(box.icon),
          .default_button = static_cast<std::uint32_t>(box.default_button),
          .text = box.text.c_str(),
          .title = box.title.c_str(),
          .detail = detail_.data(),
          .detail_count = static_cast<std::uint32_t>(detail_.size())};
}

BoxAnswer AnswerTo(const Box& box, std::int64_t answer) {
  const bool offered = box.buttons == BoxButtons::kOk ? answer == ZENDARA_ANSWER_OK
                                                      : answer == ZENDARA_ANSWER_YES || answer == ZENDARA_ANSWER_NO;
  if (!offered) throw RuntimeError(kInvalidCall, {}, "a box was given an answer that it does not offer");
  return static_cast<BoxAnswer>(answer);
}

std::unique_ptr<Dialogs> DialogsOf(const zendara_dialogs& table, Dialogs* rest) {
  return std::make_unique<TableDialogs>(table, rest);
}
std::unique_ptr<Files> FilesOf(const zendara_files& table, const Files& rest) {
  return std::make_unique<TableFiles>(table, rest);
}
std::unique_ptr<Shell> ShellOf(const zendara_shell& table, Shell* rest) {
  return std::make_unique<TableShell>(table, rest);
}
std::unique_ptr<Clock> ClockOf(const zendara_clock& table) { return std::make_unique<TableClock>(table); }
std::unique_ptr<Log> LogOf(const zendara_log& table) { return std::make_unique<TableLog>(table); }

}  // namespace zendara
