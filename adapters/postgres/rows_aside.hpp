// Rows that are still to come when somebody else needs the connection: in memory as long as they are few, then in a
// temporary file without a name.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "adapters/postgres/wire.hpp"

namespace zendara::postgres {

class RowsAside {
 public:
  // A row behind those that are there. Error 3026 when the disk is full: it is not kept then, the others are.
  void Put(const Answer& row);
  // The first row that was not taken yet, none behind the last one. REQUIRES: from the first call on, no more Put.
  Answer Take();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  struct ClearRow {
    void operator()(PGresult* row) const { PQclear(row); }
  };

  void Store();
  void Read(void* bytes, std::size_t size);

  std::unique_ptr<PGresult, ClearRow> columns_;  // a row without values
  std::unique_ptr<std::FILE, CloseFile> file_;
  bool taking_ = false;
  std::int64_t in_file_ = 0;    // rows
  std::int64_t in_memory_ = 0;  // behind them
  std::string memory_;          // of each cell its length, then its bytes
  std::size_t at_ = 0;          // in memory_
};

}  // namespace zendara::postgres
