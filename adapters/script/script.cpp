#include "adapters/script/script.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "adapters/script/script_keys.hpp"
#include "adapters/script/script_listing.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// What stands behind each command, a letter a word: w a plain word, t a text in quotes, a either, n a whole number,
// k a key, p a choice from a list, b an answer to a box, s a value of the session, d what is done about drafts, l about
// a listing. "+": the last one any number of times.
struct CommandForm {
  std::string_view name;
  std::string_view words;
  std::string_view usage;
};
constexpr CommandForm kCommands[] = {
    {"session", "s+", "session company=00001 year=01 ..."},
    {"open", "w", "open NAME"},
    {"focus", "w", "focus CONTROL"},
    {"type", "t", "type \"text\""},
    {"key", "k", "key NAME"},
    {"click", "w", "click CONTROL"},
    {"choose", "wt", "choose CONTROL \"item\""},
    {"check", "wn", "check CONTROL 0"},
    {"cell", "wnn", "cell GRID row column"},
    {"page", "wn", "page TABS number"},
    {"answer", "b+", "answer yes no ok"},
    {"pick", "p", "pick 2, pick \"text\" or pick none"},
    {"show", "w+", "show CONTROL... or show all"},
    {"expect", "wt", "expect CONTROL \"text\""},
    {"drafts", "d+", "drafts keep, drafts keep \"folder\", drafts list or drafts restore 1"},
    {"print", "a", "print FILE"},
    {"listing", "l+", "listing pages or listing save FILE, which ends in .pdf, .xlsx or .csv"},
    {"sql", "at", "sql FILE \"SELECT ...\""},
};

constexpr std::string_view kSessionNames[] = {"company", "year", "name", "currency", "exchange", "program", "date"};
constexpr std::string_view kAnswers[] = {"yes", "no", "ok"};
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

class LineReader {
 public:
  explicit LineReader(std::string_view line) : line_(line) {}

  // False at the end of the line or at a comment.
  bool Next(ScriptWord& word) {
    while (!AtEnd() && IsBlank(line_[at_])) ++at_;
    if (AtEnd() || line_[at_] == '#') return false;
    word = {};
    if (line_[at_] != '"') ReadPlain(word);
    if (!AtEnd() && line_[at_] == '"') ReadQuoted(word);
    return true;
  }

 private:
  bool AtEnd() const { return at_ == line_.size(); }

  // Stops at a blank, at a comment, or at the quotes of name="text".
  void ReadPlain(ScriptWord& word) {
    for (; !AtEnd() && !IsBlank(line_[at_]) && line_[at_] != '#'; ++at_) {
      if (line_[at_] == '"') {
        if (word.name.empty() || !word.text.empty()) throw ScriptError("a quote stands inside a word");
        return;
      }
      if (line_[at_] == '=' && word.name.empty()) {
        word.name = std::move(word.text);
        word.text.clear();
        if (word.name.empty()) throw ScriptError("\"=\" stands behind no name");
      } else {
        word.text += line_[at_];
      }
    }
  }

  void ReadQuoted(ScriptWord& word) {
    word.quoted = true;
    for (++at_; !AtEnd() && line_[at_] != '"'; ++at_) {
      if (line_[at_] != '\\') {
        word.text += line_[at_];
        continue;
      }
      ++at_;
      const char escaped = AtEnd() ? '\0' : line_[at_];
      if (escaped != '"' && escaped != '\\' && escaped != 'n') {
        throw ScriptError("a backslash stands before none of \" \\ n");
      }
      word.text += escaped == 'n' ? '\n' : escaped;
    }
    if (AtEnd()) throw ScriptError("a quote is not closed");
    ++at_;
    if (!AtEnd() && !IsBlank(line_[at_]) && line_[at_] != '#') throw ScriptError("text follows a closing quote");
  }

  std::string_view line_;
  std::size_t at_ = 0;
};

bool IsNumber(const std::string& text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end && number >= 0;
}

bool Fits(const ScriptWord& word, char kind) {
  const bool plain = !word.quoted && word.name.empty();
  switch (kind) {
    case 't':
      return word.quoted && word.name.empty();
    case 'a':
      return word.name.empty();
    case 'n':
      return plain && IsNumber(word.text);
    case 'p':
      return word.name.empty() && (word.quoted || word.text == "none" || (IsNumber(word.text) && word.text != "0"));
    case 's':
      return !word.name.empty();
    case 'd':
    case 'l':
      return word.name.empty();
    default:
      return plain;
  }
}

