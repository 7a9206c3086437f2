// Rows of the worker table, the same for every engine.
#pragma once

#include <string>

#include "zendara/record_engine.hpp"

namespace zendara {

inline constexpr int kRows = 100000;
inline constexpr int kWorkerColumns = 91;
inline constexpr int kBirth = 19;

inline std::string Key(int worker) {
  std::string key = std::to_string(worker);
  return std::string(5 - key.size(), '0') + key;
}

inline const char* TextOf(int column) {
  return column < 4 ? "Nombre" : column == 75 ? "2500000" : column < kBirth ? "7" : "0";
}

inline void Fill(Recordset& rs, int worker) {
  rs.AddNew();
  rs.Fields(0).Set(Key(worker));
  for (int i = 1; i < kWorkerColumns; ++i) {
    if (i != kBirth) rs.Fields(i).Set(TextOf(i));
  }
  rs.Fields(kBirth).Set(Date{20000.0 + worker % 9000});
}

}  // namespace zendara
