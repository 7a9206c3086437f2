#include "adapters/entry/variant.hpp"

#include <cmath>
#include <limits>

#include "adapters/entry/failure.hpp"
#include "adapters/entry/object.hpp"
#include "adapters/entry/text.hpp"
#include "runtime/number.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr double kFirstDate = -657434, kBehindLastDate = 2958466;

double Finite(double number) {
  if (!std::isfinite(number)) Refuse(ZENDARA_INVALID, "a number is not finite");
  return number;
}

// What a conversion of an argument cannot do is a refusal of the call.
template <typename Conversion>
auto Converted(Conversion conversion) {
  try {
    return conversion();
  } catch (const RuntimeError& error) {
    if (error.number() == kOverflow) Refuse(ZENDARA_INVALID, "a number is too large");
    Refuse(ZENDARA_WRONG_TYPE, "an argument cannot be converted");
  }
}

}  // namespace

const zendara_variant& Meant(const zendara_variant& variant) {
  if (variant.type != ZENDARA_BY_REF) return variant;
  const zendara_variant& meant = Needed(variant.value.by_ref, "an argument by reference refers to nothing");
  if (meant.type == ZENDARA_BY_REF) Refuse(ZENDARA_INVALID, "an argument by reference refers to another one");
  return meant;
}

bool IsNothing(const zendara_variant& meant) {
  return meant.type == ZENDARA_EMPTY || meant.type == ZENDARA_NULL ||
         (meant.type == ZENDARA_OBJECT && !meant.value.object);
}

Value ToValue(const zendara_variant& variant) {
  const zendara_variant& meant = Meant(variant);
  switch (meant.type) {
    case ZENDARA_EMPTY:
      return "";
    case ZENDARA_NULL:
      return Null();
    case ZENDARA_I2:
      return meant.value.i2;
    case ZENDARA_I4:
      return meant.value.i4;
    case ZENDARA_R8:
      return Finite(meant.value.r8);
    case ZENDARA_BOOL:
      return meant.value.boolean ? -1 : 0;
    case ZENDARA_TEXT:
      return TakeTextOrEmpty(meant.value.text);
    case ZENDARA_DATE:
      if (meant.value.date >= kFirstDate && meant.value.date < kBehindLastDate) return Date{meant.value.date};
      Refuse(ZENDARA_INVALID, "a date is out of range");
    default:
      Refuse(ZENDARA_WRONG_TYPE, "a value is an object, an array, or of no type");
  }
}

std::string ToText(const zendara_variant& variant) {
  return Converted([value = ToValue(variant)] { return CStr(value); });
}

std::int32_t ToLong(const zendara_variant& variant) {
  return Converted([value = ToValue(variant)] { return CLng(CDbl(value)); });
}

std::int16_t ToInteger(const zendara_variant& variant) {
  return Converted([value = ToValue(variant)] { return CInt(CDbl(value)); });
}

void Put(zendara_variant& variant, const Value& value) {
  zendara_variant_clear(&variant);
  if (value.IsNull()) {
    variant.type = ZENDARA_NULL;
  } else if (value.IsText()) {
    GiveText(&variant.value.text, value.Text());
    variant.type = ZENDARA_TEXT;
  } else if (value.IsDate()) {
    variant.type = ZENDARA_DATE;
    variant.value.date = value.AsDate().serial;
  } else {
    variant.type = ZENDARA_R8;
    variant.value.r8 = value.Number();
  }
}

void PutLong(zendara_variant& variant, std::int64_t number) {
  if (number > std::numeric_limits<std::int32_t>::max()) return Put(variant, static_cast<double>(number));
  zendara_variant_clear(&variant);
  variant.type = ZENDARA_I4;
  variant.value.i4 = static_cast<std::int32_t>(number);
}

void PutBoolean(zendara_variant& variant, bool value) {
  zendara_variant_clear(&variant);
  variant.type = ZENDARA_BOOL;
  variant.value.boolean = value ? -1 : 0;
}

void PutObject(zendara_variant& variant, void* object) {
  zendara_variant_clear(&variant);
  variant.type = ZENDARA_OBJECT;
  variant.value.object = static_cast<zendara_unknown*>(object);
}

zendara_array& PutArray(zendara_variant& variant, std::int32_t lower_bound, std::uint32_t count) {
  zendara_variant_clear(&variant);
  auto* array = static_cast<zendara_array*>(GiveMemory(sizeof(zendara_array)));
  *array = {lower_bound, 0, nullptr};
  variant.type = ZENDARA_ARRAY;
  variant.value.array = array;
  array->items = static_cast<zendara_variant*>(GiveMemory(count * sizeof(zendara_variant)));
  array->count = count;
  for (std::uint32_t i = 0; i < count; ++i) array->items[i] = {};
  return *array;
}

}  // namespace zendara

extern "C" {

void zendara_variant_clear(zendara_variant* value) {
  if (!value) return;
  const zendara_variant old = *value;
  *value = {};
  switch (old.type) {
    case ZENDARA_TEXT:
      zendara_free(old.value.text);
      break;
    case ZENDARA_OBJECT:
      zendara_release(old.value.object);
      break;
    case ZENDARA_ARRAY:
      if (!old.value.array) break;
      for (uint32_t i = 0; i < old.value.array->count; ++i) zendara_variant_clear(&old.value.array->items[i]);
      zendara_free(old.value.array->items);
      zendara_free(old.value.array);
      break;
    default:
      break;
  }
}

zendara_result zendara_variant_set_text(zendara_variant* value, const char* utf8) {
  return zendara::Answer([&] {
    zendara_variant_clear(&zendara::Needed(value));
    zendara::Put(*value, zendara::TakeTextOrEmpty(utf8));
  });
}

zendara_result zendara_variant_set_i2(zendara_variant* value, int16_t number) {
  return zendara::Answer([&] {
    zendara_variant_clear(&zendara::Needed(value));
    value->type = ZENDARA_I2;
    value->value.i2 = number;
  });
}

zendara_result zendara_variant_set_date(zendara_variant* value, double serial) {
  return zendara::Answer([&] {
    zendara_variant_clear(&zendara::Needed(value));
    const zendara_variant date = {.type = ZENDARA_DATE, .reserved = {}, .value = {.date = serial}};
    zendara::ToValue(date);
    *value = date;
  });
}

zendara_result zendara_variant_set_object(zendara_variant* value, void* object) {
  return zendara::Answer([&] {
    zendara::Needed(value);
    auto* unknown = static_cast<zendara_unknown*>(object);
    // First, as the variant may hold the last count of it.
    if (unknown) unknown->table->AddRef(unknown);
    zendara::PutObject(*value, unknown);
  });
}
}
