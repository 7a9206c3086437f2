// The drafts of one form: what is unsaved on it goes to the keeper of its host after every event that changes it, and
// comes back as a user would type it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/form/unsaved.hpp"
#include "zendara/forms/drafts.hpp"

namespace zendara {

class FormDrafts {
 public:
  explicit FormDrafts(Form& form) : form_(form) {}

  Unsaved& Sheet() { return sheet_; }
  bool AnythingUnsaved() const { return !changes_.empty(); }

  // The form begins, or begins again.
  void Begin();
  // An event is over: the draft follows what stands there, and stays when the record went away from under it.
  void EventEnded();
  // The record that stands there was stored, or what stands beside it: that part of its drafts goes.
  void Saved(bool beside);
  // The form is gone.
  void End();

  std::vector<KeptDraft> Left() const;
  std::string WhyNotHere(const Draft& draft) const;
  // The one that the last record that came or went has brought up. Nothing happens when there is none, or when
  // something is unsaved.
  void RestoreOffered();
  // The record of the draft is called up, unless it stands there, by typing what identifies it; then its values are put
  // over those that stand there. Says in the status what became of it. A draft whose record does not come stays, and
  // so does one of another screen or scope.
  void Restore(const std::string& id);
  void Remove(const std::string& id);

 private:
  DraftKeeper* Keeper() const;
  // Whether a draft is of this screen and scope.
  std::function<bool(const Draft&)> Here() const;
  Draft Now() const;
  // Without the values that are stored now.
  Draft Rest(Draft draft, bool beside) const;
  void Follow(DraftKeeper& keeper);
  void Offer(bool left);
  void Say(const std::string& text);
  bool GoTo(Control& control);
  bool CallUp(const Draft& draft);
  bool BringUp(const Unsaved::Place& place);
  bool PutBack(const Draft& draft);
  bool Stands(const Draft& draft) const;

  Form& form_;
  Unsaved sheet_;
  std::vector<DraftValue> changes_;
  Draft kept_;              // as it was given to the keeper last
  std::string kept_id_;     // empty: none is worked on
  std::string left_id_;     // that this form has left last
  std::string offered_id_;  // what RestoreOffered takes
  std::string said_;        // what this object has put into the form's status
  bool begun_ = false;      // and nothing was shown since
};

}  // namespace zendara
