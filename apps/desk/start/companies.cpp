#include "apps/desk/start/companies.hpp"

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "frame/stored_tables.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::string DataFolder(const Store& store) { return store.folder + "/DATOS"; }

std::map<std::string, std::string> Names(const Store& store) {
  std::map<std::string, std::string> names;
  try {
    const auto general =
        store.engine->Workspaces(0)->OpenDatabase(DataFolder(store) + "/" + FileName(FileKind::kEmpresas, {}, {}));
    const auto rows = general->OpenRecordset("SELECT Campo0, Campo1 FROM EmpresasNom ORDER BY Campo0");
    for (; !rows->Eof(); rows->MoveNext()) {
      const Value name = rows->Fields(1).Get();
      names[Trim(CStr(rows->Fields(0).Get()))] = name.IsNull() ? std::string() : Trim(CStr(name));
    }
  } catch (const RuntimeError&) {
    // A company can be chosen by its code all the same.
  }
  return names;
}

std::vector<std::string> FileNames(const Store& store) try {
  return store.engine->Workspaces(0)->Databases(DataFolder(store));
} catch (const RuntimeError& error) {
  if (error.number() != kFolderNotFound) throw;
  return {};
}

}  // namespace

std::vector<Company> FindCompanies(const Store& store) {
  static const std::regex company(R"(nom(\d{5})\.mdb)", std::regex::icase);
  static const std::regex year(R"(n(\d{5})(\d{2})\.mdb)", std::regex::icase);
  std::map<std::string, std::set<std::string>> years;
  std::set<std::string> codes;
  for (const std::string& name : FileNames(store)) {
    std::smatch match;
    if (std::regex_match(name, match, company)) codes.insert(match[1]);
    if (std::regex_match(name, match, year)) years[match[1]].insert(match[2]);
  }
  // One whose own file is no database any more is shown too: opening it says so.
  for (const auto& [code, files] : years) {
    const std::string own = DataFolder(store) + "/" + FileName(FileKind::kCompany, code, {});
    if (!codes.contains(code) && store.engine->Workspaces(0)->Exists(own)) codes.insert(code);
  }
  const auto names = Names(store);
  std::vector<Company> companies;
  for (const std::string& code : codes) {
    const auto name = names.find(code);
    Company& found = companies.emplace_back();
    found.code = code;
    found.name = name == names.end() ? std::string() : name->second;
    found.years.assign(years[code].begin(), years[code].end());
    const auto in_time = [](const std::string& working_year) { return FullWorkingYear(std::stoi(working_year)); };
    std::ranges::sort(found.years, std::ranges::greater(), in_time);
  }
  return companies;
}

}  // namespace zendara
