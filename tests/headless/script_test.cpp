// Scripts as text: what is refused before anything is played.
#include "adapters/script/script.hpp"

#include <gmock/gmock.h>

#include "adapters/script/script_keys.hpp"

namespace zendara {
namespace {

std::string Refused(const std::string& text) {
  try {
    ReadScript(text);
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.status(), 2);
    return error.what();
  }
  return "";
}

TEST(Script, FaultsNameTheirLine) {
  const struct {
    std::string line, reason;
  } cases[] = {
      {"jump", "unknown command \"jump\""},
      {"open", "wrong number of words, not open NAME"},
      {"type abc", "not type \"text\""},
      {"type \"abc", "a quote is not closed"},
      {"type \"a\\tb\"", "a backslash stands before none"},
      {"type \"a\"b", "text follows a closing quote"},
      {"type a\"b\"", "a quote stands inside a word"},
      {"key Enterr", "unknown key \"Enterr\""},
      {"check Check1 x", "not check CONTROL 0"},
      {"page Tab1 99999999999", "not page"},
      {"answer yes maybe", "unknown answer \"maybe\""},
      {"pick 0", "not pick"},
      {"session company=1 size=2", "unknown value of a session \"size\""},
      {"session =1", "\"=\" stands behind no name"},
      {"type \"Mu\xF1oz\"", "not UTF-8"},
      {std::string("o\0p\0", 4), "not UTF-8"},
  };
  for (const auto& c : cases) {
    EXPECT_THAT(Refused("# one\n\n" + c.line + "\nopen A"), testing::StartsWith("3: " + c.reason)) << c.line;
  }
}

TEST(Script, WordsTextsAndComments) {
  const Script script = ReadScript(
      "\xEF\xBB\xBFsession company=1 name=\"A \\\"b\\\"\" exchange=166,386 # all\r\n"
      "\ttype \"# \\\\ \\n ñ\"#end\n"
      "pick 2\npick \"2\"");
  ASSERT_EQ(script.size(), 4U);
  EXPECT_EQ(script[0].words[1].name, "name");
  EXPECT_EQ(script[0].words[1].text, "A \"b\"");
  EXPECT_EQ(script[0].words[2].text, "166,386");
  EXPECT_EQ(script[1].words[0].text, "# \\ \n ñ");
  EXPECT_EQ(script[1].line, 2);
  EXPECT_FALSE(script[2].words[0].quoted);
  EXPECT_TRUE(script[3].words[0].quoted);
  EXPECT_EQ(ReadScript("type " + Quoted("a\\n\"\n")).front().words[0].text, "a\\n\"\n");
  EXPECT_EQ(Refused("\xFF\xFEo"), "1: not UTF-8") << "the mark of another encoding";
}

TEST(Script, KeysByName) {
  const struct {
    std::string_view name;
    int code, shift;
    std::string text;
  } cases[] = {{"shift+tab", key::kTab, key::kShift, ""},
               {"Alt+N", 'N', key::kAlt, "N"},
               {"Alt+ñ", 0, key::kAlt, "ñ"},
               {"Ctrl+Shift+Left", key::kLeft, key::kShift | key::kControl, ""},
               {"Space", key::kSpace, 0, " "},
               {"+", 0, 0, "+"}};
  for (const auto& c : cases) {
    const auto key = KeyByName(c.name);
    ASSERT_TRUE(key) << c.name;
    EXPECT_EQ(std::tie(key->code, key->shift, key->text), std::tie(c.code, c.shift, c.text)) << c.name;
  }
}

}  // namespace
}  // namespace zendara
