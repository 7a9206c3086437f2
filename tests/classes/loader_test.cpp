// Class files and libraries as the loader finds them, the damaged ones too.
#include "zendara/loader.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <functional>
#include <thread>
#include <vector>

#include "classes/class_folders_fixture.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

constexpr zendara_guid kUnknownObject = ZENDARA_IID_UNKNOWN;

class Loader : public ClassFolders {
 protected:
  ~Loader() override { zendara_loader_unload(); }

  // The result for a class name; an object that is made goes again.
  static zendara_result Create(const std::string& name, std::uint32_t version = 1) {
    void* object = nullptr;
    const zendara_result result = zendara_loader_create(name.c_str(), version, &kUnknownObject, &object);
    EXPECT_EQ(result >= 0, object != nullptr) << name;
    if (object) zendara_release(object);
    return result;
  }
  static std::string VersionOf(const char* name) {
    zendara_class_file file{};
    file.size = sizeof file;
    return zendara_loader_find(name, &file) == ZENDARA_OK ? file.version : "none";
  }

  const std::string library_ = SAMPLE_LIBRARY;
  const fs::path file_ = path_ / "sample.cls.class";
};

TEST_F(Loader, AFaultIsAResultAndOneLine) {
  const std::string good = ClassText("Sample.Cls", "1.0.0", library_);
  const auto with = [&](const std::string& from, const std::string& to) {
    std::string text = good;
    return text.replace(text.find(from), from.size(), to);
  };
  Write(folder_ / "text.so", "no library");
  const struct {
    std::string text;
    zendara_result result;
    const char* words;
  } cases[] = {
      {good, ZENDARA_OK, ""},
      {good.substr(0, good.size() - 1), ZENDARA_OK, ""},
      {"# x\n[Other]\nName=x\n" + with("Name=", "\r\n Name = ") + "[More]\nId=x\nfree text", ZENDARA_OK, ""},
      {"", ZENDARA_BAD_CLASS_FILE, "it has no line [Class]"},
      {"[Class]\n", ZENDARA_BAD_CLASS_FILE, "it has no Name"},
      {with("Id=", "No="), ZENDARA_BAD_CLASS_FILE, "it has no Id"},
      {with("Library=", "#"), ZENDARA_BAD_CLASS_FILE, "it has no Library"},
      {with("5566", "556G"), ZENDARA_BAD_CLASS_FILE, "its Id"},
      {with("}", "}0"), ZENDARA_BAD_CLASS_FILE, "its Id"},
      {with("Library=/", "Library="), ZENDARA_BAD_CLASS_FILE, "no whole path"},
      {with("Library=/", "Library=/" + std::string(5000, 'x')), ZENDARA_BAD_CLASS_FILE, "its Library is too long"},
      {with("1.0.0", "one"), ZENDARA_BAD_CLASS_FILE, "its Version"},
      {good + good, ZENDARA_BAD_CLASS_FILE, "two lines Name"},
      {with("Sample.Cls", "Other.Cls"), ZENDARA_BAD_CLASS_FILE, "not called as its Name"},
      {with("Sample.Cls", "../x"), ZENDARA_BAD_CLASS_FILE, "no name of a class"},
      {with("Sample", std::string("S\0mple", 6)), ZENDARA_BAD_CLASS_FILE, "zero bytes"},
      {with("Sample", "Peña \xF1"), ZENDARA_BAD_CLASS_FILE, "UTF-8"},
      {with("1.0.0", "2.0.0"), ZENDARA_WRONG_VERSION, "its version is 2.0.0, not 1"},
      {with(library_, SAMPLE_OF_VERSION_2), ZENDARA_WRONG_VERSION, "is 2.1.0, not 1"},
      {with(library_, folder_ / "gone.so"), ZENDARA_NOT_LOADED, "No such file or directory"},
      {with(library_, folder_.path().string()), ZENDARA_NOT_LOADED, "it is no file"},
      {with(library_, folder_ / "text.so"), ZENDARA_NOT_LOADED, "file too short"},
      {with(library_, SAMPLE_WITHOUT_CLASSES), ZENDARA_NOT_LOADED, "it has no DllGetClassObject"},
      {with("1122", "2222"), ZENDARA_NO_CLASS, "DllGetClassObject"},
  };
  for (const auto& c : cases) {
    Write(file_, c.text);
    EXPECT_EQ(Create("SAMPLE.cls"), c.result) << c.text;
    if (c.result == ZENDARA_OK) continue;
    EXPECT_THAT(zendara_loader_error(),
                testing::AllOf(testing::StartsWith(file_.string() + ": "), testing::HasSubstr(c.words),
                               testing::Not(testing::HasSubstr("\n"))));
  }
}

