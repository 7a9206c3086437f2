// Which engine a place has.
#include <string>

#include "adapters/postgres/beside_files.hpp"
#include "adapters/postgres/conninfo.hpp"
#include "adapters/sqlite/engine.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr std::string_view kFiles = "sqlite:";

bool IsServer(std::string_view place) { return place.starts_with("postgresql://") || place.starts_with("postgres://"); }

// What stands before the rest of the place says.
[[noreturn]] void RefuseScheme(std::string_view place) {
  throw RuntimeError(kNoSuchEngine, {}, "no engine for " + std::string(place.substr(0, place.find(':') + 1)));
}

}  // namespace

std::unique_ptr<Engine> MakeEngine(std::string_view place, Access access) {
  if (IsServer(place)) return MakePostgresEngine(place, access);
  if (!place.empty() && place != kFiles) RefuseScheme(place);
  return sqlite::MakeFileEngine(access);
}

Store OpenStore(std::string_view place, Access access) {
  if (!IsServer(place) && place.find("://") != std::string_view::npos) RefuseScheme(place);
  if (!IsServer(place)) return {sqlite::MakeFileEngine(access), MakeHostFiles(), std::string(place)};
  return {MakePostgresEngine(place, access), postgres::MakeFilesBeside(place),
          postgres::Conninfo(place, access).Name()};
}

}  // namespace zendara