template <typename Names>
void CheckName(const Names& names, const std::string& name, std::string_view what) {
  if (std::ranges::find(names, name) == std::end(names)) {
    throw ScriptError("unknown " + std::string(what) + " " + Quoted(name));
  }
}

bool IsAboutDrafts(const std::vector<ScriptWord>& words) {
  const ScriptWord& deed = words.front();
  if (deed.quoted || words.size() > 2) return false;
  const ScriptWord* what = words.size() == 2 ? &words.back() : nullptr;
  if (deed.text == "keep") return !what || what->quoted;
  if (deed.text == "restore") return what && !what->quoted && IsNumber(what->text) && what->text != "0";
  return deed.text == "list" && !what;
}

bool IsAboutListing(const std::vector<ScriptWord>& words) {
  const ScriptWord& deed = words.front();
  if (deed.quoted) return false;
  if (deed.text == "pages") return words.size() == 1;
  return deed.text == "save" && words.size() == 2 && ScriptListing::IsKnown(words.back().text);
}

void CheckCommand(const ScriptCommand& command) {
  const auto* form = std::ranges::find(kCommands, command.name, &CommandForm::name);
  if (form == std::end(kCommands)) throw ScriptError("unknown command " + Quoted(command.name));
  const bool repeats = form->words.back() == '+';
  const std::string_view kinds = repeats ? form->words.substr(0, form->words.size() - 1) : form->words;
  const bool count = repeats ? command.words.size() >= kinds.size() : command.words.size() == kinds.size();
  if (!count) throw ScriptError("wrong number of words, not " + std::string(form->usage));
  for (std::size_t i = 0; i < command.words.size(); ++i) {
    const ScriptWord& word = command.words[i];
    const char kind = kinds[std::min(i, kinds.size() - 1)];
    if (!Fits(word, kind)) throw ScriptError("not " + std::string(form->usage));
    if (kind == 's') CheckName(kSessionNames, word.name, "value of a session");
    if (kind == 'b') CheckName(kAnswers, word.text, "answer");
    if (kind == 'd' && !IsAboutDrafts(command.words)) throw ScriptError("not " + std::string(form->usage));
    if (kind == 'l' && !IsAboutListing(command.words)) throw ScriptError("not " + std::string(form->usage));
    if (kind == 'k' && !KeyByName(word.text)) throw ScriptError("unknown key " + Quoted(word.text));
  }
}

// Nothing in a blank line.
std::optional<ScriptCommand> ReadCommand(std::string_view text, int line) {
  if (line == 1 && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  try {
    // Zeros are what texts of two bytes a character are full of.
    if (!IsUtf8(text) || text.find('\0') != std::string_view::npos) throw ScriptError("not UTF-8");
    LineReader reader(text);
    ScriptCommand command{.line = line, .name = {}, .words = {}};
    ScriptWord word;
    if (!reader.Next(word)) return std::nullopt;
    command.name = word.name.empty() ? word.text : word.name;
    while (reader.Next(word)) command.words.push_back(word);
    CheckCommand(command);
    return command;
  } catch (const ScriptError& error) {
    throw ScriptError(std::to_string(line) + ": " + error.what());
  }
}

}  // namespace

Script ReadScript(std::string_view text) {
  Script script;
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (auto command = ReadCommand(text.substr(0, end), line)) script.push_back(std::move(*command));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return script;
}

Commands CommandsOf(Script script) {
  return [script = std::move(script), next = std::size_t{0}]() mutable -> std::optional<ScriptCommand> {
    if (next == script.size()) return std::nullopt;
    return script[next++];
  };
}

Commands CommandsOf(std::function<std::optional<std::string>()> lines) {
  return [lines = std::move(lines), line = 0]() mutable -> std::optional<ScriptCommand> {
    while (const auto text = lines()) {
      if (auto command = ReadCommand(*text, ++line)) return command;
    }
    return std::nullopt;
  };
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    if (c == '\n') {
      quoted += "\\n";
    } else {
      quoted += c;
    }
  }
  return quoted += '"';
}

}  // namespace zendara
