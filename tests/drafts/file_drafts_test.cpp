// The files of drafts: what is read back after a stop at any byte, who may read them, full disks, other programs.
#include "adapters/drafts/file_drafts.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>
#include <optional>

#include "support/temp_folder.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kScope = "00001 01";
constexpr const char* kScreen = "Trabajadores";

Draft Typed(const std::string& text, const std::string& number = "00013") {
  return {.scope = kScope,
          .place = "00001 Talleres Sur",
          .screen = kScreen,
          .screen_title = "Fichas",
          .key = {{"Text1(1)", number}},
          .title = number + " \"Güell\"\n",
          .focus = "Text1(2)",
          .values = {{"Text1(2)", text}, {"Grid1(0)[1,2]", "ñ"}},
          .note = {}};
}

std::vector<Draft> LeftIn(FileDrafts& drafts) {
  std::vector<Draft> left;
  for (const KeptDraft& kept : drafts.Left([](const KeptDraft&) { return true; })) left.push_back(kept.draft);
  return left;
}

unsigned Mode(const fs::path& path) { return static_cast<unsigned>(fs::status(path).permissions()); }

class FileDraftsTest : public testing::Test {
 protected:
  // The only file there.
  fs::path File() const { return fs::directory_iterator(folder)->path(); }

  TempFolder home;
  fs::path folder = home.path() / "state" / "drafts";
};

TEST_F(FileDraftsTest, AnEndAtAnyByteLeavesTheLinesBeforeItAndTheNextOnesFollow) {
  std::vector<Draft> states = {Typed("P"), Typed("Pe"), Typed("Peñ"), Typed("Peñ", "00014"), Typed("")};
  states[2].values.push_back({"Check1", "1"});
  states[3].note = "copia";
  states[4].values.clear();
  states[4].values.push_back({"Text1(2)", "\xff"});  // no UTF-8
  std::vector<std::uintmax_t> ends;
  {
    FileDrafts drafts(folder);
    std::string id;
    for (const Draft& state : states) {
      id = drafts.Keep(id, state);
      EXPECT_THAT(LeftIn(drafts), IsEmpty()) << "it is worked on; all is written once this was asked";
      ends.push_back(fs::file_size(File()));
    }
  }
  states[4].values.back().text = "\xef\xbf\xbd";
  const fs::path whole = home.path() / "whole";
  fs::copy_file(File(), whole);
  for (std::uintmax_t size = 0; size <= ends.back(); ++size) {
    SCOPED_TRACE(size);
    fs::copy_file(whole, File(), fs::copy_options::overwrite_existing);
    fs::resize_file(File(), size);
    const auto stands = std::ranges::upper_bound(ends, size) - ends.begin();
    FileDrafts drafts(folder);
    const auto left = drafts.Left([](const KeptDraft&) { return true; });
    ASSERT_EQ(left.size(), stands == 0 ? 0U : 1U);
    if (left.empty()) continue;
    EXPECT_EQ(left.front().draft, states[static_cast<std::size_t>(stands - 1)]);
    EXPECT_THAT(left.front().when, testing::MatchesRegex("../../.. a las ..:.."));
    EXPECT_EQ(drafts.Keep(left.front().id, Typed("más")), left.front().id);
    drafts.Leave(left.front().id);
    EXPECT_THAT(LeftIn(drafts), ElementsAre(Typed("más")));
  }
}

