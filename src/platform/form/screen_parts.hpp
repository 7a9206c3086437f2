// What screens are written with: arrays of controls, and layouts.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "zendara/forms/form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

// Controls of one name and kind by index, with handlers in common.
template <typename T>
class ControlArray {
 public:
  ControlArray(Form& form, std::string_view name) : form_(form), name_(name) {}

  T& Add(int index) {
    auto control = std::make_unique<T>(form_, name_, index);
    control->events_ = &events_;
    return *(members_[index] = std::move(control));
  }
  // Error 9 for an index that the array does not have.
  T& operator()(int index) const {
    T* member = Find(index);
    if (!member) throw RuntimeError(kSubscriptOutOfRange);
    return *member;
  }
  // Of an index that a screen has named.
  template <typename Index>
    requires std::is_enum_v<Index>
  T& operator()(Index index) const {
    return (*this)(static_cast<int>(index));
  }
  T* Find(int index) const {
    const auto member = members_.find(index);
    return member == members_.end() ? nullptr : member->second.get();
  }
  // The member that has the focus, if one has it.
  T* Focused() const {
    for (const auto& [index, member] : members_) {
      if (member->HasFocus()) return member.get();
    }
    return nullptr;
  }
  int UBound() const { return members_.empty() ? -1 : members_.rbegin()->first; }
  Events& On() { return events_; }

  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }

 private:
  Form& form_;
  std::string name_;
  Events events_;
  std::map<int, std::unique_ptr<T>> members_;
};

inline Layout Column(std::vector<Layout> children) { return {LayoutKind::kColumn, nullptr, std::move(children), {}}; }
inline Layout Row(std::vector<Layout> children) { return {LayoutKind::kRow, nullptr, std::move(children), {}}; }
inline Layout Flow(std::vector<Layout> children) { return {LayoutKind::kFlow, nullptr, std::move(children), {}}; }
inline Layout Joined(std::vector<Layout> children) { return {LayoutKind::kJoined, nullptr, std::move(children), {}}; }
inline Layout Place(Control& control, std::vector<Control*> attached = {}) {
  return {LayoutKind::kControl, &control, {}, std::move(attached)};
}
inline Layout Unlabelled(Layout field) {
  field.labelled = false;
  return field;
}
inline Layout Words(Label& label, int lines) {
  Layout words = Place(label);
  words.lines = lines;
  return words;
}
inline Layout MainButton(Button& button) {
  Layout place = Place(button);
  place.main = true;
  return place;
}
inline Layout Framed(Frame& frame, std::vector<Layout> children) {
  return {LayoutKind::kFrame, &frame, std::move(children), {}};
}
inline Layout Pages(Tabs& tabs, std::vector<Layout> pages) { return {LayoutKind::kTabs, &tabs, std::move(pages), {}}; }
inline Layout Table(std::vector<std::string> headings, std::vector<Layout> rows) {
  Layout table{LayoutKind::kTable, nullptr, std::move(rows), {}};
  table.headings = std::move(headings);
  return table;
}
inline Layout Scrolled(Layout child) { return {LayoutKind::kScrolled, nullptr, {std::move(child)}, {}}; }
inline Layout Heading() { return {LayoutKind::kHeading, nullptr, {}, {}}; }
inline Layout Strip(Control& control, int height) { return {LayoutKind::kStrip, &control, {}, {}, height}; }
// The picture has that size in twips, before scaling, down to three quarters of both where the window is small, and
// more height where there is some. Gone while it is hidden.
inline Layout Beside(Layout part, Picture& picture, int width, int height) {
  Layout both{LayoutKind::kBeside, nullptr, {std::move(part), Place(picture)}, {}, height};
  both.width = width;
  return both;
}
inline Layout Space() { return {LayoutKind::kSpace, nullptr, {}, {}}; }

}  // namespace zendara
