#include "adapters/drafts/draft_lines.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace zendara {
namespace {

using Json = nlohmann::json;

constexpr int kVersion = 1;

Json Pairs(const std::vector<DraftValue>& values) {
  Json pairs = Json::array();
  for (const auto& [id, text] : values) pairs.push_back({id, text});
  return pairs;
}

std::vector<DraftValue> ReadPairs(const Json& pairs) {
  std::vector<DraftValue> values;
  for (const Json& pair : pairs) values.push_back({pair.at(0).get<std::string>(), pair.at(1).get<std::string>()});
  return values;
}

std::string Line(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n"; }

auto FindIn(const std::vector<DraftValue>& values, const std::string& id) {
  return std::ranges::find(values, id, &DraftValue::id);
}

// Of what a file need not have: anything but a text is as nothing.
void TakeText(const Json& line, const char* name, std::string& text) {
  const auto found = line.find(name);
  if (found != line.end() && found->is_string()) text = found->get<std::string>();
}

void Apply(const Json& line, Draft& draft) {
  if (line.contains("key")) draft.key = ReadPairs(line["key"]);
  if (line.contains("title")) draft.title = line["title"].get<std::string>();
  if (line.contains("focus")) draft.focus = line["focus"].get<std::string>();
  TakeText(line, "note", draft.note);
  if (line.contains("unset")) {
    for (const Json& id : line["unset"]) {
      std::erase_if(draft.values, [&](const DraftValue& value) { return value.id == id.get<std::string>(); });
    }
  }
  if (!line.contains("set")) return;
  for (DraftValue& value : ReadPairs(line["set"])) {
    const auto stands = std::ranges::find(draft.values, value.id, &DraftValue::id);
    if (stands == draft.values.end()) {
      draft.values.push_back(std::move(value));
    } else {
      stands->text = std::move(value.text);
    }
  }
}

}  // namespace

std::string FirstLine(const Draft& draft) {
  return Line({{"draft", kVersion},
               {"scope", draft.scope},
               {"place", draft.place},
               {"screen", draft.screen},
               {"screen_title", draft.screen_title},
               {"key", Pairs(draft.key)},
               {"title", draft.title},
               {"focus", draft.focus},
               {"note", draft.note},
               {"set", Pairs(draft.values)}});
}

std::string ChangeLine(const Draft& before, const Draft& now) {
  Json line = Json::object();
  if (before.key != now.key) line["key"] = Pairs(now.key);
  if (before.title != now.title) line["title"] = now.title;
  if (before.focus != now.focus) line["focus"] = now.focus;
  if (before.note != now.note) line["note"] = now.note;
  std::vector<DraftValue> set;
  for (const DraftValue& value : now.values) {
    const auto stood = FindIn(before.values, value.id);
    if (stood == before.values.end() || stood->text != value.text) set.push_back(value);
  }
  if (!set.empty()) line["set"] = Pairs(set);
  for (const DraftValue& value : before.values) {
    if (FindIn(now.values, value.id) == now.values.end()) line["unset"].push_back(value.id);
  }
  return Line(line);
}

std::size_t ReadLines(std::string_view lines, Draft& draft) {
  std::size_t whole = 0;
  try {
    for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n', whole)) {
      const Json line = Json::parse(lines.substr(whole, end - whole));
      Draft next = draft;
      if (whole == 0) {
        if (line.at("draft").get<int>() != kVersion) return 0;
        next.scope = line.at("scope").get<std::string>();
        next.screen = line.at("screen").get<std::string>();
        TakeText(line, "place", next.place);
        TakeText(line, "screen_title", next.screen_title);
      }
      Apply(line, next);
      draft = std::move(next);
      whole = end + 1;
    }
  } catch (const Json::exception&) {
    // The lines before it stand.
  }
  return whole;
}

}  // namespace zendara
