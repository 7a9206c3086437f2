// The screens without windows: the commands of a script take the user's place, and every event is a line of text. Both
// are the language that docs/scripts.md describes and that `zendara run` plays. For a host without a desktop, and for a
// host's own tests.
//
// This and zendara/windows.hpp are the places that show screens. A host adds to either what is its own: boxes, programs
// and the closed neighbours are ports of the platform.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zendara/platform.hpp"

namespace zendara {

// How far a script came: 0 played to its end or still going on, 1 an `expect` that differs or something that could not
// be opened, 2 a fault of the script. `message` is one line that begins with the number of the script's line; empty for
// 0.
struct ScriptResult {
  int status = 0;
  std::string message;
};

// The next line of the script, without its line feed; nothing at the end. It is asked while a screen waits for its
// user, so whoever gives it has seen what all lines before it did.
using CommandLines = std::function<std::optional<std::string>()>;
// Takes one line with its line feed.
using EventLines = std::function<void(std::string_view line)>;

class Automation {
 public:
  virtual ~Automation() = default;

  // Fills in forms, dialogs, shell and components, which live as long as this object. A host that answers boxes, lists
  // or listings itself puts its own in their place afterwards, and the script sees nothing of those.
  // REQUIRES: engine and application_folder are set; the command `sql` and listings read there.
  virtual void Install(Platform& platform) = 0;

  // How the script stands. Each screen that Carga_Formulario shows plays it on from where the last one closed; once it
  // has ended, by its last line or a fault, screens close at once and nothing is printed. An exception of the host's
  // two functions ends it too, and is thrown again here.
  virtual ScriptResult Result() const = 0;
};

// Plays the lines as they come. The commands `session` and `open` are the host's part here: they are faults.
std::unique_ptr<Automation> MakeAutomation(CommandLines next, EventLines out);
// Plays a text of many lines, read and checked before it begins: a fault in it is the result at once.
std::unique_ptr<Automation> MakeAutomation(std::string_view script, EventLines out);

}  // namespace zendara
