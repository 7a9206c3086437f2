// Stands between a program and a server's socket, and cuts a connection behind so many bytes of one direction.
#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <list>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/temp_folder.hpp"

namespace zendara {

class CuttingProxy {
 public:
  enum Direction { kToServer, kToClient };

  // `server`: the path of the server's socket.
  explicit CuttingProxy(const std::string& server) : server_(server) {
    const sockaddr_un address = Address(folder_ / ".s.PGSQL.5432");
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 16) != 0) {
      throw std::runtime_error("no socket for the proxy");
    }
    thread_ = std::thread([this] { Forward(); });
  }
  ~CuttingProxy() {
    stop_ = true;
    thread_.join();
    for (const auto& pair : pairs_) Close(pair);
    close(listener_);
  }
  CuttingProxy(const CuttingProxy&) = delete;
  CuttingProxy& operator=(const CuttingProxy&) = delete;

  // Where programs find the server.
  std::string Folder() const { return folder_.path().string(); }

  // So many more bytes pass in that direction; the next one cuts its connection, once.
  void CutBehind(Direction direction, std::int64_t bytes) { left_.at(direction) = bytes; }
  // True if it has cut since.
  bool StopCutting() {
    for (auto& left : left_) left = kAll;
    return cut_.exchange(false);
  }

 private:
  using Pair = std::array<int, 2>;  // sockets, by the direction in which they are read

  static constexpr std::int64_t kAll = -1;
  static constexpr int kLook = 50;  // milliseconds, for the end

  static sockaddr_un Address(const std::string& path) {
    sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
  }
  static void Close(const Pair& pair) {
    for (const int socket : pair) close(socket);
  }

  void Accept() {
    pairs_.push_back({accept(listener_, nullptr, nullptr), socket(AF_UNIX, SOCK_STREAM, 0)});
    const sockaddr_un address = Address(server_);
    // One that fails is seen as its end.
    static_cast<void>(connect(pairs_.back()[1], reinterpret_cast<const sockaddr*>(&address), sizeof address));
  }

  // False at the end of the connection.
  bool Pass(const Pair& pair, std::size_t direction) {
    std::array<char, 65536> bytes;
    const ssize_t got = read(pair.at(direction), bytes.data(), bytes.size());
    if (got <= 0) return false;
    std::int64_t passes = got;
    if (left_.at(direction) != kAll) {
      passes = std::min<std::int64_t>(got, left_.at(direction));
      left_.at(direction) -= passes;
    }
    for (std::int64_t sent = 0; sent < passes;) {
      const ssize_t more = send(pair.at(1 - direction), bytes.data() + sent, passes - sent, MSG_NOSIGNAL);
      if (more < 0) return false;
      sent += more;
    }
    if (passes == got) return true;
    left_.at(direction) = kAll;
    cut_ = true;
    return false;
  }

  void Forward() {
    while (!stop_) {
      std::vector<pollfd> sockets = {{listener_, POLLIN, 0}};
      for (const Pair& pair : pairs_) {
        for (const int socket : pair) sockets.push_back({socket, POLLIN, 0});
      }
      if (poll(sockets.data(), sockets.size(), kLook) <= 0) continue;
      auto socket = sockets.cbegin() + 1;
      for (auto pair = pairs_.begin(); pair != pairs_.end();) {
        bool open = true;
        for (std::size_t direction = 0; direction < 2; ++direction, ++socket) {
          if (open && socket->revents != 0) open = Pass(*pair, direction);
        }
        if (!open) Close(*pair);
        pair = open ? std::next(pair) : pairs_.erase(pair);
      }
      if (sockets.front().revents != 0) Accept();
    }
  }

  TempFolder folder_;
  std::string server_;
  int listener_ = socket(AF_UNIX, SOCK_STREAM, 0);
  std::list<Pair> pairs_;
  std::array<std::atomic<std::int64_t>, 2> left_ = {kAll, kAll};
  std::atomic<bool> cut_ = false;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

}  // namespace zendara
