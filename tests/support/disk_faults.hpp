// A disk that fills up after any number of writes, a disk or a connection that fails once, or ends the program: the
// system calls of this test program pass through here. Nothing waits for the disk. For one source file of a test
// program.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <functional>
#include <ostream>
#include <thread>

namespace zendara {

struct Disk {
  int writes_left = -1;  // calls that take room; -1: as many as wanted
  int fault_in = -1;     // making, reading, writing or syncing a file, sending or receiving, after as many of these;
                         // -1: none
  bool kills = false;    // that fault is the end of the program
  bool sleeps = true;    // false: a sleep is over at once
  int faults = 0;        // that came
  int syncs = 0;
  int waited = 0;                       // microseconds that the program wanted to sleep, for a lock to go
  std::function<void()> while_waiting;  // called then, and when a server does not answer soon; may be empty
};
inline Disk disk;

// What is done to `disk` lasts as long.
struct TestDisk {
  TestDisk() { disk.sleeps = false; }
  ~TestDisk() { disk = {}; }
  TestDisk(const TestDisk&) = delete;
  TestDisk& operator=(const TestDisk&) = delete;
};

enum class Fault { kFails, kFullDisk, kKilled };

struct DiskFault {
  Fault fault = Fault::kFails;
  int at = 0;  // the call, from 1

  friend void PrintTo(const DiskFault& f, std::ostream* out) {
    *out << "fault " << static_cast<int>(f.fault) << " at call " << f.at;
  }
};

// How a program of its own ended, as waitpid tells; `reached` whether its fault came.
struct Ending {
  int status = 0;
  bool reached = false;
  bool Killed() const { return WIFSIGNALED(status); }
  int ExitStatus() const { return WEXITSTATUS(status); }
};

// `work` gives the exit status.
inline Ending RunWithFault(const DiskFault& fault, const std::function<int()>& work) {
  constexpr int kNotReached = 0x40;
  const pid_t child = fork();
  if (child == 0) {
    (fault.fault == Fault::kFullDisk ? disk.writes_left : disk.fault_in) = fault.at - 1;
    disk.kills = fault.fault == Fault::kKilled;
    const int status = work();
    _exit(status | (disk.faults == 0 ? kNotReached : 0));
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) return {status, true};
  return {status & ~(kNotReached << 8), (WEXITSTATUS(status) & kNotReached) == 0};
}

namespace disk_faults {

inline bool FailsWith(int error) {
  ++disk.faults;
  errno = error;
  return true;
}

// Whether this call fails, with errno set. `grows`: it takes room on the disk.
inline bool Fails(bool grows) {
  if (grows && disk.writes_left == 0) return FailsWith(ENOSPC);
  if (grows && disk.writes_left > 0) --disk.writes_left;
  if (disk.fault_in < 0 || disk.fault_in-- > 0) return false;
  if (disk.kills) raise(SIGKILL);
  return FailsWith(EIO);
}

// A program that is killed while it writes may have written a part.
inline bool WriteFails(const std::function<void()>& write_half) {
  if (disk.kills && disk.fault_in == 0) write_half();
  return Fails(true);
}

inline int Open(const char* path, int flags, mode_t mode) {
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return makes && Fails(true) ? -1 : static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

inline bool Loses(int socket) {
  if (!Fails(false)) return false;
  shutdown(socket, SHUT_RDWR);
  errno = ECONNRESET;
  return true;
}

}  // namespace disk_faults
}  // namespace zendara

#define ZENDARA_CALL extern "C" [[gnu::used, gnu::visibility("default")]] inline

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
    const auto mode = va_arg(rest, mode_t);                 \
    va_end(rest);                                           \
    return zendara::disk_faults::Open(path, flags, mode);   \
  }
ZENDARA_OPEN(open)
ZENDARA_OPEN(open64)
#undef ZENDARA_OPEN

#define ZENDARA_COUNTED(result, name, grows, number, parameters, ...)                                   \
  ZENDARA_CALL result name parameters {                                                                 \
    return zendara::disk_faults::Fails(grows) ? -1 : static_cast<result>(syscall(number, __VA_ARGS__)); \
  }
ZENDARA_COUNTED(ssize_t, pread64, false, SYS_pread64, (int file, void* data, size_t size, off64_t at), file, data, size,
                at)
ZENDARA_COUNTED(int, ftruncate64, true, SYS_ftruncate, (int file, off64_t size) noexcept, file, size)
ZENDARA_COUNTED(int, mkdir, true, SYS_mkdir, (const char* path, mode_t mode) noexcept, path, mode)
ZENDARA_COUNTED(int, link, true, SYS_link, (const char* from, const char* to) noexcept, from, to)
ZENDARA_COUNTED(int, linkat, true, SYS_linkat, (int a, const char* from, int b, const char* to, int flags) noexcept, a,
                from, b, to, flags)
ZENDARA_COUNTED(int, unlink, false, SYS_unlink, (const char* path) noexcept, path)
#undef ZENDARA_COUNTED

ZENDARA_CALL int fsync(int) {
  ++zendara::disk.syncs;
  return zendara::disk_faults::Fails(false) ? -1 : 0;
}
ZENDARA_CALL int fdatasync(int file) { return fsync(file); }

ZENDARA_CALL int usleep(useconds_t microseconds) {
  zendara::disk.waited += static_cast<int>(microseconds);
  if (zendara::disk.while_waiting) zendara::disk.while_waiting();
  if (zendara::disk.sleeps) std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  return 0;
}

// A connection that is lost stays so.
ZENDARA_CALL ssize_t send(int socket, const void* data, size_t size, int flags) {
  if (zendara::disk_faults::Loses(socket)) return -1;
  return syscall(SYS_sendto, socket, data, size, flags, nullptr, 0);
}
ZENDARA_CALL ssize_t recv(int socket, void* data, size_t size, int flags) {
  if (zendara::disk_faults::Loses(socket)) return -1;
  return syscall(SYS_recvfrom, socket, data, size, flags, nullptr, nullptr);
}
ZENDARA_CALL int poll(pollfd* files, nfds_t count, int timeout) {
  constexpr int kSoon = 50;  // milliseconds
  if (zendara::disk.while_waiting && (timeout < 0 || timeout > kSoon)) {
    if (const auto ready = syscall(SYS_poll, files, count, kSoon)) return static_cast<int>(ready);
    zendara::disk.while_waiting();
  }
  return static_cast<int>(syscall(SYS_poll, files, count, timeout));
}
#undef ZENDARA_CALL
