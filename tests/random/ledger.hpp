// Watches the tables of workers and of incidents from outside, as another program: whose rows have changed.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "random/pulse.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class Ledger {
 public:
  // By their key in small letters, what stands in all that have it: its columns, each with a "|" behind it.
  using Rows = std::map<std::string, std::string>;
  struct Change {
    std::string table;  // "company.TincidenciasIT", "y01.TIncidenciasVar"
    std::string key;    // "00012" is a worker, "00012/003" a situación of his or its concepts, "00012 2001-03-05" an
                        // incident, "01 00012 001 004" one of a concept
  };

  // The place of a demonstration company, as OpenStore takes it.
  explicit Ledger(const std::string& place);

  // What has changed since the last call.
  std::vector<Change> Changed();
  // As of the last call.
  const Rows& RowsOf(const std::string& table) const { return rows_.at(table); }
  // Whether the worker or situación had a row of its own at the last call; concepts may outlive it.
  bool Has(const std::string& key) const;

 private:
  std::unique_ptr<Engine> engine_;
  std::vector<std::shared_ptr<Database>> files_;
  std::unique_ptr<Pulse> pulse_;
  std::vector<std::string> beats_;
  std::map<std::string, Rows> rows_;  // by table
};

}  // namespace zendara