TEST_F(Loader, WhatIsNoClassFileKeepsNobodyWaiting) {
  const std::function<void()> makes[] = {
      [&] { fs::create_directory(file_); },
      [&] { mkfifo(file_.c_str(), 0600); },
      [&] { fs::create_symlink(folder_ / "none", file_); },
      [&] {
        Write(file_, ClassText("Sample.Cls", "1", library_));
        fs::resize_file(file_, std::uintmax_t{1} << 30);
      },
  };
  Write(user_ / "sample.cls.class", ClassText("Sample.Cls", "1", library_));
  for (const auto& make : makes) {
    fs::remove(file_);
    make();
    EXPECT_EQ(Create("Sample.Cls"), ZENDARA_BAD_CLASS_FILE);
    EXPECT_NE(*zendara_loader_error(), '\0');
  }
}

TEST_F(Loader, NamesLeadToNoOtherFolder) {
  Write(folder_ / "x.class", ClassText("x", "1", library_));
  const std::string sample = "Sample.Cls";
  for (const std::string& name :
       {std::string("../x"), folder_ / "x", std::string(), std::string("."), std::string(".."), std::string("x..x"),
        std::string("a b"), std::string("x\n"), std::string(10000, 'x')}) {
    EXPECT_EQ(Create(name), ZENDARA_NOT_REGISTERED) << name;
    EXPECT_NE(*zendara_loader_error(), '\0');
  }
  EXPECT_EQ(Create("\xFF"), ZENDARA_INVALID);
  zendara_class_file unset{};
  EXPECT_EQ(zendara_loader_find("x", &unset), ZENDARA_INVALID);
  EXPECT_EQ(zendara_loader_find(nullptr, &unset), ZENDARA_NULL_POINTER);
}

TEST_F(Loader, TheFirstFolderWins) {
  const std::string path = ":relative:" + (folder_ / "none") + ":" + path_.string();
  setenv("ZENDARA_CLASS_PATH", path.c_str(), 1);
  const struct {
    fs::path folder;
    std::string version;
  } places[] = {{path_, "1"}, {user_, "2"}, {system_, "3"}};
  for (const auto& [folder, version] : places) {
    Write(folder / "sample.cls.class", ClassText("Sample.Cls", version, library_));
    Write(folder / ("own" + version + ".class"), "");
  }
  Write(system_ / "Capital.class", ClassText("Capital", "1", library_));
  std::vector<std::string> seen;
  const auto note = [](void* context, const zendara_class_file* file, zendara_result result) {
    const std::string what = result == ZENDARA_OK ? std::string(file->name) + " " + file->version : "bad";
    static_cast<std::vector<std::string>*>(context)->push_back(fs::path(file->file).filename().string() + " " + what);
    return ZENDARA_OK;
  };
  EXPECT_EQ(zendara_loader_each(note, &seen), ZENDARA_OK);
  EXPECT_THAT(seen, testing::ElementsAre("own1.class bad", "sample.cls.class Sample.Cls 1", "own2.class bad",
                                         "Capital.class bad", "own3.class bad"));
  for (const auto& [folder, version] : places) {
    EXPECT_EQ(VersionOf("sample.CLS"), version);
    fs::remove(folder / "sample.cls.class");
  }
  EXPECT_EQ(VersionOf("sample.CLS"), "none");
  // Without the variables: his own folder as the system knows it, and the system's.
  for (const char* variable : {"ZENDARA_CLASS_PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS", "HOME"}) unsetenv(variable);
  EXPECT_EQ(VersionOf("sample.CLS"), "none");
}

TEST_F(Loader, ALibraryStaysForAsLongAsItSays) {
  const fs::path copy = folder_.path() / "copy.so";
  fs::copy_file(library_, copy);
  Write(file_, ClassText("Sample.Cls", "1", copy.string()));
  void* object = nullptr;
  ASSERT_EQ(zendara_loader_create("Sample.Cls", 0, &kUnknownObject, &object), ZENDARA_OK) << zendara_loader_error();
  EXPECT_EQ(zendara_loader_unload(), ZENDARA_FALSE);
  fs::rename(copy, folder_ / "moved.so");
  EXPECT_EQ(Create("Sample.Cls"), ZENDARA_OK);
  zendara_release(object);
  EXPECT_EQ(zendara_loader_unload(), ZENDARA_OK);
  EXPECT_EQ(Create("Sample.Cls"), ZENDARA_NOT_LOADED);
}

TEST_F(Loader, ThreadsCreateWhileOthersUnload) {
  Write(file_, ClassText("Sample.Cls", "1", library_));
  // It stays in memory: nobody may unload what another thread is just leaving.
  void* const kept = dlopen(library_.c_str(), RTLD_NOW);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int times = 0; times < 200; ++times) {
        EXPECT_EQ(Create("Sample.Cls"), ZENDARA_OK) << zendara_loader_error();
        EXPECT_GE(zendara_loader_unload(), 0);
      }
    });
  }
  for (auto& thread : threads) thread.join();
  dlclose(kept);
  EXPECT_EQ(zendara_loader_unload(), ZENDARA_OK);
}

}  // namespace
}  // namespace zendara
