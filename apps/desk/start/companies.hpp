// The companies of a place, and the years that each has files of.
#pragma once

#include <string>
#include <vector>

#include "zendara/engines.hpp"

namespace zendara {

struct Company {
  std::string code;                // five characters
  std::string name;                // empty if the general tables do not have it
  std::vector<std::string> years;  // two digits, the latest first
};

// In the order of their codes; none for a folder without company files, or that is missing. Names are read from the
// general tables where these can be read. Errors of Workspace::Databases otherwise.
std::vector<Company> FindCompanies(const Store& store);

}  // namespace zendara