TEST_F(FileDraftsTest, WhatSomebodyWorksOnIsNotOfferedTakenOrRemoved) {
  FileDrafts other(folder);
  std::optional<FileDrafts> owner(folder);
  const std::string id = owner->Keep({}, Typed("uno"));
  const std::string second = owner->Keep({}, Typed("dos"));
  owner->Leave(second);
  EXPECT_THAT(LeftIn(*owner), ElementsAre(Typed("dos")));
  EXPECT_THAT(LeftIn(other), ElementsAre(Typed("dos")));
  EXPECT_THAT(other.Left([](const KeptDraft& kept) { return kept.draft.scope != kScope; }), IsEmpty());
  other.Drop(id);
  const std::string copy = other.Keep(id, Typed("tres"));
  EXPECT_NE(copy, id);
  other.Leave(copy);
  EXPECT_THAT(LeftIn(other), ElementsAre(Typed("tres"), Typed("dos")));
  EXPECT_EQ(owner->Keep(id, Typed("cuatro")), id);
  { const FileDrafts tidy(folder, 0); }  // removes what is older than no time at all, but not what is worked on
  owner.reset();
  EXPECT_THAT(LeftIn(other), ElementsAre(Typed("cuatro")));
  other.Drop(id);
  EXPECT_THAT(LeftIn(other), IsEmpty());
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(FileDraftsTest, WhatALineNeedNotHaveMayBeMissingOrAnything) {
  fs::create_directories(folder);
  for (const char* also : {"", R"("note":7,"place":[],"screen_title":null,)", R"("other":{},)"}) {
    std::ofstream(folder / "old.draft") << R"({"draft":1,"scope":"00001 01","screen":"Trabajadores",)" << also
                                        << R"x("key":[],"title":"t","focus":"","set":[["Text1(2)","x"]]})x" << '\n';
    FileDrafts drafts(folder);
    const std::vector<Draft> left = LeftIn(drafts);
    ASSERT_EQ(left.size(), 1U) << also;
    EXPECT_EQ(left[0].note + left[0].place + left[0].screen_title + left[0].values[0].text, "x") << also;
  }
}

TEST_F(FileDraftsTest, TheUserAloneReadsThem) {
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::all);
  const mode_t mask = umask(0);
  {
    FileDrafts drafts(folder);
    drafts.Keep({}, Typed("uno"));
    EXPECT_EQ(drafts.TakeTrouble(), "");
  }
  umask(mask);
  EXPECT_EQ(Mode(folder), 0700U);
  EXPECT_EQ(Mode(File()), 0600U);
  // A link would lead elsewhere.
  const fs::path away = home.path() / "away.draft";
  fs::rename(File(), away);
  fs::create_symlink(away, folder / "link.draft");
  FileDrafts drafts(folder);
  EXPECT_THAT(LeftIn(drafts), IsEmpty());
}

TEST_F(FileDraftsTest, OldOnesGoWhenTheProgramStarts) {
  for (const int days : {29, 31}) {
    {
      FileDrafts drafts(folder);
      drafts.Leave(drafts.Keep({}, Typed(std::to_string(days))));
    }
    for (const auto& file : fs::directory_iterator(folder)) {
      fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(24 * days));
    }
    FileDrafts drafts(folder);
    EXPECT_EQ(LeftIn(drafts).size(), days == 29 ? 1U : 0U);
    fs::remove_all(folder);
  }
}

TEST_F(FileDraftsTest, ADiskThatTakesNothingIsToldOnceAndTheNextKeyThatIsTakenHasAll) {
  struct NoRoom {
    explicit NoRoom(rlim_t bytes) {
      std::signal(SIGXFSZ, SIG_IGN);
      getrlimit(RLIMIT_FSIZE, &before);
      const rlimit now{bytes, before.rlim_max};
      setrlimit(RLIMIT_FSIZE, &now);
    }
    ~NoRoom() { setrlimit(RLIMIT_FSIZE, &before); }
    rlimit before{};
  };
  FileDrafts drafts(folder);
  std::string id = drafts.Keep({}, Typed("uno"));
  EXPECT_THAT(LeftIn(drafts), IsEmpty());
  {
    const NoRoom no_room(fs::file_size(File()) + 5);  // for a part of a line
    for (const char* text : {"dos", "tres"}) {
      EXPECT_EQ(drafts.Keep(id, Typed(text)), id);
      EXPECT_THAT(LeftIn(drafts), IsEmpty());
      const std::string trouble = drafts.TakeTrouble();
      EXPECT_THAT(trouble, std::string(text) == "dos" ? HasSubstr("el disco está lleno") : HasSubstr(""));
      EXPECT_EQ(trouble.empty(), std::string(text) == "tres");
    }
  }
  drafts.Keep(id, Typed("cuatro"));
  drafts.Leave(id);
  EXPECT_THAT(LeftIn(drafts), ElementsAre(Typed("cuatro")));
  // Somebody clears the folder while he types.
  id = drafts.Keep({}, Typed("cinco"));
  EXPECT_EQ(LeftIn(drafts).size(), 1U);
  fs::remove_all(folder);
  drafts.Keep(id, Typed("seis"));
  drafts.Leave(id);
  EXPECT_THAT(LeftIn(drafts), ElementsAre(Typed("seis")));
  EXPECT_EQ(drafts.TakeTrouble(), "");
  // And puts something else in its place.
  fs::remove_all(folder);
  std::ofstream(folder) << "x";
  drafts.Keep({}, Typed("siete"));
  EXPECT_THAT(LeftIn(drafts), IsEmpty());
  EXPECT_THAT(drafts.TakeTrouble(), HasSubstr("no admite escritura"));
}

}  // namespace
}  // namespace zendara
