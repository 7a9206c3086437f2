// Many companies of one: the rows of company 00001 copied on the server under the file names of others.
#pragma once

#include <string>
#include <string_view>

#include "bench/plain_server.hpp"
#include "zendara/engines.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

inline std::string CompanyCode(int company) {
  const std::string digits = std::to_string(company);
  return std::string(5 - digits.size(), '0') + digits;
}

// Which rows of the files of a year are copied: all, or those that a month has in 01, since 10,000 companies with
// every month of three years would fill a disk.
enum class Years { kWhole, kOneMonth };

class CompanyCopies {
 public:
  explicit CompanyCopies(const std::string& place) : place_(place), server_(place) {}

  // The companies from one number to another. REQUIRES: 00001 is there, none of these.
  void Make(int from, int to, Years years) {
    server_.Run("BEGIN");
    Copy("Nom", "", from, to, "");
    Copy("DOC", "", from, to, "");
    for (const char* year : {"00", "01", "02"}) {
      const bool some = years == Years::kOneMonth;
      Copy("N", year, from, to, !some ? "" : std::string_view(year) == "01" ? "12" : "none");
    }
    server_.Run("COMMIT");
    for (const char* file : {"Empresa.MDB", "Empresas.mdb"}) AddToGeneralTables(file, from, to);
  }

 private:
  // A file of 00001 for each: its rows, then its row of the catalogue.
  void Copy(const std::string& head, const std::string& year, int from, int to, const std::string& month) {
    const std::string name = head + "00001" + year + ".MDB";
    const std::string new_name = "'" + head + "' || lpad(g::text, 5, '0') || '" + year + ".MDB'";
    const std::string numbers = "generate_series(" + std::to_string(from) + ", " + std::to_string(to) + ") g";
    const std::string relations =
        "SELECT string_agg(DISTINCT t.relation, ',') FROM zendara_files f JOIN zendara_tables t ON t.number = "
        "ANY (f.tables) WHERE f.name = '" +
        name + "'";
    std::string list = server_.Run(relations) + ",";
    for (std::size_t end = list.find(','); end != std::string::npos; list.erase(0, end + 1), end = list.find(',')) {
      const std::string relation = list.substr(0, end);
      const std::string columns =
          server_.Run("SELECT string_agg(attname, ', ' ORDER BY attnum) FROM pg_attribute WHERE attrelid = '" +
                      relation + "'::regclass AND attnum > 0 AND attname NOT IN ('zendara_file', 'zendara_row')");
      server_.Run("INSERT INTO " + relation + " (zendara_file, " + columns + ") SELECT upper(" + new_name + "), " +
                  columns + " FROM " + numbers + ", (SELECT * FROM " + relation + " WHERE zendara_file = upper('" +
                  name + "')" + OfMonth(relation, month) + " ORDER BY zendara_row OFFSET 0) r");
    }
    server_.Run("INSERT INTO zendara_files SELECT upper(" + new_name + "), " + new_name +
                ", tables FROM zendara_files, " + numbers + " WHERE name = '" + name + "'");
  }

  static std::string OfMonth(std::string_view relation, const std::string& month) {
    if (month.empty() || relation == "centros") return "";
    return std::string(relation == "historico" ? " AND campo1" : " AND campo0") + " = '" + month + "'";
  }

  // Its key is for the engine to make.
  void AddToGeneralTables(const char* file, int from, int to) {
    const auto engine = MakeEngine(place_);
    const auto database = engine->Workspaces(0)->OpenDatabase(file);
    const auto companies = database->OpenRecordset("EmpresasNom", RecordsetType::kTable);
    companies->MoveFirst();
    const Value name = companies->Fields(1).Get();
    const Value agreement = companies->Fields(2).Get();
    Transaction transaction(*database);
    for (int company = from; company <= to; ++company) {
      companies->AddNew();
      companies->Fields(0).Set(CompanyCode(company));
      companies->Fields(1).Set(name);
      companies->Fields(2).Set(agreement);
      companies->Update();
    }
    transaction.Commit();
  }

  std::string place_;
  PlainServer server_;
};

}  // namespace zendara
