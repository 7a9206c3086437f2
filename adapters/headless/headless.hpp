// The front end without windows: a script in place of the user.
#pragma once

#include <string>

#include "adapters/script/script.hpp"
#include "adapters/script/script_player.hpp"
#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Plays the script on the component's screens. `folder` is the application's. It installs a platform of its own and
// takes it away at the end.
ScriptResult PlayHeadless(Script script, Engine& engine, Files& files, const std::string& folder,
                          ScriptPlayer::Sink out);

}  // namespace zendara
