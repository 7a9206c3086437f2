// An instance of ClsZendara, for hosts in C++, in C, and by name.
#pragma once

#include <memory>
#include <string>

#include "adapters/entry/members.hpp"
#include "zendara/zendara.hpp"

namespace zendara {

// Carga_Formulario with all that a host in C is told of it. Afterwards what the user of the installed screens has
// thrown is thrown here.
zendara_result ShowScreen(const std::string& screen, const std::shared_ptr<Database>& company,
                          const std::shared_ptr<Database>& second, const RecordsetArray& slots, Morlane& session);

// One of those above runs, or Carga_Formulario of an instance.
bool ScreenIsShown();

// The result that says how the last call of the component in this thread came out; kept as the last failure.
zendara_result LastCallResult();

Counted<Object> MakeClassObject();

}  // namespace zendara
