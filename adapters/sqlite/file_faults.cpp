#include "adapters/sqlite/file_faults.hpp"

#include <cerrno>
#include <string>

#include "adapters/host/network.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {

void Fail(const std::error_code& error, std::string_view path) {
  const auto number = [&]() -> int {
    switch (error.value()) {
      case EEXIST:
      case ENOTEMPTY:
        return kObjectExists;
      case ENOENT:
      case ENOTDIR:
        return kFolderNotFound;
      case ENOSPC:
      case EDQUOT:
      case EFBIG:
        return kNoDiskSpace;
      case EROFS:
        return kReadOnly;
      case ENAMETOOLONG:
        return kBadFileName;
      default:
        return kCannotOpenFile;
    }
  };
  throw RuntimeError(number(), {std::string(path)}, std::string(path) + ": " + error.message(), error.value());
}

void RefuseNetwork(const std::filesystem::path& place, std::string_view path) {
  if (!IsOnNetwork(place)) return;
  throw RuntimeError(kDiskOrNetwork, {},
                     std::string(path) + " is on a network file system, where it can only be opened for reading");
}

}  // namespace zendara::sqlite
