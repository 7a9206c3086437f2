#include "platform/form/unsaved.hpp"

#include <algorithm>

namespace zendara {

void Unsaved::Add(Control& control, bool key, Control* opener) {
  if (!places_.try_emplace(&control, entries_.size()).second) return;
  entries_.push_back(
      {.control = &control, .id = control.Id(), .key = key, .opener = opener, .baseline = {}, .entered = {}});
}

const Unsaved::Entry* Unsaved::EntryOf(const Control& control) const {
  const auto place = places_.find(&control);
  return place == places_.end() ? nullptr : &entries_[place->second];
}

// Settling.

void Unsaved::Settle(const Control& control, bool shown) {
  const auto place = places_.find(&control);
  if (place == places_.end()) return;
  Entry& entry = entries_[place->second];
  entry.settled = settled_ = true;
  entry.shown = entry.shown || shown;
}

void Unsaved::SettlePart(bool beside, bool shown) {
  for (const Entry& entry : entries_) {
    if ((entry.opener != nullptr) == beside) Settle(*entry.control, shown);
  }
}

void Unsaved::SettleIn(const Control& frame) {
  for (const Entry& entry : entries_) {
    if (!entry.opener) continue;
    const Control* outer = entry.control;
    while (outer && outer != &frame) outer = outer->Container();
    if (outer) Settle(*entry.control, true);
  }
}

bool Unsaved::KeyIs(bool Entry::*state) const {
  return std::ranges::all_of(entries_, [&](const Entry& entry) { return !entry.key || entry.*state; });
}

bool Unsaved::Lost(const std::string& id) const {
  const auto place = Find(id);
  return place && (EntryOf(*place->control)->shown || KeyIs(&Entry::shown));
}

void Unsaved::Rest() {
  if (!settled_) return;
  const bool all = KeyIs(&Entry::settled);
  bool key = false;
  for (Entry& entry : entries_) {
    if (!entry.settled && (!all || entry.opener)) continue;
    key = key || entry.key;
    const Control& control = *entry.control;
    entry.baseline.resize(static_cast<std::size_t>(control.ValueCount()));
    for (int i = 0; i < control.ValueCount(); ++i) entry.baseline[static_cast<std::size_t>(i)] = control.ValueText(i);
    entry.in_edit = control.HasFocus();
    entry.entered.reset();
    entry.settled = entry.shown = false;
  }
  if (key) key_ = KeyNow();
  settled_ = false;
}

// Changes.

bool Unsaved::IsKeyAsShown(const Entry& entry) const {
  const auto shown = std::ranges::find(key_, entry.id, &DraftValue::id);
  return shown == key_.end() || shown->text == entry.control->ShownText();
}

bool Unsaved::IsTypedOver(const Entry& entry) const {
  return entry.key && entry.control->HasFocus() && entry.control->ChangedByHand() && !IsKeyAsShown(entry);
}

bool Unsaved::IsChanged(const Entry& entry, int value) const {
  if (entry.key) return !IsKeyAsShown(entry) && !IsTypedOver(entry);
  const std::string text = entry.control->ValueText(value);
  const auto i = static_cast<std::size_t>(value);
  if (i >= entry.baseline.size() || text == entry.baseline[i]) return false;
  return !(entry.entered && entry.control->HasFocus() && text == *entry.entered);
}

bool Unsaved::IsChanged(const Entry& entry) const {
  for (int i = 0; i < entry.control->ValueCount(); ++i) {
    if (IsChanged(entry, i)) return true;
  }
  return false;
}

bool Unsaved::IsChanged(const Control& control) const {
  const Entry* entry = EntryOf(control);
  return entry && !entry->settled && IsChanged(*entry);
}

void Unsaved::Entered(const Control& control, bool was_changed) {
  const auto place = places_.find(&control);
  if (place == places_.end() || was_changed || control.ValueCount() != 1) return;
  entries_[place->second].entered = control.ValueText(0);
}

void Unsaved::Left(const Control& control, bool was_changed) {
  const auto place = places_.find(&control);
  if (place == places_.end()) return;
  Entry& entry = entries_[place->second];
  entry.entered.reset();
  if (!entry.in_edit) return;
  entry.in_edit = false;
  if (!was_changed && entry.baseline.size() == 1) entry.baseline.front() = control.ValueText(0);
}

std::vector<DraftValue> Unsaved::KeyNow() const {
  std::vector<DraftValue> key;
  for (const Entry& entry : entries_) {
    if (entry.key) key.push_back({entry.id, entry.control->ShownText()});
  }
  return key;
}

bool Unsaved::TypesOverKey() const {
  return std::ranges::any_of(entries_, [this](const Entry& entry) { return IsTypedOver(entry); });
}

std::vector<DraftValue> Unsaved::Changes() const {
  const auto changed = [this](bool beside) {
    return std::ranges::any_of(
        entries_, [&](const Entry& entry) { return (entry.opener != nullptr) == beside && IsChanged(entry); });
  };
  const bool beside = changed(true);
  const bool whole = whole_ && changed(false);
  std::vector<DraftValue> changes;
  for (const Entry& entry : entries_) {
    const Control& control = *entry.control;
    for (int i = 0; i < control.ValueCount(); ++i) {
      if (entry.opener ? beside : whole || IsChanged(entry, i))
        changes.push_back({control.ValueId(i), control.ValueText(i)});
    }
  }
  return changes;
}

std::optional<Unsaved::Place> Unsaved::Find(const std::string& id) const {
  for (const Entry& entry : entries_) {
    if (!id.starts_with(entry.id)) continue;
    for (int i = 0; i < entry.control->ValueCount(); ++i) {
      if (entry.control->ValueId(i) == id) return Place{entry.control, i, entry.key, entry.opener};
    }
  }
  return std::nullopt;
}

}  // namespace zendara
