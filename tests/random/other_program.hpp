// Another program on the company: changes, adds and removes rows that may be on the screen, and holds its files.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "random/hands.hpp"
#include "random/incident_table.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class OtherProgram {
 public:
  // `place` as OpenStore takes it.
  OtherProgram(Hands& hands, const std::string& place, const std::string& year);

  // A row of a worker, or of the incidents of any screen.
  void Interfere();
  void InterfereWithIncidents();
  // Another text into the column of the row, unless there is no such row; false then.
  bool Change(const IncidentTable& table, const std::vector<Value>& key, int column, const std::string& text);

  // Writes into the file of the table and does not finish. Until Release nobody else can write there.
  void Hold(const IncidentTable& table);
  void Release();

 private:
  Database& FileOf(const IncidentTable& table) { return table.dated() ? *company_ : *year_; }
  void Add(const IncidentTable& table);

  Hands& hands_;
  std::unique_ptr<Engine> engine_;
  std::shared_ptr<Database> company_;
  std::shared_ptr<Database> year_;
  Database* held_ = nullptr;
};

}  // namespace zendara
