// Watches the workers' tables from outside, through the store itself: whose rows have changed.
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace zendara {

class Ledger {
 public:
  // The folder of a demonstration company.
  explicit Ledger(const std::filesystem::path& folder);

  // What has changed since the last call: "00012" is the worker, "00012/003" a situación of his or its concepts. Small
  // letters.
  std::set<std::string> Changed();
  // Whether the worker or situación had a row of its own at the last call; concepts may outlive it.
  bool Has(const std::string& key) const;

 private:
  using Rows = std::map<std::string, std::string>;  // by their first column, what stands in all that have it
  Rows Read(const std::string& sql) const;

  struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  };
  std::unique_ptr<sqlite3, Close> connection_;
  std::map<std::string, Rows> versions_;  // by file
  std::map<std::string, Rows> rows_;      // by table
};

}  // namespace zendara
