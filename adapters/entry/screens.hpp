// A front end as an object.
#pragma once

#include <memory>
#include <span>

#include "adapters/entry/members.hpp"
#include "zendara/automation.hpp"
#include "zendara/platform.hpp"

// By name also what makes front ends: one of the class Zendara.Screens has none of its own.
struct zendara_screens final : zendara::Named<zendara_screens> {
  zendara_screens() = default;
  explicit zendara_screens(std::unique_ptr<zendara::FrontEnd> front);
  explicit zendara_screens(std::unique_ptr<zendara::ScreenUser> user);
  static std::span<const zendara::Member<zendara_screens>> Members();

  zendara::FrontEnd& Front() const;
  void RethrowOfUser() const;

 private:
  std::unique_ptr<zendara::ScreenUser> user_;
  std::unique_ptr<zendara::FrontEnd> front_;
  zendara::ScreenAutomation* automation_ = nullptr;  // the front end, if it has a user
};
