#include "random/incident_watch.hpp"

#include <algorithm>

#include "runtime/date.hpp"
#include "runtime/iso_date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "support/disk_faults.hpp"

namespace zendara {
namespace {

std::string TextOf(const Form& form, const std::string& id) {
  const Control* control = form.Find(id);
  if (const auto* combo = dynamic_cast<const ComboBox*>(control)) return combo->Text();
  return dynamic_cast<const TextBox&>(*control).Text();
}

// In whichever of its forms it stands in the field; as it is when it is none.
std::string StoredDate(std::string text) {
  if (text.size() == 6 && text.find('/') == std::string::npos) text.insert(4, "/").insert(2, "/");
  const auto date = ReadDateStrict(text, YearWindow());
  return date ? IsoDate(*date) : text;
}

bool WithinBounds(const std::string& day, const std::string& from, const std::string& to) {
  return !to.empty() && std::min(from, to) <= day && day <= std::max(from, to);
}

}  // namespace

// Rows.

std::string IncidentWatch::Place(std::string_view table) const {
  return (table_->dated() ? "company." : "y" + year_ + ".") + std::string(table);
}

std::optional<IncidentWatch::Row> IncidentWatch::Stored(std::string_view table, const std::string& key) const {
  const Ledger::Rows& rows = hands_.Books().RowsOf(Place(table));
  const auto found = rows.find(key);
  if (found == rows.end()) return std::nullopt;
  Row row;
  for (std::size_t begin = 0; begin < found->second.size();) {
    const std::size_t end = found->second.find('|', begin);
    row.push_back(found->second.substr(begin, end - begin));
    begin = end + 1;
  }
  return row;
}

IncidentWatch::Row IncidentWatch::On(const Form& form) const {
  Row row;
  for (int column = 0; column < table_->columns; ++column) {
    const bool type = table_->dated() && column == kDatedType;
    row.push_back(TextOf(form, type ? "Combo1" : "Text1(" + std::to_string(column + 1) + ")"));
  }
  if (table_->dated()) {
    row[kDatedStart] = StoredDate(row[kDatedStart]);
    row[kDatedEnd] = StoredDate(row[kDatedEnd]);
  }
  return row;
}

std::string IncidentWatch::KeyOf(const Row& row) const {
  std::string key;
  for (const int column : table_->key) key += (key.empty() ? "" : " ") + row[static_cast<std::size_t>(column)];
  return LCase(key);
}

bool IncidentWatch::Complete(const Row& row) const {
  constexpr std::size_t kDigits[] = {2, 5, 0, 3, 3};
  const auto code = [&](int column, std::size_t digits) {
    const std::string& text = row[static_cast<std::size_t>(column)];
    return Val(text) != 0 && Len(text) == digits;
  };
  if (table_->dated()) return code(kDatedWorker, 5) && !row[kDatedStart].empty();
  return std::ranges::all_of(table_->key, [&](int column) { return code(column, kDigits[column]); });
}

// A worker with rows in one of the tables only collides with nothing, and so does an open row.
bool IncidentWatch::Collides(const Row& row) const {
  if (!table_->dated()) return false;
  const std::string& start = row[kDatedStart];
  const std::string& end = row[kDatedEnd];
  bool collides = false;
  for (const std::string_view table : {table_->name, table_->other}) {
    bool any = false;
    for (const auto& [key, text] : hands_.Books().RowsOf(Place(table))) {
      if (!key.starts_with(row[kDatedWorker] + " ")) continue;
      any = true;
      const Row there = Stored(table, key).value();
      const std::string& from = there[kDatedStart];
      const std::string& to = there[kDatedEnd];
      collides |= WithinBounds(start, from, to) || (!end.empty() && WithinBounds(end, from, to)) ||
                  (!end.empty() && !to.empty() && start < from && end > to);
    }
    if (!any) return false;
  }
  return collides;
}

// Routines.

void IncidentWatch::Attach(Form& form) {
  const IncidentTable* table = IncidentTableOf(form.Name());
  if (!table) return;  // a listing that one of them has opened: it goes on behind
  table_ = table;
  foreign_ = false;
  changed_.reset();
  Wrap(form, "Grabar", &IncidentWatch::CheckSave);
  Wrap(form, "Borrar", &IncidentWatch::CheckRemoval);
  for (const char* step : {"Inicio", "Anterior", "Siguiente", "Fin"}) Wrap(form, step, &IncidentWatch::CheckStep);
}

void IncidentWatch::Wrap(Form& form, std::string_view button, void (IncidentWatch::*check)(Form&)) {
  const auto routine = form.Find(button)->On().click;
  form.Find(button)->On().click = [this, &form, routine, check](int index) {
    before_ = On(form);
    shown_ = !form.Position().empty();
    saving_ = check == &IncidentWatch::CheckSave;
    boxes_ = hands_.Boxes().size();
    Run([&] { routine(index); });
    (this->*check)(form);
    changed_.reset();
  };
}

void IncidentWatch::Run(const std::function<void()>& routine) {
  const TestDisk settled;
  in_routine_ = true;
  trouble_ = hands_.random.Chance(6);
  if (trouble_) {
    const int after = hands_.random.Between(0, 8);
    const int kind = hands_.random.Between(0, 2);
    hands_.Note("trouble " + std::to_string(kind) + " " + std::to_string(after));
    if (kind == 0) {
      disk.fault_in = after;
    } else if (kind == 1) {
      disk.writes_left = after;
    } else {
      other_.Hold(*table_);
      if (after % 2 == 0) disk.while_waiting = [this] { other_.Release(); };
    }
  }
  routine();
  disk = {};
  other_.Release();
  in_routine_ = false;
}

void IncidentWatch::Pause(Form& form, double percent) {
  if (!table_ || form.Name() != table_->screen || (in_routine_ && (!saving_ || trouble_))) return;
  if (!hands_.random.Chance(percent)) return;
  other_.InterfereWithIncidents();
  foreign_ = true;
  changed_.reset();
}

void IncidentWatch::ChangeShown(Form& form) {
  if (!table_ || form.Name() != table_->screen || form.Position().empty()) return;
  const Row shown = On(form);
  const auto row = Stored(table_->name, KeyOf(shown));
  if (!row) return;
  std::vector<Value> key;
  for (const int column : table_->key) {
    const std::string& text = (*row)[static_cast<std::size_t>(column)];
    const auto date = table_->dated() ? ReadIsoDate(text) : std::nullopt;
    key.push_back(date ? Value(*date) : Value(text));
  }
  constexpr int kDated[] = {kDatedName, kDatedType, kDatedEnd};
  constexpr int kName = 2;  // of the variable ones: a clerk who types the same figure again has changed it
  const int column = table_->dated() ? hands_.random.Pick(kDated) : kName;
  const bool end = table_->dated() && column == kDatedEnd;
  const std::string text = end ? "31/12/03" : "2";
  if (!other_.Change(*table_, key, column, text)) return;
  foreign_ = true;
  changed_ = {shown, column, end ? StoredDate(text) : text};
}

void IncidentWatch::CheckSave(Form& form) {
  const std::string key = KeyOf(before_);
  const bool complete = Complete(before_);
  const bool collides = complete && Collides(before_);
  const std::optional<Row> old = Stored(table_->name, key);
  const bool said = hands_.Boxes().size() > boxes_;
  const auto changes = hands_.Books().Changed();
  for (const auto& [table, changed] : changes) {
    if (table != Place(table_->name) || changed != key) Fail("saving " + key + " changed " + changed + " in " + table);
  }
  if (!complete || collides || said) {
    if (!changes.empty()) Fail(key + " was changed by a save that was refused");
    if (!said) Fail(key + " was to be refused");
    if (complete && !collides && !trouble_) Fail(key + " was not saved: " + hands_.Boxes().back());
    const bool emptied = On(form) != before_;
    const bool may_empty = complete && !collides && table_->dated();
    if (emptied && !may_empty) Fail("a refused save changed the screen");
    if (collides) Met("refuses");
    if (complete && !collides) Met("fails");
    return;
  }
  const std::optional<Row> now = Stored(table_->name, key);
  if (!now) return Fail(key + " was not saved");
  CheckRow(old, *now);
  CheckEmptied(form, "Grabado: ");
  Met(old ? "replaces" : "adds");
  if (table_->dated() && old && (*old)[kDatedEnd].empty() && !(*now)[kDatedEnd].empty()) Met("closes");
}

// What stands in the fields is stored. Where nobody has touched one, what was stored before may stay: what somebody
// else has put there, or that of a row with a Null, for which a field keeps what stood there or is emptied.
void IncidentWatch::CheckRow(const std::optional<Row>& before, const Row& after) {
  const bool null = before && std::ranges::find(*before, "") != before->end();
  for (std::size_t column = 0; column < after.size(); ++column) {
    const std::string& own = before_[column];
    const std::string& is = after[column];
    const bool kept = before && is == (*before)[column] && (foreign_ || null);
    if (is != own && !kept)
      Fail("column " + std::to_string(column) + " of " + KeyOf(before_) + " is " + is + ", not " + own);
  }
  if (!changed_ || !shown_ || KeyOf(changed_->shown) != KeyOf(before_)) return;
  const auto column = static_cast<std::size_t>(changed_->column);
  if (changed_->shown[column] != before_[column]) return;
  if (after[column] != changed_->text) Fail("a foreign change of column " + std::to_string(column) + " is lost");
  Met("keeps");
}

void IncidentWatch::CheckEmptied(const Form& form, std::string_view status) {
  Row now = On(form);
  const bool month_stays = !table_->dated() && status.starts_with("G");
  if (month_stays && std::exchange(now[0], "") != before_[0]) Fail("the month is gone");
  if (std::ranges::any_of(now, [](const std::string& text) { return !text.empty(); })) Fail("the screen is not empty");
  const std::string& worker = before_[table_->dated() ? kDatedWorker : 1];
  if (!form.Status().starts_with(std::string(status) + worker)) Fail("the status is " + form.Status());
}

void IncidentWatch::CheckRemoval(Form& form) {
  const std::string key = KeyOf(before_);
  const bool there = Stored(table_->name, key).has_value();
  const bool said = hands_.Boxes().size() > boxes_;
  const auto changes = hands_.Books().Changed();
  for (const auto& [table, changed] : changes) {
    if (table != Place(table_->name) || changed != key)
      Fail("removing " + key + " changed " + changed + " in " + table);
  }
  if (said) {
    if (there && !trouble_) Fail(key + " was not removed: " + hands_.Boxes().back());
    if (!changes.empty()) Fail(key + " was changed by a removal that failed");
    if (On(form) != before_) Fail("a removal that failed changed the screen");
    return;
  }
  if (!there) Fail(key + " was removed without being there");
  if (Stored(table_->name, key)) return Fail(key + " was not removed");
  CheckEmptied(form, "Borrado: ");
  Met("removes");
}

void IncidentWatch::CheckStep(Form& form) {
  if (!hands_.Books().Changed().empty()) Fail("a step changed rows");
  if (hands_.Boxes().size() > boxes_) {
    if (!trouble_) Fail("a step failed: " + hands_.Boxes().back());
    return;
  }
  const Row now = On(form);
  const bool any = !hands_.Books().RowsOf(Place(table_->name)).empty();
  if (any && !Stored(table_->name, KeyOf(now))) Fail("a step shows " + KeyOf(now) + ", which is no row");
}

}  // namespace zendara
