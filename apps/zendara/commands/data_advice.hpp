// What is probably wrong with workers, situaciones and incidents although every value is one of its column.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/zendara/commands/company_data.hpp"

namespace zendara {

// Texts are printable whatever the file holds. Those that do not apply are empty.
struct Advice {
  std::string worker;
  std::string situation;
  std::string field;
  std::string value;
  std::string text;
};

// "worker 00012, situación 001: centro 009 is not in Centros"
std::string OneLine(const Advice& advice);

// Sorted by worker and situación. `sound`: the files have no faults, so a table that cannot be read is a RuntimeError;
// otherwise there is no advice that needs it.
std::vector<Advice> ReadAdvice(const CompanyData& data, Console& console, bool sound);

}  // namespace zendara
