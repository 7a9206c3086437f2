// Servers that a test may lose.
#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include "support/site.hpp"

namespace zendara {

// The first value that a statement gives on a connection of its own.
inline std::string Ask(const std::string& place, const std::string& sql) {
  const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(place.c_str()), PQfinish);
  const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), sql.c_str()), PQclear);
  if (PQresultStatus(result.get()) != PGRES_TUPLES_OK) throw std::runtime_error(PQerrorMessage(connection.get()));
  return PQgetvalue(result.get(), 0, 0);
}

// A server of the test's own, by cluster.sh.
class OwnServer {
 public:
  ~OwnServer() { static_cast<void>(std::system(Command("remove").c_str())); }

  const OwnServer& Do(const std::string& action, const std::string& more = {}) const {
    if (std::system((Command(action) + more).c_str()) != 0) throw std::runtime_error("cluster.sh " + action);
    return *this;
  }
  const std::string& Folder() const { return folder_; }
  // Where its socket is.
  std::string Host() const {
    const std::unique_ptr<FILE, decltype(&pclose)> answer(popen(Command("place").c_str(), "r"), pclose);
    std::string place(256, '\0');
    if (!fgets(place.data(), static_cast<int>(place.size()), answer.get()))
      throw std::runtime_error("cluster.sh place");
    place.resize(place.find('\n'));
    return place.substr(place.find('=') + 1);
  }

 private:
  std::string Command(const std::string& action) const { return ZENDARA_CLUSTER " " + action + " " + folder_ + " "; }

  TempFolder name_;
  std::string folder_ = name_ / "server";
};

struct LostServer {
  std::string place;
  std::function<void()> lose;  // what is connected is cut; the place can be reached again
};

// The test server goes on, the connections to the site's database end.
inline LostServer EndedConnections() {
  const auto site = std::make_shared<ServerSite>();
  return {site->Place(), [site] {
            Ask(site->Place(),
                "SELECT count(pg_terminate_backend(pid, 60000)) FROM pg_stat_activity "
                "WHERE datname = current_database() AND pid <> pg_backend_pid()");
          }};
}

inline LostServer RestartedServer() {
  const auto server = std::make_shared<OwnServer>();
  server->Do("start", "fsync=off");
  return {"postgresql:///postgres?host=" + server->Host(), [server] { server->Do("kill").Do("start"); }};
}

// A primary whose commits wait for its standby. It can be lost once.
inline LostServer PromotedStandby() {
  const auto primary = std::make_shared<OwnServer>();
  const auto standby = std::make_shared<OwnServer>();
  primary->Do("start", "fsync=off");
  standby->Do("standby", primary->Folder());
  return {"postgresql:///postgres?host=" + primary->Host() + "," + standby->Host(), [primary, standby] {
            primary->Do("kill");
            standby->Do("promote");
          }};
}

// For tests of each of them.
struct Fault {
  const char* name;
  LostServer (*server)();
};
inline void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }
inline constexpr Fault kFaults[] = {
    {"Connections", EndedConnections}, {"Restarted", RestartedServer}, {"Promoted", PromotedStandby}};

}  // namespace zendara
