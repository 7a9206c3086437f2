#include "adapters/sqlite/statement.hpp"

#include <sqlite3.h>

#include "runtime/iso_date.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

// What the store says of a table that another program has dropped since its definition was read.
constexpr std::string_view kTableGone = "no such table: ";

int NumberOf(int code) {
  switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
      return kDuplicateKey;
    case SQLITE_CONSTRAINT_NOTNULL:
      return kNullInKey;
    case SQLITE_CANTOPEN_ISDIR:
      return kPathFileAccess;
    default:
      break;
  }
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kLocked;
    case SQLITE_FULL:
      return kNoDiskSpace;
    case SQLITE_READONLY:
      return kReadOnly;
    case SQLITE_NOTADB:
      return kForeignFile;
    case SQLITE_CORRUPT:
      return kDamagedFile;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return kCannotOpenFile;
    case SQLITE_NOMEM:
      return kOutOfMemory;
    case SQLITE_CONSTRAINT:
      return kDuplicateKey;
    case SQLITE_MISMATCH:
      return kDataConversion;
    default:
      return kDeviceIoError;
  }
}

}  // namespace

Date ReadDate(std::string_view text) {
  const auto date = ReadIsoDate(text);
  if (!date) throw RuntimeError(kDataConversion, {}, text);
  return *date;
}

void Fail(int code, const std::string& name, const std::string& detail) {
  if (detail.starts_with(kTableGone)) {
    throw RuntimeError(kInputTableNotFound, {detail.substr(kTableGone.size())}, detail, code);
  }
  throw RuntimeError(NumberOf(code), {name}, detail, code);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(sqlite3* database, const std::string& file, std::string_view sql) : file_(&file) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                      &prepared, nullptr);
  statement_.reset(prepared);
  if (code != SQLITE_OK) Fail(sqlite3_extended_errcode(database), file, sqlite3_errmsg(database));
}

void Statement::Check(int code) const {
  if (code != SQLITE_OK) Fail(code, *file_, sqlite3_errmsg(sqlite3_db_handle(get())));
}

void Statement::Bind(int parameter, const Value& value) {
  if (value.IsNull()) return Check(sqlite3_bind_null(get(), parameter));
  if (value.IsNumber()) return Check(sqlite3_bind_double(get(), parameter, value.Number()));
  if (value.IsDate()) return BindText(parameter, IsoDate(value.AsDate()));
  BindText(parameter, value.Text());
}

void Statement::BindText(int parameter, std::string_view text) {
  Check(sqlite3_bind_text64(get(), parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::Bind(int parameter, std::int64_t number) { Check(sqlite3_bind_int64(get(), parameter, number)); }

void Statement::BindColumn(int parameter, const Statement& row, int column) {
  Check(sqlite3_bind_value(get(), parameter, sqlite3_column_value(row.get(), column)));
}

bool Statement::Step() {
  const int code = sqlite3_step(get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  sqlite3* database = sqlite3_db_handle(get());
  const int extended = sqlite3_extended_errcode(database);
  const std::string detail = sqlite3_errmsg(database);
  Reset();
  Fail(extended, *file_, detail);
}

void Statement::Reset() { sqlite3_reset(get()); }

void Statement::Run() {
  while (Step()) {
  }
  Reset();
}

bool Statement::IsNull(int column) const { return sqlite3_column_type(get(), column) == SQLITE_NULL; }

std::int64_t Statement::Integer(int column) const { return sqlite3_column_int64(get(), column); }

std::string_view Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(get(), column));
  return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(get(), column)))
              : std::string_view();
}

Value Statement::Read(int column, ColumnType type) const {
  if (type == ColumnType::kText) {
    const std::string_view text = Text(column);
    return text.data() ? Value(text) : Value();
  }
  if (IsNull(column)) return {};
  return type == ColumnType::kNumber ? Value(sqlite3_column_double(get(), column)) : Value(ReadDate(Text(column)));
}

}  // namespace zendara::sqlite
