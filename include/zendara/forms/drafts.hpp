// What somebody has typed on a form and not saved, kept outside of the form, so that neither a key nor the end of the
// program loses it.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zendara {

// A value of a control by its name: "Text1(7)", "Grid1(0)[1,2]".
struct DraftValue {
  std::string id;
  std::string text;

  friend bool operator==(const DraftValue&, const DraftValue&) = default;
};

struct Draft {
  std::string scope;            // what the records of the screen belong to: company, year
  std::string place;            // the same for the user; may be empty
  std::string screen;           // name of the form
  std::string screen_title;     // the same for the user; may be empty
  std::vector<DraftValue> key;  // of the controls that say which record it is, as it was shown; the first one decides
  std::string title;            // the record for the user
  std::string focus;            // control of the record that had the focus; empty: none
  std::vector<DraftValue> values;  // all that was not saved
  std::string note;                // Form::DraftNote

  friend bool operator==(const Draft&, const Draft&) = default;
};

struct KeptDraft {
  std::string id;    // the keeper's own name for it
  std::string when;  // of its last change, for the user; may be empty
  Draft draft;
};

using DraftFilter = std::function<bool(const KeptDraft& kept)>;

// Where drafts are kept, by the front end (FormHost::Drafts). Nothing here throws, waits long, or fails for the caller:
// what could not be kept is told by TakeTrouble.
class DraftKeeper {
 public:
  virtual ~DraftKeeper() = default;

  // Takes how a draft stands now: of a new one, with an empty `id`, or of one that is worked on or was left. Answers
  // the id under which it is kept, which is another one when somebody else works on that one by now. On return the
  // state before this one is kept, as a rule; this one is a moment later.
  virtual std::string Keep(const std::string& id, const Draft& draft) = 0;
  // Nobody works on it any more, and it stays.
  virtual void Leave(const std::string& id) = 0;
  virtual void Drop(const std::string& id) = 0;
  // Those that nobody works on, in this program or another, and that are wanted, the last one first.
  virtual std::vector<KeptDraft> Left(const DraftFilter& wanted) = 0;
  // A line for the user when drafts cannot be kept, once for each time that it begins; otherwise empty.
  virtual std::string TakeTrouble() = 0;
};

}  // namespace zendara
