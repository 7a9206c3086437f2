// System calls of this program that change files, counted: any of them may fail, be the first for which the disk is
// full, or be the last of the program. Nothing waits for the disk. For one source file of a test program.
#pragma once

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <functional>
#include <ostream>

namespace zendara {

enum class Fault { kFails, kFullDisk, kKilled };

struct DiskFault {
  Fault fault = Fault::kFails;
  int at = 0;  // the call, from 1

  friend void PrintTo(const DiskFault& f, std::ostream* out) {
    *out << (f.fault == Fault::kFails      ? "failing"
             : f.fault == Fault::kFullDisk ? "full disk"
                                           : "killed")
         << " at call " << f.at;
  }
};

namespace disk_faults {

inline bool armed = false;
inline DiskFault planned;
inline int calls = 0;

// Whether this call fails, with errno set. `grows`: it takes room on the disk.
inline bool Fails(bool grows) {
  if (!armed) return false;
  ++calls;
  if (planned.fault == Fault::kFullDisk) {
    if (!grows || calls < planned.at) return false;
    errno = ENOSPC;
    return true;
  }
  if (calls != planned.at) return false;
  if (planned.fault == Fault::kKilled) raise(SIGKILL);
  errno = EIO;
  return true;
}

// A program that is killed while it writes may have written a part.
inline bool WriteFails(const std::function<void()>& write_half) {
  if (armed && planned.fault == Fault::kKilled && calls + 1 == planned.at) write_half();
  return Fails(true);
}

inline int Open(const char* path, int flags, mode_t mode) {
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return makes && Fails(true) ? -1 : static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

// How a program of its own that did `work` with this fault ended, as waitpid tells; `reached` whether the fault came.
struct Ending {
  int status = 0;
  bool reached = false;
  bool Killed() const { return WIFSIGNALED(status); }
  int ExitStatus() const { return WEXITSTATUS(status); }
};

}  // namespace disk_faults

// `work` gives the exit status.
inline disk_faults::Ending RunWithFault(const DiskFault& fault, const std::function<int()>& work) {
  constexpr int kNotReached = 0x40;
  const pid_t child = fork();
  if (child == 0) {
    disk_faults::planned = fault;
    disk_faults::armed = true;
    const int status = work();
    disk_faults::armed = false;
    _exit(status | (disk_faults::calls < fault.at ? kNotReached : 0));
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) return {status, true};
  return {status & ~(kNotReached << 8), (WEXITSTATUS(status) & kNotReached) == 0};
}

}  // namespace zendara

#define ZENDARA_CALL extern "C" [[gnu::used]] inline

ZENDARA_CALL ssize_t write(int file, const void* data, size_t size) {
  const auto half = [&] { syscall(SYS_write, file, data, size / 2); };
  return zendara::disk_faults::WriteFails(half) ? -1 : syscall(SYS_write, file, data, size);
}
ZENDARA_CALL ssize_t pwrite64(int file, const void* data, size_t size, off64_t at) {
  const auto half = [&] { syscall(SYS_pwrite64, file, data, size / 2, at); };
  return zendara::disk_faults::WriteFails(half) ? -1 : syscall(SYS_pwrite64, file, data, size, at);
}
#define ZENDARA_OPEN(name)                                  \
  ZENDARA_CALL int name(const char* path, int flags, ...) { \
    va_list rest;                                           \
    va_start(rest, flags);                                  \
    const mode_t mode = va_arg(rest, mode_t);               \
    va_end(rest);                                           \
    return zendara::disk_faults::Open(path, flags, mode);   \
  }
ZENDARA_OPEN(open)
ZENDARA_OPEN(open64)
#undef ZENDARA_OPEN

#define ZENDARA_COUNTED(name, grows, number, parameters, ...)                                        \
  ZENDARA_CALL int name parameters noexcept {                                                        \
    return zendara::disk_faults::Fails(grows) ? -1 : static_cast<int>(syscall(number, __VA_ARGS__)); \
  }
ZENDARA_COUNTED(ftruncate64, true, SYS_ftruncate, (int file, off64_t size), file, size)
ZENDARA_COUNTED(mkdir, true, SYS_mkdir, (const char* path, mode_t mode), path, mode)
ZENDARA_COUNTED(link, true, SYS_link, (const char* from, const char* to), from, to)
ZENDARA_COUNTED(linkat, true, SYS_linkat, (int a, const char* from, int b, const char* to, int flags), a, from, b, to,
                flags)
ZENDARA_COUNTED(unlink, false, SYS_unlink, (const char* path), path)
#undef ZENDARA_COUNTED

ZENDARA_CALL int fsync(int) { return zendara::disk_faults::Fails(false) ? -1 : 0; }
ZENDARA_CALL int fdatasync(int file) { return fsync(file); }
#undef ZENDARA_CALL
