// What stands on a form and is not stored: the controls of its record against what the record's own code put there.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "zendara/forms/control.hpp"
#include "zendara/forms/drafts.hpp"

namespace zendara {

// A control's baseline is what it held at the end of the event in which it was settled last: shown, emptied or stored
// by the record's own code, whatever other code put there in the same event. It is changed while it holds anything
// else.
//
// The controls that say which record it is are no change while the user types over them, since that asks for another
// record; what code puts there is one.
//
// A record that cannot be called up again by its key alone comes whole: every value of it while one is changed.
//
// Controls beside the record are worked on in a frame of their own, which `opener` brings up, and stored by themselves.
class Unsaved {
 public:
  void Add(Control& control, bool key, Control* opener = nullptr);
  void ComesWhole() { whole_ = true; }
  bool IsWhole() const { return whole_; }
  bool Has(const Control& control) const { return places_.contains(&control); }

  // `shown`: what stood there is gone, it was not stored.
  void Settle(const Control& control, bool shown);
  // All of the record, or all beside it.
  void SettlePart(bool beside, bool shown);
  // That control was shown or hidden: what stands in it beside the record came up or is gone.
  void SettleIn(const Control& frame);
  // Whether somebody has settled since the last call of Rest.
  bool Settled() const { return settled_; }
  // Whether what stood under this name has been put over or emptied since then.
  bool Lost(const std::string& id) const;
  // The end of an event: baselines are taken. Settling all controls of the key has settled the whole record.
  void Rest();

  // The rules of entering a control may show the same value in another form, and those of leaving put it back.
  bool IsChanged(const Control& control) const;
  void Entered(const Control& control, bool was_changed);
  void Left(const Control& control, bool was_changed);

  // Which record it is, as it was settled.
  const std::vector<DraftValue>& Key() const { return key_; }
  // The same as it stands there.
  std::vector<DraftValue> KeyNow() const;
  // The user is typing over it.
  bool TypesOverKey() const;
  // What stands beside the record comes whole or not at all: its figures belong together.
  std::vector<DraftValue> Changes() const;

  struct Place {
    Control* control = nullptr;
    int value = 0;
    bool key = false;
    Control* opener = nullptr;  // nullptr: the control is one of the record's own
  };
  // Nothing for a name that no control of the record has.
  std::optional<Place> Find(const std::string& id) const;

 private:
  struct Entry {
    Control* control;
    std::string id;
    bool key;
    Control* opener;
    std::vector<std::string> baseline;
    bool in_edit = false;                // the baseline was taken in the form of a control with the focus
    std::optional<std::string> entered;  // the same value in that form
    bool settled = false;
    bool shown = false;
  };

  const Entry* EntryOf(const Control& control) const;
  bool IsChanged(const Entry& entry, int value) const;
  bool IsChanged(const Entry& entry) const;
  bool IsKeyAsShown(const Entry& entry) const;
  bool IsTypedOver(const Entry& entry) const;
  // Of all controls that say which record it is.
  bool KeyIs(bool Entry::*state) const;

  std::vector<Entry> entries_;
  std::map<const Control*, std::size_t> places_;
  std::vector<DraftValue> key_;
  bool settled_ = false;
  bool whole_ = false;
};

}  // namespace zendara
