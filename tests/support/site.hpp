// Places for databases that are one test's own, gone at its end: a folder, or a database of the test server.
#pragma once

#include <libpq-fe.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>

#include "support/temp_folder.hpp"

namespace zendara {

class Site {
 public:
  virtual ~Site() = default;
  // For OpenStore.
  virtual std::string Place() const = 0;
  // Another one with the same rows. REQUIRES: nobody has anything open here.
  virtual std::unique_ptr<Site> Copy() const = 0;
};

class FolderSite : public Site {
 public:
  std::string Place() const override { return folder_.path().string(); }
  std::unique_ptr<Site> Copy() const override {
    auto copy = std::make_unique<FolderSite>();
    std::filesystem::copy(Place(), copy->Place(), std::filesystem::copy_options::recursive);
    return copy;
  }

 private:
  TempFolder folder_;
};

// The connection text of the server that is started for the tests, "postgresql:///postgres?..."; nullptr without one.
inline const char* TestServer() { return getenv("ZENDARA_TEST_SERVER"); }

// A statement of the server's own, past the engine.
inline void RunSql(const std::string& place, const std::string& sql) {
  const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(place.c_str()), PQfinish);
  const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), sql.c_str()), PQclear);
  if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) throw std::runtime_error(PQerrorMessage(connection.get()));
}

// REQUIRES: there is a test server.
class ServerSite : public Site {
 public:
  explicit ServerSite(const std::string& original = "template0") {
    Run("CREATE DATABASE " + name_ + " TEMPLATE " + original + " STRATEGY FILE_COPY");
  }
  ~ServerSite() override {
    try {
      Run("DROP DATABASE " + name_ + " WITH (FORCE)");
    } catch (const std::runtime_error&) {
      // The server goes with the tests.
    }
  }
  ServerSite(const ServerSite&) = delete;
  ServerSite& operator=(const ServerSite&) = delete;

  std::string Place() const override {
    std::string place = TestServer();
    return place.replace(place.rfind('/', place.find('?')) + 1, std::string("postgres").size(), name_);
  }
  std::unique_ptr<Site> Copy() const override { return std::make_unique<ServerSite>(name_); }

 private:
  static void Run(const std::string& sql) { RunSql(TestServer(), sql); }

  const std::string name_ = "test_" + std::to_string(std::random_device()());
};

}  // namespace zendara
