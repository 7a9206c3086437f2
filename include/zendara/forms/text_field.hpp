// What the value routines need of an input field on a screen.
#pragma once

#include <string>

namespace zendara {

class TextField {
 public:
  virtual ~TextField() = default;
  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
  // Caret in characters from 0.
  virtual int SelStart() const = 0;
  virtual void SetFocus() = 0;
};

}  // namespace zendara
