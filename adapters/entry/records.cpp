#include "adapters/entry/records.hpp"

#include <string>
#include <vector>

#include "adapters/entry/company_object.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

Counted<zendara_database> OpenDatabase(zendara_engine& engine, const std::string& path) {
  return Make<zendara_database>(engine.engine->Workspaces(0)->OpenDatabase(path));
}

Counted<zendara_recordset> OpenRecordset(zendara_database& database, const std::string& source, std::int64_t type) {
  const auto known = static_cast<RecordsetType>(type);
  if (known != RecordsetType::kTable && known != RecordsetType::kQuery && known != RecordsetType::kForward) {
    Refuse(ZENDARA_INVALID, "no such type of recordset");
  }
  return Make<zendara_recordset>(database.database->OpenRecordset(source, known));
}

Field FieldOf(Recordset& recordset, const zendara_variant& column) {
  if (Meant(column).type == ZENDARA_TEXT) return recordset.Fields(ToText(column));
  return recordset.Fields(ToLong(column));
}

}  // namespace

Counted<zendara_engine> MakeEngineObject() { return Make<zendara_engine>(OpenStore({})); }

}  // namespace zendara

using namespace zendara;

std::span<const Member<zendara_engine>> zendara_engine::Members() {
  static constexpr Member<zendara_engine> kMembers[] = {
      {"OpenDatabase", ZENDARA_METHOD, 1, 1,
       [](auto& self, auto& given, auto& result) { PutObject(result, OpenDatabase(self, given.Text(0)).HandOver()); }},
      {"OpenCompany", ZENDARA_METHOD, 3, 3,
       [](auto& self, auto& given, auto& result) {
         PutObject(result, MakeCompanyObject(self, given.Text(0), given.Text(1), given.Text(2)).HandOver());
       }},
  };
  return kMembers;
}

std::span<const Member<zendara_database>> zendara_database::Members() {
  static constexpr Member<zendara_database> kMembers[] = {
      {"OpenRecordset", ZENDARA_METHOD, 1, 2,
       [](auto& self, auto& given, auto& result) {
         const std::int32_t type = given.Lacks(1) ? ZENDARA_QUERY : given.Long(1);
         PutObject(result, OpenRecordset(self, given.Text(0), type).HandOver());
       }},
      {"Name", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.database->Name()); }},
      {"Close", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.database->Close(); }},
  };
  return kMembers;
}

std::span<const Member<zendara_recordset>> zendara_recordset::Members() {
  static constexpr Member<zendara_recordset> kMembers[] = {
      {"Index", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.recordset->Index()); }},
      {"Index", ZENDARA_PUT, 1, 1, [](auto& self, auto& given, auto&) { self.recordset->SetIndex(given.Text(0)); }},
      {"Seek", ZENDARA_METHOD, 1, kAnyNumber,
       [](auto& self, auto& given, auto&) {
         std::vector<Value> keys;
         for (std::uint32_t i = 0; i < given.Count(); ++i) keys.push_back(ToValue(given[i]));
         self.recordset->Seek(keys);
       }},
      {"NoMatch", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutBoolean(result, self.recordset->NoMatch()); }},
      {"MoveFirst", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.recordset->MoveFirst(); }},
      {"MoveLast", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.recordset->MoveLast(); }},
      {"MoveNext", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.recordset->MoveNext(); }},
      {"MovePrevious", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.recordset->MovePrevious(); }},
      {"Bof", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { PutBoolean(result, self.recordset->Bof()); }},
      {"Eof", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { PutBoolean(result, self.recordset->Eof()); }},
      {"RecordCount", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutLong(result, self.recordset->RecordCount()); }},
      {"Fields", ZENDARA_GET, 1, 1,
       [](auto& self, auto& given, auto& result) { Put(result, FieldOf(*self.recordset, given[0]).Get()); }},
      {"Close", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.recordset->Close(); }},
  };
  return kMembers;
}

extern "C" {

zendara_result zendara_engine_open(const char* place, uint32_t access, zendara_engine** engine) {
  return AnswerInThread([&] {
    Needed(engine) = nullptr;
    if (access != ZENDARA_WRITE && access != ZENDARA_READ) Refuse(ZENDARA_INVALID, "no such access");
    const auto kind = access == ZENDARA_READ ? Access::kRead : Access::kWrite;
    const std::string wanted = TakeTextOrEmpty(place);
    // An engine alone: a folder is the host's to name.
    Store store = wanted.find("://") == std::string::npos ? Store{MakeEngine(wanted, kind), MakeHostFiles(), {}}
                                                          : OpenStore(wanted, kind);
    GiveObject(engine, Make<zendara_engine>(std::move(store)));
  });
}

zendara_result zendara_database_open(zendara_engine* engine, const char* path, zendara_database** database) {
  return AnswerInThread([&] {
    Needed(database) = nullptr;
    GiveObject(database, OpenDatabase(Handle<zendara_engine>(engine), TakeText(path)));
  });
}

zendara_result zendara_recordset_open(zendara_database* database, const char* source, uint32_t type,
                                      zendara_recordset** recordset) {
  return AnswerInThread([&] {
    Needed(recordset) = nullptr;
    GiveObject(recordset, OpenRecordset(Handle<zendara_database>(database), TakeText(source), type));
  });
}

zendara_result zendara_recordset_set_index(zendara_recordset* recordset, const char* index) {
  return AnswerInThread([&] { Handle<zendara_recordset>(recordset).recordset->SetIndex(TakeText(index)); });
}
}
