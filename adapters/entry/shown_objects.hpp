// A screen that is shown and a list to pick from, by name. Whoever keeps one longer than the call that got it finds it
// closed: error 3420.
#pragma once

#include <span>
#include <string>
#include <utility>

#include "adapters/entry/members.hpp"
#include "zendara/automation.hpp"

namespace zendara {

class ScreenObject final : public Named<ScreenObject> {
 public:
  explicit ScreenObject(ShownScreen& screen) : screen_(&screen) {}
  static std::span<const Member<ScreenObject>> Members();

  ShownScreen& Screen() const;
  void Revoke() { screen_ = nullptr; }
  bool Shown() const { return screen_ && screen_->Shown(); }

 private:
  ShownScreen* screen_;
};

class ListObject final : public Named<ListObject> {
 public:
  ListObject(std::string title, ShownRows& rows) : title_(std::move(title)), rows_(&rows) {}
  static std::span<const Member<ListObject>> Members();

  const std::string& Title() const { return title_; }
  ShownRows& Rows() const;
  void Revoke() { rows_ = nullptr; }

 private:
  std::string title_;
  ShownRows* rows_;
};

// The end of the call.
template <typename T>
class Revocation {
 public:
  explicit Revocation(T& object) : object_(object) {}
  ~Revocation() { object_.Revoke(); }
  Revocation(const Revocation&) = delete;
  Revocation& operator=(const Revocation&) = delete;

 private:
  T& object_;
};

}  // namespace zendara
