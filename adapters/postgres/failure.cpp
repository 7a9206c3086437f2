#include "adapters/postgres/failure.hpp"

#include <algorithm>
#include <iterator>

#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

struct Row {
  std::string_view state;  // or the beginning of it
  int number;
};

// The first that fits counts.
constexpr Row kStates[] = {
    {"08", kDiskOrNetwork},      // connection
    {"57P01", kDiskOrNetwork},   // the server is being stopped, or this connection of it
    {"57P02", kDiskOrNetwork},   // it has crashed
    {"57P03", kDiskOrNetwork},   // it is not up yet
    {"57P05", kDiskOrNetwork},   // idle for too long
    {"25P03", kDiskOrNetwork},   // the same, in a transaction
    {"53300", kDiskOrNetwork},   // it takes no more connections
    {"57P04", kCannotOpenFile},  // the database was dropped
    {"28", kCannotOpenFile},     // user or password refused
    {"3D000", kCannotOpenFile},  // no such database
    {"3F000", kCannotOpenFile},  // no such schema
    {"42501", kReadOnly},        // no right to
    {"25006", kReadOnly},        // a read-only session, or a standby
    {"23505", kDuplicateKey},
    {"23502", kNullInKey},
    {"55P03", kLocked},  // waited for long enough
    {"40", kLocked},     // deadlock, or a transaction that has to be done again
    {"57014", kLocked},  // cancelled
    {"53100", kNoDiskSpace},
    {"53200", kOutOfMemory},
    {"21", kDataConversion},
    {"22", kDataConversion},
    {"54", kQuerySyntax},  // more than it has room for
    {"42P01", kInputTableNotFound},
    {"XX001", kDamagedFile},
    {"XX002", kDamagedFile},
};

std::string OneLine(std::string_view words) {
  std::string line(words.substr(0, words.find_last_not_of(" \n") + 1));
  std::ranges::replace(line, '\n', ' ');
  return line;
}

void Append(std::string& words, const char* field, std::string_view before) {
  if (field) words.append(before).append(field);
}

}  // namespace

int NumberOf(std::string_view state) {
  const auto* row = std::ranges::find_if(kStates, [&](const Row& r) { return state.starts_with(r.state); });
  return row == std::end(kStates) ? kDeviceIoError : row->number;
}

std::string WordsOf(const PGresult* result) {
  std::string words;
  Append(words, PQresultErrorField(result, PG_DIAG_SQLSTATE), "");
  Append(words, PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY), words.empty() ? "" : " ");
  Append(words, PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL), "; ");
  Append(words, PQresultErrorField(result, PG_DIAG_MESSAGE_HINT), "; ");
  return OneLine(words.empty() ? PQresultErrorMessage(result) : words);
}

std::string WordsOf(const PGconn* connection) { return OneLine(PQerrorMessage(connection)); }

}  // namespace zendara::postgres
