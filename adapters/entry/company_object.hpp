// A company opened whole, as an object with its parts.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "adapters/entry/records.hpp"
#include "zendara/company.hpp"

struct zendara_company final : zendara::Named<zendara_company> {
  explicit zendara_company(zendara::OpenedCompany company);
  static std::span<const zendara::Member<zendara_company>> Members();

  const zendara::OpenedCompany opened;
  const zendara::Counted<zendara_database> company, general;
  std::vector<zendara::Counted<zendara_recordset>> slots;  // none where a slot is empty
  std::vector<zendara_recordset*> items;                   // the same, as hosts get them
};

namespace zendara {

Counted<zendara_company> MakeCompanyObject(zendara_engine& engine, const std::string& folder, const std::string& code,
                                           const std::string& year);

}  // namespace zendara
