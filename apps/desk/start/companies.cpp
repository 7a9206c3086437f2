#include "apps/desk/start/companies.hpp"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <system_error>

#include "adapters/host/host_files.hpp"
#include "frame/stored_tables.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::map<std::string, std::string> Names(Engine& engine, const std::filesystem::path& data) {
  std::map<std::string, std::string> names;
  try {
    const auto general = engine.Workspaces(0)->OpenDatabase((data / FileName(FileKind::kEmpresas, {}, {})).string());
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

}  // namespace

std::vector<Company> FindCompanies(Engine& engine, const std::string& folder) {
  const auto data = FindPath(folder + "/DATOS");
  if (!data) return {};
  static const std::regex company(R"(nom(\d{5})\.mdb)", std::regex::icase);
  static const std::regex year(R"(n(\d{5})(\d{2})\.mdb)", std::regex::icase);
  std::map<std::string, std::set<std::string>> years;
  std::set<std::string> codes;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(*data, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    std::smatch match;
    if (std::regex_match(name, match, company)) codes.insert(match[1]);
    if (std::regex_match(name, match, year)) years[match[1]].insert(match[2]);
  }
  const auto names = Names(engine, *data);
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
