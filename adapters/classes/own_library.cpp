#include "adapters/classes/own_library.hpp"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>

#include "zendara/runtime_error.hpp"
#include "zendara/version.h"

namespace zendara {
namespace {

namespace fs = std::filesystem;

}  // namespace

std::string OwnLibrary() {
  Dl_info info{};
  link_map* library = nullptr;
  if (dladdr1(reinterpret_cast<void*>(&OwnLibrary), &info, reinterpret_cast<void**>(&library), RTLD_DL_LINKMAP) == 0 ||
      !library || library->l_name[0] == '\0') {
    throw RuntimeError(kInternalError, {}, "the classes are part of a program and of no library");
  }
  std::error_code error;
  fs::path path = library->l_name;
  if (!path.is_absolute()) path = fs::canonical(path, error);
  const fs::path link = path.parent_path() / ("libzendara.so." + std::to_string(ZENDARA_VERSION_MAJOR));
  if (!error && fs::equivalent(link, path, error)) return link.string();
  if (!fs::exists(path, error)) {
    throw RuntimeError(kInternalError, {}, std::string(library->l_name) + ": the library is not there any more");
  }
  return path.string();
}

}  // namespace zendara
