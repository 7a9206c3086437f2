#include "random/other_program.hpp"

#include <utility>

#include "random/clerk.hpp"
#include "runtime/failure.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

// Any of them, or none.
bool MoveToAny(Random& random, Recordset& rows) {
  if (rows.Eof()) return false;
  for (int row = random.Between(0, static_cast<int>(rows.RecordCount()) - 1); row > 0; --row) rows.MoveNext();
  return true;
}

}  // namespace

OtherProgram::OtherProgram(Hands& hands, const std::string& place, const std::string& year) : hands_(hands) {
  Store store = OpenStore(place);
  engine_ = std::move(store.engine);
  company_ = engine_->Workspaces(0)->OpenDatabase(store.folder + "/DATOS/Nom00001.MDB");
  year_ = engine_->Workspaces(0)->OpenDatabase(store.folder + "/DATOS/N00001" + year + ".MDB");
}

void OtherProgram::Interfere() {
  Random& random = hands_.random;
  const char* table = random.Chance(50) ? "TrabajadoresFijo" : "TrabajadoresVar";
  const auto rows = company_->OpenRecordset(table, RecordsetType::kTable);
  if (!MoveToAny(random, *rows)) return;
  hands_.Note(std::string("another program is at ") + table + " " + rows->Fields(0).Get().Text());
  if (random.Chance(80)) {
    rows->Edit();
    rows->Fields(2).Set(random.Chance(50) ? "Otro" : "d'Or");
    rows->Update();
  } else {
    rows->Delete();
  }
  hands_.Forgive();
}

void OtherProgram::InterfereWithIncidents() {
  Random& random = hands_.random;
  const IncidentTable& table = random.Pick(kIncidentTables);
  hands_.Note("another program is at " + std::string(table.name));
  if (random.Chance(40)) return Add(table);
  const auto rows = FileOf(table).OpenRecordset(table.name, RecordsetType::kTable);
  if (!MoveToAny(random, *rows)) return;
  if (random.Chance(40)) {
    rows->Delete();
  } else {
    rows->Edit();
    // An incident is opened again, or closed.
    if (table.dated() && random.Chance(50)) {
      const Value start = rows->Fields(kDatedStart).Get();
      rows->Fields(kDatedEnd).Set(random.Chance(50) ? Value() : Value(Date{start.AsDate().serial + 3}));
    } else {
      rows->Fields(table.dated() ? kDatedType : table.columns - 1).Set(random.Chance(50) ? "1" : "2");
    }
    rows->Update();
  }
  hands_.Forgive();
}

void OtherProgram::Add(const IncidentTable& table) try {
  Random& random = hands_.random;
  const auto rows = FileOf(table).OpenRecordset(table.name, RecordsetType::kTable);
  const std::string worker = "0000" + std::to_string(random.Between(1, 9));
  rows->AddNew();
  if (table.dated()) {
    rows->Fields(kDatedWorker).Set(worker);
    rows->Fields(kDatedStart).Set(Date{DayOf(random.Between(0, kLastDay))});
  } else {
    const std::string key[] = {"0" + std::to_string(random.Between(1, 9)), worker, "001", "004"};
    for (std::size_t i = 0; i < table.key.size(); ++i) rows->Fields(table.key[i]).Set(key[i]);
  }
  rows->Update();
  hands_.Forgive();
} catch (const RuntimeError& error) {
  if (error.number() != kDuplicateKey) throw;
}

bool OtherProgram::Change(const IncidentTable& table, const std::vector<Value>& key, int column,
                          const std::string& text) {
  const auto rows = FileOf(table).OpenRecordset(table.name, RecordsetType::kTable);
  rows->SetIndex(table.index);
  rows->Seek(key);
  if (rows->NoMatch()) return false;
  hands_.Note("another program puts " + text + " into column " + std::to_string(column));
  rows->Edit();
  rows->Fields(column).Set(text);
  rows->Update();
  hands_.Forgive();
  return true;
}

void OtherProgram::Hold(const IncidentTable& table) {
  held_ = &FileOf(table);
  held_->BeginTrans();
  const auto rows = held_->OpenRecordset(table.name, RecordsetType::kTable);
  if (rows->Eof()) return;
  rows->Edit();
  rows->Fields(table.dated() ? kDatedType : table.columns - 1).Set("2");
  rows->Update();
}

void OtherProgram::Release() {
  if (Database* held = std::exchange(held_, nullptr)) held->Rollback();
}

}  // namespace zendara
