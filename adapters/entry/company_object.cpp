#include "adapters/entry/company_object.hpp"

#include <cstdint>
#include <utility>

#include "adapters/entry/class_object.hpp"
#include "adapters/entry/session.hpp"
#include "adapters/entry/structure.hpp"

using namespace zendara;

zendara_company::zendara_company(OpenedCompany company_opened)
    : opened(std::move(company_opened)),
      company(Make<zendara_database>(opened.company)),
      general(Make<zendara_database>(opened.general)) {
  for (const auto& recordset : opened.recordsets.items) {
    slots.push_back(recordset ? Make<zendara_recordset>(recordset) : Counted<zendara_recordset>());
    items.push_back(slots.back().get());
  }
}

std::span<const Member<zendara_company>> zendara_company::Members() {
  static constexpr Member<zendara_company> kMembers[] = {
      {"Company", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutObject(result, Counted<Object>::OneMore(*self.company).HandOver()); }},
      {"General", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutObject(result, Counted<Object>::OneMore(*self.general).HandOver()); }},
      {"Slots", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) {
         const auto count = static_cast<std::uint32_t>(self.items.size());
         const zendara_array& array = PutArray(result, self.opened.recordsets.lower_bound, count);
         for (std::uint32_t i = 0; i < count; ++i) zendara_variant_set_object(&array.items[i], self.items[i]);
       }},
  };
  return kMembers;
}

namespace zendara {

Counted<zendara_company> MakeCompanyObject(zendara_engine& engine, const std::string& folder, const std::string& code,
                                           const std::string& year) {
  return Make<zendara_company>(OpenCompany(*engine.engine, folder, code, year));
}

}  // namespace zendara

extern "C" {

zendara_result zendara_company_open(zendara_engine* engine, const char* folder, const char* code, const char* year,
                                    zendara_company** company) {
  return AnswerInThread([&] {
    Needed(company) = nullptr;
    auto& opened = Handle<zendara_engine>(engine);
    GiveObject(company, MakeCompanyObject(opened, opened.FolderOf(folder), TakeText(code), TakeText(year)));
  });
}

zendara_result zendara_company_parts(zendara_company* company, zendara_database** database, zendara_database** general,
                                     zendara_slots* slots) {
  return AnswerInThread([&]() -> zendara_result {
    const auto& parts = Handle<zendara_company>(company);
    if (database) *database = parts.company.get();
    if (general) *general = parts.general.get();
    if (!slots) return ZENDARA_OK;
    return FillOut(slots, zendara_slots{sizeof(zendara_slots), parts.opened.recordsets.lower_bound,
                                        static_cast<std::uint32_t>(parts.items.size()), parts.items.data()});
  });
}

zendara_result zendara_show(zendara_company* company, const char* screen, const zendara_session* session) {
  return AnswerInThread([&]() -> zendara_result {
    const auto held = Counted<zendara_company>::OneMore(Handle<zendara_company>(company));
    TableSession morlane(CopyOf(session));
    return ShowScreen(TakeText(screen), held->opened.company, held->opened.general, held->opened.recordsets, morlane);
  });
}
}
