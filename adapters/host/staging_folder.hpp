// Files that get their names together, when all of them are whole.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "adapters/host/descriptor.hpp"

namespace zendara {

// A folder of this program's own inside `target`, where files are made. It is locked while it lives and removed at the
// end with what is left in it. Those of programs that have ended are removed when a new one is made.
//
// std::system_error when something cannot be made; code() is why.
class StagingFolder {
 public:
  explicit StagingFolder(const std::filesystem::path& target);
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;
  ~StagingFolder();

  const std::filesystem::path& path() const { return path_; }

  // Gives all of these files, which were made here and closed, their names in the target, or none of them. A program
  // that ends on the way is undone by the next one. The name that something else has already; nothing when it is done.
  // A file that the store keeps a log beside is not whole: std::errc::io_error.
  std::optional<std::string> Publish(std::span<const std::string> names) const;

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
  Descriptor lock_;  // open on the folder
};

}  // namespace zendara
