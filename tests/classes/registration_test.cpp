// The class files of the library itself.
#include <gmock/gmock.h>

#include "classes/class_folders_fixture.hpp"
#include "zendara/loader.h"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

class Registration : public ClassFolders {
 protected:
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename().string());
    return names;
  }
  static std::string Detail() {
    zendara_error error{};
    error.size = sizeof error;
    zendara_last_error(&error);
    return error.detail;
  }

  const std::string first_ = "zendara.clszendara.class";
  const std::string last_ = "zendara.screens.class";
};

TEST_F(Registration, ClassesAreFoundWhereTheyWereWritten) {
  // A folder that is not there yet.
  setenv("ZENDARA_CLASS_PATH", (path_ / "own/classes").c_str(), 1);
  ASSERT_EQ(DllRegisterServer(), ZENDARA_OK) << Detail();
  zendara_class_file file{};
  file.size = sizeof file;
  ASSERT_EQ(zendara_loader_find("zendara.ClsZendara", &file), ZENDARA_OK) << zendara_loader_error();
  EXPECT_STREQ(file.version, ZENDARA_VERSION);
  EXPECT_STREQ(fs::path(file.library).filename().c_str(), "libzendara.so.1");
  constexpr zendara_guid kDispatch = ZENDARA_IID_DISPATCH;
  for (const char* name : {"Zendara.ClsZendara", "Zendara.Engine", "Zendara.Screens"}) {
    void* object = nullptr;
    EXPECT_EQ(zendara_loader_create(name, ZENDARA_VERSION_MAJOR, &kDispatch, &object), ZENDARA_OK)
        << zendara_loader_error();
    zendara_release(object);
  }
  EXPECT_EQ(DllUnregisterServer(), ZENDARA_OK);
  EXPECT_EQ(zendara_loader_find("zendara.ClsZendara", &file), ZENDARA_NOT_REGISTERED);
  EXPECT_EQ(DllUnregisterServer(), ZENDARA_OK);
}

TEST_F(Registration, AllOrNone) {
  const std::string earlier = ClassText("Zendara.ClsZendara", "0.9", "/opt/lib.so");
  Write(path_ / first_, earlier);
  // The last file cannot get its name.
  fs::create_directory(path_ / last_);
  EXPECT_EQ(DllRegisterServer(), ZENDARA_NOT_WRITTEN);
  EXPECT_THAT(Detail(), testing::HasSubstr(last_));
  EXPECT_THAT(Files(), testing::UnorderedElementsAre(first_, last_));
  EXPECT_EQ(Read(path_ / first_), earlier);
  // A class folder that is none.
  for (const std::string& folder : {std::string("relative"), (path_ / first_).string(), std::string("/proc/none")}) {
    setenv("ZENDARA_CLASS_PATH", folder.c_str(), 1);
    EXPECT_EQ(DllRegisterServer(), ZENDARA_NOT_WRITTEN) << folder;
    EXPECT_NE(Detail(), "");
  }
}

TEST_F(Registration, WhatNamesAnotherLibraryStays) {
  ASSERT_EQ(DllRegisterServer(), ZENDARA_OK) << Detail();
  Write(path_ / first_, ClassText("Zendara.ClsZendara", "1.0.0", SAMPLE_LIBRARY));
  Write(path_ / last_, "damaged");
  Write(path_ / "other.class", "");
  EXPECT_EQ(DllUnregisterServer(), ZENDARA_OK) << Detail();
  EXPECT_THAT(Files(), testing::UnorderedElementsAre(first_, last_, "other.class"));
}

}  // namespace
}  // namespace zendara
