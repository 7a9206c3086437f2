#include "adapters/host/file_error.hpp"

#include <cerrno>

namespace zendara {
namespace {

int NumberOf(const std::error_code& error) {
  switch (error.value()) {
    case EEXIST:
      return kObjectExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case EACCES:
    case EPERM:
      return kPermissionDenied;
    case EROFS:
    case EISDIR:
    case ENOTEMPTY:
      return kPathFileAccess;
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      return kPathNotFound;
    default:
      return kDeviceIoError;
  }
}

}  // namespace

RuntimeError FileError(const std::error_code& error, const std::string& path) {
  return RuntimeError(NumberOf(error), {path}, path + ": " + error.message(), error.value());
}

}  // namespace zendara
