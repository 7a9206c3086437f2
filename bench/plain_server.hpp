// The server without the engine, for what a benchmark compares with, prepares or looks up.
#pragma once

#include <libpq-fe.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace zendara {

class PlainServer {
 public:
  explicit PlainServer(const std::string& place) : connection_(PQconnectdb(place.c_str()), PQfinish) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) Fail();
    Run("SET client_min_messages = warning; SET jit = off");
  }

  // The first cell of the last statement's rows, empty if there are none.
  std::string Run(const std::string& sql) {
    const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection_.get(), sql.c_str()), PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) Fail();
    return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
  }
  double Number(const std::string& sql) { return std::stod(Run(sql)); }

  // What the server's processes for the engine's connections to this database share with no other, in megabytes, on
  // the average; the benchmarks run on the server's machine.
  double PrivateMegabytes() {
    std::istringstream pids(
        Run("SELECT string_agg(pid::text, ' ') FROM pg_stat_activity WHERE application_name LIKE 'zendara %' AND "
            "datname = current_database()"));
    double kilobytes = 0;
    int processes = 0;
    for (std::string pid; pids >> pid; ++processes) {
      std::ifstream map("/proc/" + pid + "/smaps_rollup");
      for (std::string word; map >> word;) {
        if (!word.starts_with("Private_")) continue;
        double value = 0;
        map >> value;
        kilobytes += value;
      }
    }
    return processes == 0 ? 0 : kilobytes / 1024 / processes;
  }

  // "COPY ... TO STDOUT"; how many rows came.
  int CopyOut(const std::string& sql) {
    const std::unique_ptr<PGresult, decltype(&PQclear)> begin(PQexec(connection_.get(), sql.c_str()), PQclear);
    if (PQresultStatus(begin.get()) != PGRES_COPY_OUT) Fail();
    int rows = 0;
    char* row = nullptr;
    while (PQgetCopyData(connection_.get(), &row, 0) > 0) {
      PQfreemem(row);
      ++rows;
    }
    while (PGresult* result = PQgetResult(connection_.get())) {
      const bool failed = PQresultStatus(result) == PGRES_FATAL_ERROR;
      PQclear(result);
      if (failed) Fail();
    }
    return rows;
  }

 private:
  [[noreturn]] void Fail() const { throw std::runtime_error(PQerrorMessage(connection_.get())); }

  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

}  // namespace zendara
