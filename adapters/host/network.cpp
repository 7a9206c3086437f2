#include "adapters/host/network.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace zendara {
namespace {

constexpr std::string_view kNetworkFileSystems[] = {
    "nfs",       "nfs4",        "cifs",           "smb3",           "smbfs",           "ncpfs",
    "afs",       "coda",        "ceph",           "lustre",         "beegfs",          "gpfs",
    "gfs2",      "ocfs2",       "fuse.sshfs",     "fuse.ceph-fuse", "fuse.gvfsd-fuse", "fuse.smbnetfs",
    "fuse.s3fs", "fuse.rclone", "fuse.glusterfs",
};

}  // namespace

bool IsNetworkFileSystem(std::string_view kind) {
  return std::ranges::find(kNetworkFileSystems, kind) != std::end(kNetworkFileSystems);
}

// A line of the machine's list: "36 35 98:0 /from /at rw,noatime master:1 - ext4 /dev/vda rw", the number of the mount
// first, the kind behind the dash.
std::string FileSystemOf(const std::filesystem::path& path) {
  struct statx status = {};
  if (statx(AT_FDCWD, path.c_str(), 0, STATX_MNT_ID, &status) != 0 || !(status.stx_mask & STATX_MNT_ID)) return {};
  const std::string number = std::to_string(status.stx_mnt_id) + " ";
  std::ifstream mounts("/proc/self/mountinfo");
  for (std::string line; std::getline(mounts, line);) {
    const auto dash = line.find(" - ");
    if (!line.starts_with(number) || dash == std::string::npos) continue;
    const auto kind = dash + 3;
    return line.substr(kind, line.find(' ', kind) - kind);
  }
  return {};
}

}  // namespace zendara
