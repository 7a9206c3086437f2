#include "platform/form/form_drafts.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

#include "runtime/failure.hpp"
#include "zendara/forms/form.hpp"

namespace zendara {
namespace {

bool IsRecord(const std::vector<DraftValue>& key) { return !key.empty() && !key.front().text.empty(); }

// Of the record that saving the draft would store: what code has put over its key is among its values.
std::vector<DraftValue> StoredKey(const Draft& draft) {
  std::vector<DraftValue> key = draft.key;
  for (DraftValue& part : key) {
    const auto put = std::ranges::find(draft.values, part.id, &DraftValue::id);
    if (put != draft.values.end()) part.text = put->text;
  }
  return key;
}

std::string When(const KeptDraft& kept) { return kept.when.empty() ? std::string() : " el " + kept.when; }

}  // namespace

DraftKeeper* FormDrafts::Keeper() const { return form_.Host().Drafts(); }

void FormDrafts::Begin() {
  for (const bool beside : {false, true}) sheet_.SettlePart(beside, true);
  changes_.clear();
  offered_id_.clear();
  left_id_.clear();
  said_.clear();
  begun_ = true;
}

void FormDrafts::End() {
  DraftKeeper* keeper = Keeper();
  if (keeper && !kept_id_.empty()) keeper->Leave(kept_id_);
  kept_id_.clear();
  kept_ = {};
}

Draft FormDrafts::Now() const {
  Draft draft{.scope = form_.DraftScope(),
              .place = form_.DraftPlace(),
              .screen = form_.Name(),
              .screen_title = form_.Title(),
              .key = sheet_.Key(),
              .title = form_.Subject(),
              .focus = form_.Focus() && sheet_.Has(*form_.Focus()) ? form_.Focus()->Id() : std::string(),
              .values = changes_,
              .note = form_.DraftNote()};
  if (!draft.title.empty()) return draft;
  const std::vector<DraftValue> key = StoredKey(draft);
  if (!IsRecord(key)) draft.title = "una ficha nueva";
  for (const DraftValue& part : key) {
    if (IsRecord(key)) draft.title += (draft.title.empty() ? "" : " ") + part.text;
  }
  return draft;
}

// What was given to the keeper is how it stood before the event, which is what a user has seen; what this event did to
// it before the record went was no more than the way to the next one.
void FormDrafts::EventEnded() {
  DraftKeeper* keeper = Keeper();
  const bool settled = sheet_.Settled();
  bool left = false;
  std::string title;
  if (!kept_id_.empty() && settled &&
      std::ranges::any_of(kept_.values, [&](const DraftValue& value) { return sheet_.Lost(value.id); })) {
    if (keeper) keeper->Leave(kept_id_);
    left_id_ = std::exchange(kept_id_, {});
    title = kept_.title;
    left = true;
  }
  sheet_.Rest();
  changes_ = sheet_.Changes();
  if (!keeper) {
    kept_id_.clear();
    return;
  }
  Follow(*keeper);
  if (settled && changes_.empty()) Offer(left);
  if (left && !changes_.empty()) {
    Say("Lo que escribió en " + title + " sigue en la lista de borradores (Ctrl+Mayús+Z).");
  }
  if (!changes_.empty() && !offered_id_.empty()) {
    offered_id_.clear();
    if (form_.Status() == said_) form_.SetStatus({});
  }
  if (const std::string trouble = keeper->TakeTrouble(); !trouble.empty()) form_.SetStatus(trouble);
}

void FormDrafts::Follow(DraftKeeper& keeper) {
  if (changes_.empty()) {
    if (!kept_id_.empty()) keeper.Drop(kept_id_);
    kept_id_.clear();
    return;
  }
  // Nothing else can change meanwhile, and what stands there names two records.
  if (!kept_id_.empty() && sheet_.TypesOverKey()) return;
  Draft draft = Now();
  if (!kept_id_.empty() && draft == kept_) return;
  kept_id_ = keeper.Keep(kept_id_, draft);
  kept_ = std::move(draft);
}

void FormDrafts::Offer(bool left) {
  const bool begun = std::exchange(begun_, false);
  const auto is_of_record = [&](const KeptDraft& kept) {
    return IsRecord(sheet_.Key()) && kept.draft.key == sheet_.Key();
  };
  const std::vector<KeptDraft> drafts = Keeper()->Left([&, here = Here()](const KeptDraft& kept) {
    return (begun || kept.id == left_id_ || is_of_record(kept)) && here(kept.draft);
  });
  const auto of_record = std::ranges::find_if(drafts, is_of_record);
  const auto last = begun ? drafts.begin() : std::ranges::find(drafts, left_id_, &KeptDraft::id);
  const auto offered = of_record != drafts.end() ? of_record : last;
  offered_id_ = offered == drafts.end() ? std::string() : offered->id;
  if (offered == drafts.end()) return;
  if (offered == of_record) return Say("Ctrl+Z recupera lo que escribió aquí" + When(*offered) + " y no grabó.");
  if (left || begun) {
    Say("Quedó sin grabar lo escrito en " + offered->draft.title + When(*offered) + ": Ctrl+Z lo recupera.");
  }
}

// What the screen says itself comes first.
void FormDrafts::Say(const std::string& text) {
  if (!form_.Status().empty() && form_.Status() != said_) return;
  said_ = text;
  form_.SetStatus(text);
}

Draft FormDrafts::Rest(Draft draft, bool beside) const {
  if (!beside) draft.key = StoredKey(draft);
  std::erase_if(draft.values, [&](const DraftValue& value) {
    const auto place = sheet_.Find(value.id);
    return (place && place->opener) == beside;
  });
  if (!beside) draft.note.clear();
  return draft;
}

void FormDrafts::Saved(bool beside) {
  if (DraftKeeper* keeper = Keeper()) {
    if (!kept_id_.empty()) {
      kept_ = Rest(std::move(kept_), beside);
      if (kept_.values.empty()) {
        keeper->Drop(std::exchange(kept_id_, {}));
      } else {
        kept_id_ = keeper->Keep(kept_id_, kept_);
      }
    }
    const std::vector<DraftValue> stored = sheet_.KeyNow();
    const auto of_record = [&, here = Here()](const KeptDraft& kept) {
      // The key of a record that comes whole is that of others too.
      return IsRecord(stored) && StoredKey(kept.draft) == stored && here(kept.draft) &&
             (!sheet_.IsWhole() || Stands(kept.draft));
    };
    for (const KeptDraft& kept : keeper->Left(of_record)) {
      const Draft rest = Rest(kept.draft, beside);
      if (rest.values.empty()) {
        keeper->Drop(kept.id);
      } else if (rest != kept.draft) {
        keeper->Leave(keeper->Keep(kept.id, rest));
      }
    }
  }
  sheet_.SettlePart(beside, false);
}

// Back on the form.

std::vector<KeptDraft> FormDrafts::Left() const {
  DraftKeeper* keeper = Keeper();
  if (!keeper) return {};
  const auto here = Here();
  std::vector<KeptDraft> drafts = keeper->Left([&](const KeptDraft& kept) { return here(kept.draft); });
  std::ranges::move(keeper->Left([&](const KeptDraft& kept) { return !here(kept.draft); }), std::back_inserter(drafts));
  return drafts;
}

std::function<bool(const Draft&)> FormDrafts::Here() const {
  return [scope = form_.DraftScope(), screen = form_.Name()](const Draft& draft) {
    return draft.scope == scope && draft.screen == screen;
  };
}

std::string FormDrafts::WhyNotHere(const Draft& draft) const {
  if (Here()(draft)) return {};
  std::string why = "Se recupera en la pantalla " + (draft.screen_title.empty() ? draft.screen : draft.screen_title);
  if (draft.scope != form_.DraftScope()) {
    // The same words for another place: companies of two folders.
    const bool named = !draft.place.empty() && draft.place != form_.DraftPlace();
    why += " de " + (named ? draft.place : draft.scope);
  }
  return why.ends_with('.') ? why : why + ".";
}

void FormDrafts::RestoreOffered() {
  if (changes_.empty() && !offered_id_.empty()) Restore(offered_id_);
}

void FormDrafts::Remove(const std::string& id) {
  if (DraftKeeper* keeper = Keeper()) keeper->Drop(id);
}

void FormDrafts::Restore(const std::string& id) {
  DraftKeeper* keeper = Keeper();
  if (!keeper) return;
  const std::vector<KeptDraft> drafts = keeper->Left([&](const KeptDraft& kept) { return kept.id == id; });
  if (drafts.empty()) return;
  const KeptDraft* kept = &drafts.front();
  if (const std::string why = WhyNotHere(kept->draft); !why.empty()) return form_.SetStatus(why);
  offered_id_.clear();
  // What is unsaved stays as a draft of its own, whether its record goes or not.
  const Draft before = kept_id_.empty() ? Draft() : kept_;
  const std::string before_id = kept_id_;
  End();
  said_ = form_.Status();
  const bool called_up = CallUp(kept->draft);
  sheet_.Rest();
  if (!called_up) {
    return Say("No se pudo volver a " + kept->draft.title +
               ": lo escrito sigue en la lista de borradores (Ctrl+Mayús+Z).");
  }
  const bool whole = PutBack(kept->draft);
  form_.RestoreNote(kept->draft.note);
  if (!whole) {
    return Say("No todo lo escrito cabe ya en " + kept->draft.title +
               ": el borrador sigue en la lista (Ctrl+Mayús+Z).");
  }
  // All of it stands here too.
  if (!before_id.empty() && IsRecord(kept->draft.key) && before.key.front() == kept->draft.key.front() &&
      Stands(before))
    keeper->Drop(before_id);
  kept_ = kept->draft;
  kept_id_ = keeper->Keep(kept->id, kept_);
  Say("Recuperado lo que escribió" + When(*kept) + ": está sin grabar.");
}

// The rules of the control that is left may send the focus elsewhere once.
bool FormDrafts::GoTo(Control& control) {
  const Control* before = form_.Focus();
  if (!control.CanFocus()) return false;
  form_.SetFocus(control);
  if (!control.HasFocus() && form_.Focus() != before && control.CanFocus()) form_.SetFocus(control);
  return control.HasFocus();
}

// As a user would: each part of the key that differs is typed over and left for the next field. What the screen shows
// for one may set the next, so each is compared when its turn comes. A record without a number is an emptied screen,
// whatever stands in the rest of its key.
bool FormDrafts::CallUp(const Draft& draft) {
  if (sheet_.TypesOverKey()) {
    // A number that was typed and has called up nothing yet.
    Control& focus = *form_.Focus();
    focus.PutBack(0, std::ranges::find(sheet_.Key(), focus.Id(), &DraftValue::id)->text);
  }
  for (const DraftValue& part : draft.key) {
    const auto place = sheet_.Find(part.id);
    if (!place) return false;
    Control& control = *place->control;
    if (control.ShownText() != part.text) {
      if (!GoTo(control)) return false;
      control.PutBack(place->value, part.text);
      form_.FocusNextField();
    }
    if (!IsRecord(draft.key)) return control.ShownText().empty();
  }
  return form_.Loaded() && sheet_.KeyNow() == draft.key;
}

// What is beside the record is brought up as a user would.
bool FormDrafts::BringUp(const Unsaved::Place& place) {
  Control& opener = *place.opener;
  if (!place.control->Usable() && GoTo(opener)) opener.Click();
  return place.control->Usable();
}

// Frames and the focus come first, so that the rules of leaving and entering see what is stored. Where a value of the
// key was put by code, its field would take it for the user's.
bool FormDrafts::PutBack(const Draft& draft) {
  const auto place_of = [this](const DraftValue& value) { return sheet_.Find(value.id); };
  bool up = true;
  for (const DraftValue& value : draft.values) {
    if (const auto place = place_of(value); place && place->opener) up = BringUp(*place) && up;
  }
  Control* focus = form_.Find(draft.focus);
  const bool is_put_key = std::ranges::any_of(draft.values, [&](const DraftValue& value) {
    const auto place = place_of(value);
    return place && place->key && place->control == focus;
  });
  if (focus && !is_put_key) GoTo(*focus);
  sheet_.Rest();
  for (const DraftValue& value : draft.values) {
    const auto place = place_of(value);
    if (!place || (place->opener && !place->control->Usable())) continue;
    form_.Run([&] { place->control->PutBack(place->value, value.text); });
  }
  return up && Stands(draft);
}

bool FormDrafts::Stands(const Draft& draft) const {
  return std::ranges::all_of(draft.values, [&](const DraftValue& value) {
    const auto place = sheet_.Find(value.id);
    return place && place->control->ValueText(place->value) == value.text;
  });
}

}  // namespace zendara
