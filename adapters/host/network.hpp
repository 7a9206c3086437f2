// Folders that lie on another machine.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zendara {

// By the name that the machine has for a kind of file system: "ext4", "nfs4".
bool IsNetworkFileSystem(std::string_view kind);
// The kind that a path lies on; empty when the machine does not say.
std::string FileSystemOf(const std::filesystem::path& path);

inline bool IsOnNetwork(const std::filesystem::path& path) { return IsNetworkFileSystem(FileSystemOf(path)); }

}  // namespace zendara
