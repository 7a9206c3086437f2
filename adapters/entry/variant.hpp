// Values as they cross the interface.
#pragma once

#include <cstdint>
#include <string>

#include "zendara/value.hpp"
#include "zendara/zendara.h"

namespace zendara {

// One that is cleared at the end of its life.
struct Variant : zendara_variant {
  Variant() : zendara_variant{} {}
  ~Variant() { zendara_variant_clear(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
};

// The variant that is meant, which may stand behind a reference. Refused: a reference to nothing, or to another one.
const zendara_variant& Meant(const zendara_variant& variant);
bool IsNothing(const zendara_variant& meant);  // empty, Null, or no object

// Empty is the empty text, True -1. Refused: ZENDARA_WRONG_TYPE for an object or an array, ZENDARA_INVALID for bad
// UTF-8 and for figures and dates that are none.
Value ToValue(const zendara_variant& variant);
// By the conversions of the run-time library: ZENDARA_WRONG_TYPE for what cannot be converted, ZENDARA_INVALID for what
// has no room.
std::string ToText(const zendara_variant& variant);
std::int32_t ToLong(const zendara_variant& variant);
std::int16_t ToInteger(const zendara_variant& variant);

// Each clears the variant first.
void Put(zendara_variant& variant, const Value& value);
void PutLong(zendara_variant& variant, std::int64_t number);
void PutBoolean(zendara_variant& variant, bool value);
// Takes over the count of an object.
void PutObject(zendara_variant& variant, void* object);
// Empty items; theirs to fill.
zendara_array& PutArray(zendara_variant& variant, std::int32_t lower_bound, std::uint32_t count);

}  // namespace zendara
