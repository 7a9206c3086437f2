// Values as bytes whose order is the order of the stored tables: Null first, texts as SpanishOrder has them.
#pragma once

#include <string>

#include "adapters/icu/spanish_order.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::postgres {

// Nothing for Null, at least one byte for anything else.
void AppendSortKey(const Value& value, const SpanishOrder& order, std::string& bytes);
std::string SortKey(const Value& value, const SpanishOrder& order);

}  // namespace zendara::postgres
