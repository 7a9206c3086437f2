// The companies of an application's folder, and the years that each has files of.
#pragma once

#include <string>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara {

struct Company {
  std::string code;                // five characters
  std::string name;                // empty if the general tables do not have it
  std::vector<std::string> years;  // two digits, the latest first
};

// In the order of their codes; none for a folder without company files. Names are read from the general tables where
// these can be read.
std::vector<Company> FindCompanies(Engine& engine, const std::string& folder);

}  // namespace zendara
