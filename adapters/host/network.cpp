#include "adapters/host/network.hpp"

#include <sys/vfs.h>

#include <algorithm>
#include <iterator>

namespace zendara {
namespace {

constexpr std::uint32_t kNetworkFileSystems[] = {
    0x6969,      // NFS
    0x517b,      // SMB
    0xff534d42,  // CIFS
    0xfe534d42,  // SMB 2 and 3
    0x564c,      // NCP
    0x5346414f,  // AFS
    0x6b414653,  // AFS of the kernel
    0x73757245,  // Coda
    0x00c36400,  // Ceph
    0x0bd00bd0,  // Lustre
    0x01161970,  // GFS2
    0x7461636f,  // OCFS2
    0x47504653,  // GPFS
    0x19830326,  // BeeGFS
};

}  // namespace

bool IsNetworkFileSystem(std::uint32_t magic) {
  return std::ranges::find(kNetworkFileSystems, magic) != std::end(kNetworkFileSystems);
}

bool IsOnNetwork(const std::filesystem::path& path) {
  struct statfs status = {};
  return statfs(path.c_str(), &status) == 0 && IsNetworkFileSystem(static_cast<std::uint32_t>(status.f_type));
}

}  // namespace zendara
