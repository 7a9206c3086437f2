// What goes to the server and what comes back, in its binary form: no figure passes through text.
#pragma once

#include <libpq-fe.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara::postgres {

// The type that columns of ours have on the server.
std::string_view StoredType(ColumnType type);

// A date as the server counts: microseconds since 01/01/2000. The time of day is stored to the second.
std::int64_t MomentOf(Date date);
Date DateOf(std::int64_t moment);

// The parameters $1, $2, ... of a statement, in this order.
class Parameters {
 public:
  Parameters& Text(std::string_view text);
  Parameters& Bytes(std::string_view bytes);
  Parameters& NullBytes();
  Parameters& Number(double number);
  Parameters& Integer(std::int64_t number);
  // As a column of that type holds it; Null is one of that type.
  Parameters& Stored(const Value& value, ColumnType type);

  // One value for each of many rows: begun, then as many of the calls above as there are rows, all of one kind, which
  // is said at the beginning.
  enum class Kind { kText, kBytes, kNumber, kDate, kInteger };
  Parameters& BeginArray(Kind kind, std::size_t rows);

  void Clear();
  const std::vector<Oid>& Types() const { return types_; }
  std::vector<const char*> Values() const;
  const std::vector<int>& Lengths() const { return lengths_; }

 private:
  void Add(Oid type, const void* bytes, std::size_t size);
  void AddNull(Oid type);

  std::string bytes_;  // of all
  std::vector<Oid> types_;
  std::vector<std::ptrdiff_t> starts_;  // in bytes_, or -1 for Null
  std::vector<int> lengths_;
  std::size_t rows_left_ = 0;  // of the array that was begun
};

// The rows that a statement gave. Texts stay good as long as it lives.
class Answer {
 public:
  Answer() = default;
  explicit Answer(PGresult* result) : result_(result) {}

  explicit operator bool() const { return result_ != nullptr; }
  PGresult* get() const { return result_.get(); }

  int Rows() const { return PQntuples(get()); }
  // Rows that a write changed.
  std::int64_t Affected() const;
  // Most values have a length, and are not asked for twice.
  bool IsNull(int row, int column) const {
    return PQgetlength(get(), row, column) == 0 && PQgetisnull(get(), row, column) != 0;
  }
  // As they came: of texts that hold a zero character not those of the value.
  std::string_view Bytes(int row, int column) const {
    return {PQgetvalue(get(), row, column), static_cast<std::size_t>(PQgetlength(get(), row, column))};
  }
  // Of the server's types int2, int4, int8 and bool.
  std::int64_t Integer(int row, int column) const;
  // Of a column of ours. A number may also be one of the types of Integer.
  Value Read(int row, int column, ColumnType type) const;

 private:
  struct Clear {
    void operator()(PGresult* result) const { PQclear(result); }
  };
  std::unique_ptr<PGresult, Clear> result_;
};

}  // namespace zendara::postgres
