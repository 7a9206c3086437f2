// The classes that the library gives out, by their names in class files.
#pragma once

#include <string_view>

#include "zendara/zendara.h"

namespace zendara {

struct OwnClass {
  std::string_view name;
  zendara_guid id;
};

static constexpr OwnClass kOwnClasses[] = {
    {"Zendara.ClsZendara", ZENDARA_CLSID_ZENDARA},
    {"Zendara.Engine", ZENDARA_CLSID_ENGINE},
    {"Zendara.Screens", ZENDARA_CLSID_SCREENS},
};

}  // namespace zendara
