// A field and message boxes that remember what was done to them.
#pragma once

#include <string>
#include <vector>

#include "platform/text_field.hpp"
#include "zendara/ports.hpp"

namespace zendara {

struct FakeField : TextField {
  explicit FakeField(std::string start = {}, int caret_at = 0) : text(std::move(start)), caret(caret_at) {}

  std::string Text() const override { return text; }
  void SetText(const std::string& value) override { text = value; }
  int SelStart() const override { return caret; }
  void SetFocus() override { ++focused; }

  std::string text;
  int caret = 0;
  int focused = 0;
};

struct FakeDialogs : Dialogs {
  BoxAnswer Show(const Box& box) override {
    boxes.push_back(box);
    return BoxAnswer::kOk;
  }
  void Beep() override { ++beeps; }

  std::vector<Box> boxes;
  int beeps = 0;
};

inline bool IsPlain(const Box& box) {
  return box.buttons == BoxButtons::kOk && box.icon == BoxIcon::kNone && box.title.empty();
}

}  // namespace zendara
