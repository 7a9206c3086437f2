// What a fault of the server means to the recordsets.
#pragma once

#include <libpq-fe.h>

#include <string>
#include <string_view>

namespace zendara::postgres {

// The number of the run-time error for a state of the server, five characters of SQLSTATE.
int NumberOf(std::string_view state);

// In one line: the message, and what the server adds to it.
std::string WordsOf(const PGresult* result);
std::string WordsOf(const PGconn* connection);

}  // namespace zendara::postgres
