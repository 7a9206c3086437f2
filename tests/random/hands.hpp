// The hands of a random user: each of their doings is one event, followed by checks.
#pragma once

#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "apps/demo/random.hpp"
#include "random/ledger.hpp"
#include "zendara/forms/form.hpp"

namespace zendara {

// What sessions met.
struct Findings {
  int events = 0;
  std::set<std::string> writes;  // events that changed rows of workers, and what incident screens did with theirs
};

class Hands {
 public:
  // What all draw from; it makes the session.
  Random random;

  // The company's place is watched; `events` is the share of the session. `aloud`: prints each event, and what came
  // of it: boxes, lists, errors.
  Hands(std::uint64_t seed, const std::string& place, int events, bool aloud, Findings& findings)
      : random(seed), ledger_(place), left_(events), aloud_(aloud), findings_(findings) {}

  // Whether the form takes another event: it is open, nothing has failed, the session has events left.
  bool Going(const Form& form) const { return form.Loaded() && !Done(); }
  bool Done() const { return left_ <= 0 || Failed(); }
  bool Failed() const { return !failure_.empty(); }

  void Do(Form& form, const std::string& what, const std::function<void()>& event);
  void Press(Form& form, std::string_view name);  // as scripts name keys
  void Type(Form& form, std::string_view text);
  void Paste(Form& form, const std::string& text);
  void Click(Form& form, Control& control);
  // Clicks into the field, and puts the text in place of what stands there, typed or pasted.
  void Fill(Form& form, TextBox& box, const std::string& text);

  // The answer that the next events prefer for their questions; without one, any.
  std::optional<BoxAnswer> wish;
  BoxAnswer Answer(const Box& box);
  void Note(const std::string& what) const {
    if (aloud_) std::cout << left_ << "  " << what << std::endl;
  }
  // Another program changes the row that an incident screen shows.
  std::function<void(Form&)> ChangeShown;
  // Rows were changed by somebody else, or have been looked at.
  void Forgive() { ledger_.Changed(); }
  Ledger& Books() { return ledger_; }
  Findings& Found() { return findings_; }
  // Of the event, in their order.
  const std::vector<std::string>& Boxes() const { return boxes_; }
  // Ends the session; the first reason counts.
  void Fail(const std::string& reason) {
    if (!Failed()) failure_ = std::to_string(left_) + " events before the end: " + reason;
  }
  const std::string& Failure() const { return failure_; }

 private:
  void CheckModel(const Form& form);
  // What was on the worker screen before an event.
  struct Shown {
    std::string worker;
    std::string situacion;
    bool stays = false;         // the event calls up no other
    bool regularising = false;  // the frame of the new figures is open
  };
  static Shown ShownOn(const Form& form);
  void CheckWrites(const Form& form, const std::string& event, const Shown& before);

  Ledger ledger_;
  int left_;
  bool aloud_;
  Findings& findings_;
  std::string failure_;
  std::vector<std::string> boxes_;
};

}  // namespace zendara
