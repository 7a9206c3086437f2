#include "adapters/hosting/current_session.hpp"

#include "runtime/format.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

YearWindow YearsOfComponent() { return CurrentSession().years; }

print::ListingHead HeadOfComponent() {
  const SessionFacts session = CurrentSession();
  return {.company = session.company, .name = session.name, .date = FormatDate(session.date, "dd/mm/yyyy")};
}

Engine& EngineOfComponent() {
  Engine* engine = CurrentSession().engine;
  if (!engine) throw RuntimeError(kObjectNotSet);
  return *engine;
}

}  // namespace zendara
