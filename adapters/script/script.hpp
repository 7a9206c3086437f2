// A script as text: one command a line, words and texts in double quotes, "#" starts a comment.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zendara {

// A fault of the script, or a command that cannot be done. `status` is that of the run.
class ScriptError : public std::runtime_error {
 public:
  explicit ScriptError(const std::string& reason, int status = 2) : std::runtime_error(reason), status_(status) {}
  int status() const { return status_; }

 private:
  int status_;
};

struct ScriptWord {
  std::string name;  // before the "=" of name=value, otherwise empty
  std::string text;  // without quotes, \" \\ and \n resolved
  bool quoted = false;
};

struct ScriptCommand {
  int line = 0;  // from 1
  std::string name;
  std::vector<ScriptWord> words;
};

using Script = std::vector<ScriptCommand>;

// Blank lines and comments are left out. ScriptError, with the number of the line before its reason, for an unknown
// command or key, a wrong number or kind of words, quotes that are not closed and a line that is no UTF-8: such a
// script never begins.
Script ReadScript(std::string_view text);

// What a player plays: the next command, nothing at the end.
using Commands = std::function<std::optional<ScriptCommand>()>;

Commands CommandsOf(Script script);
// Reads each line when it is asked for; ScriptError as ReadScript.
Commands CommandsOf(std::function<std::optional<std::string>()> lines);

// A text as event lines and scripts spell it, in quotes.
std::string Quoted(std::string_view text);

}  // namespace zendara
