// The file of one draft.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <optional>

#include "adapters/host/descriptor.hpp"
#include "zendara/forms/drafts.hpp"

namespace zendara {

// Made and opened locked, until it is closed.
class DraftFile {
 public:
  // A new file; nullptr, and errno in `error`, when it cannot be made.
  static std::shared_ptr<DraftFile> Make(const std::filesystem::path& path, int& error);
  // One that is there; what was torn at its end is cut off. nullptr when it is no draft of this user's or somebody
  // works on it.
  static std::shared_ptr<DraftFile> Open(const std::filesystem::path& path);

  // Appends what has changed. On an error, which is answered as errno, the file is as it was.
  int Append(const Draft& draft);
  void Sync() const;
  // Others may work on it.
  void Release() const;
  // Somebody has removed it.
  bool IsGone() const;

 private:
  DraftFile(std::filesystem::path folder, Descriptor file) : folder_(std::move(folder)), file_(std::move(file)) {}

  std::filesystem::path folder_;
  Descriptor file_;
  std::optional<Draft> written_;
  off_t size_ = 0;
};

// Whether somebody, in this program or another, works on it.
bool IsWorkedOn(const std::filesystem::path& path);
// Empty when the file is no draft of this user's.
Draft ReadDraftFile(const std::filesystem::path& path);

// The folder, and those that it stands in; the last one is readable to its owner alone, whatever it was before. errno,
// 0 when it is there.
int MakeDraftsFolder(const std::filesystem::path& folder);

}  // namespace zendara
