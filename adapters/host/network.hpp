// Folders that lie on another machine.
#pragma once

#include <cstdint>
#include <filesystem>

namespace zendara {

// By the number that statfs gives a file system.
bool IsNetworkFileSystem(std::uint32_t magic);
// False also when the machine does not say.
bool IsOnNetwork(const std::filesystem::path& path);

}  // namespace zendara
