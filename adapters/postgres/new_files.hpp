// Files made together: one transaction of the server.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/postgres/server.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::postgres {

std::unique_ptr<NewFiles> MakeNewFiles(std::shared_ptr<Server> server);

// A file of the catalogue, by its name as it is spelled. Error 3012 when there is one.
void AddFile(Link& link, const std::string& name, const std::vector<int>& tables);

}  // namespace zendara::postgres
