#include "random/pulse.hpp"

#include <libpq-fe.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <stdexcept>
#include <utility>

#include "runtime/text.hpp"

namespace zendara {
namespace {

class PulseOfFiles : public Pulse {
 public:
  explicit PulseOfFiles(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      sqlite3* connection = nullptr;
      sqlite3_open(file.c_str(), &connection);
      connections_.emplace_back(connection, sqlite3_close);
    }
  }

  std::vector<std::string> Beats() override {
    std::vector<std::string> beats;
    const auto add = [](void* to, int, char** texts, char**) {
      static_cast<std::vector<std::string>*>(to)->emplace_back(texts[0]);
      return 0;
    };
    for (const auto& connection : connections_) {
      if (sqlite3_exec(connection.get(), "PRAGMA data_version", add, &beats, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(connection.get()));
      }
    }
    return beats;
  }

 private:
  std::vector<std::unique_ptr<sqlite3, decltype(&sqlite3_close)>> connections_;
};

// A write gives its rows the number of its transaction, higher than all before; a removal leaves fewer rows.
class PulseOfServer : public Pulse {
 public:
  PulseOfServer(const std::string& place, const std::vector<std::string>& files)
      : connection_(PQconnectdb(place.c_str()), PQfinish) {
    for (const std::string& file : files) names_.push_back(UCase(std::filesystem::path(file).filename().string()));
    const auto rows =
        Ask("SELECT string_agg(format('SELECT zendara_file, xmin FROM %I', relname), ' UNION ALL ') "
            "FROM pg_class WHERE relkind = 'r' AND relname ~* '^(Trabajadores|TIncidencias|ConTrabajador)'");
    statement_ = "SELECT zendara_file, count(*) || ' ' || max(xmin::text::bigint) FROM (" +
                 std::string(PQgetvalue(rows.get(), 0, 0)) + ") AS rows GROUP BY zendara_file";
  }

  std::vector<std::string> Beats() override {
    // As long as no transaction of the whole server has begun or ended, everybody sees what they saw.
    const std::string moment = PQgetvalue(Ask("SELECT pg_current_snapshot()").get(), 0, 0);
    if (moment == std::exchange(moment_, moment)) return beats_;
    beats_.clear();
    const auto rows = Ask(statement_);
    std::map<std::string, std::string> beats;
    for (int row = 0; row < PQntuples(rows.get()); ++row) {
      beats[PQgetvalue(rows.get(), row, 0)] = PQgetvalue(rows.get(), row, 1);
    }
    for (const std::string& name : names_) beats_.push_back(beats[name]);
    return beats_;
  }

 private:
  std::unique_ptr<PGresult, decltype(&PQclear)> Ask(const std::string& sql) {
    std::unique_ptr<PGresult, decltype(&PQclear)> rows(PQexec(connection_.get(), sql.c_str()), PQclear);
    if (PQresultStatus(rows.get()) != PGRES_TUPLES_OK) throw std::runtime_error(PQerrorMessage(connection_.get()));
    return rows;
  }

  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
  std::vector<std::string> names_;  // of the files, as the rows have them
  std::string statement_;
  std::string moment_;
  std::vector<std::string> beats_;
};

}  // namespace

std::unique_ptr<Pulse> MakePulse(const std::string& place, const std::vector<std::string>& files) {
  if (place.starts_with("postgresql:")) return std::make_unique<PulseOfServer>(place, files);
  return std::make_unique<PulseOfFiles>(files);
}

}  // namespace zendara
