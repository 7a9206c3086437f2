#include "random/hands.hpp"

#include <algorithm>

#include "adapters/script/script_keys.hpp"
#include "random/incident_table.hpp"
#include "runtime/text.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

constexpr std::size_t kMostBoxes = 200;  // of one event; more are a loop without end

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// A code as the screen stores it.
std::string CodeIn(const Form& form, std::string_view id) {
  const auto* box = dynamic_cast<const TextBox*>(form.Find(id));
  const std::string text = box ? LCase(Trim(box->Text())) : "";
  return text.empty() ? text : Repeat('0', std::max(0, box->MaxLength() - static_cast<int>(Len(text)))) + text;
}

}  // namespace

void Hands::Do(Form& form, const std::string& what, const std::function<void()>& event) {
  if (!Going(form)) return;
  --left_;
  ++findings_.events;
  boxes_.clear();
  Note(what);
  const Shown before = ShownOn(form);
  event();
  if (form.Loaded()) CheckModel(form);
  CheckWrites(form, what, before);
}

void Hands::CheckModel(const Form& form) {
  const Control* focus = form.Focus();
  if (focus && !focus->CanFocus()) Fail("the focus is on " + focus->Id() + ", which cannot have it");
  const auto* box = dynamic_cast<const TextBox*>(focus);
  if (box && box->MaxLength() > 0 && static_cast<int>(Len(box->Text())) > box->MaxLength()) {
    Fail(box->Id() + " holds too long a text: " + box->Text());
  }
}

Hands::Shown Hands::ShownOn(const Form& form) {
  const std::string focus = form.Focus() ? form.Focus()->Id() : "";
  const Control* frame = form.Find("Regularizacion");
  return {CodeIn(form, "Text1(1)"), CodeIn(form, "Text1(92)"), focus != "Text1(1)" && focus != "Text1(92)",
          frame && frame->Visible()};
}

// The worker screen writes rows of the worker and situación that it shows, and of no other. A worker who goes, or has
// gone, takes all his situaciones with him. A regularisation goes to the situación that was shown last, while a new one
// that is not saved yet may be on the screen. What the incident screens write has been looked at, and nobody else
// writes there.
void Hands::CheckWrites(const Form& form, const std::string& event, const Shown& before) {
  const std::vector<Ledger::Change> changed = ledger_.Changed();
  const bool at_workers = form.Name() == kPantallaTrabajadores;
  for (const auto& [table, key] : changed) {
    if (!at_workers || IsIncidents(table)) Fail(event + " on " + form.Name() + " changed " + key + " in " + table);
  }
  if (!at_workers) return;
  const std::string situacion = before.worker + "/" + before.situacion;
  const Shown now = ShownOn(form);
  const bool emptied = !before.worker.empty() && now.worker.empty();
  if (event == "click Grabar" && before.stays && emptied && !ledger_.Has(situacion)) Fail(situacion + " was not saved");
  if (changed.empty()) return;
  findings_.writes.insert(event);
  const bool removed = !ledger_.Has(before.worker);
  const bool regularised = before.regularising && !now.regularising;
  const std::string allowed = before.stays && !removed && !regularised ? situacion : before.worker + "/";
  for (const auto& [table, who] : changed) {
    if (who != before.worker && !who.starts_with(allowed)) {
      Fail("rows of " + who + " were changed while " + situacion + " was shown");
    }
  }
}

void Hands::Press(Form& form, std::string_view name) {
  Do(form, "key " + std::string(name), [&] { form.Press(KeyByName(name).value()); });
}

void Hands::Type(Form& form, std::string_view text) {
  Do(form, "type " + Quoted(text), [&] {
    for (std::string_view rest = text; !rest.empty() && form.Loaded();) form.Press(KeyOfCharacter(TakeCharacter(rest)));
  });
}

void Hands::Paste(Form& form, const std::string& text) {
  Do(form, "paste " + Quoted(text), [&] { form.Paste(text); });
}

void Hands::Click(Form& form, Control& control) {
  Do(form, "click " + control.Id(), [&] {
    form.MouseOver(control);
    form.Click(control);
  });
}

void Hands::Fill(Form& form, TextBox& box, const std::string& text) {
  Do(form, "focus " + box.Id(), [&] { form.PointTo(box, 0, static_cast<int>(Len(box.Text()))); });
  if (text.empty()) {
    Press(form, "Delete");
  } else if (random.Chance(50)) {
    Type(form, text);
  } else {
    Paste(form, text);
  }
}

BoxAnswer Hands::Answer(const Box& box) {
  BoxAnswer answer = BoxAnswer::kOk;
  if (box.buttons == BoxButtons::kYesNo) {
    answer = random.Chance(50) ? BoxAnswer::kYes : BoxAnswer::kNo;
    if (wish && random.Chance(90)) answer = *wish;
  }
  Note("box " + Quoted(box.text) + (answer == BoxAnswer::kYes ? " -> yes" : answer == BoxAnswer::kNo ? " -> no" : ""));
  if (box.text.find(ErrorText(kInternalError)) != std::string::npos) Fail("an exception that is no run-time error");
  boxes_.push_back(box.text);
  if (boxes_.size() > kMostBoxes) {
    Fail("more than " + std::to_string(kMostBoxes) + " boxes");
    throw RuntimeError(kOutOfMemory);  // out of the loop
  }
  return answer;
}

}  // namespace zendara
