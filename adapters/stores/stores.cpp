// Which engine a place has.
#include <string>

#include "adapters/postgres/beside_files.hpp"
#include "adapters/postgres/conninfo.hpp"
#include "adapters/sqlite/engine.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

bool IsServer(std::string_view place) { return place.starts_with("postgresql://") || place.starts_with("postgres://"); }

}  // namespace

std::unique_ptr<Engine> MakeEngine(std::string_view place, Access access) {
  if (IsServer(place)) return MakePostgresEngine(place, access);
  if (!place.empty() && place != "sqlite:") throw RuntimeError(kNoSuchEngine, {}, place);
  return sqlite::MakeFileEngine(access);
}

Store OpenStore(std::string_view place, Access access) {
  if (!IsServer(place)) return {sqlite::MakeFileEngine(access), MakeHostFiles(), std::string(place)};
  return {MakePostgresEngine(place, access), postgres::MakeFilesBeside(place),
          postgres::Conninfo(place, access).Name()};
}

}  // namespace zendara
