#include "adapters/postgres/beside_files.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

std::unique_ptr<Engine> MakePostgresEngine(std::string_view, Access) { throw RuntimeError(kNoSuchEngine); }

namespace postgres {

std::unique_ptr<Files> MakeFilesBeside(std::string_view) { throw RuntimeError(kNoSuchEngine); }

}  // namespace postgres
}  // namespace zendara
