// An object of somebody else's that answers to calls by name.
#pragma once

#include <string_view>

#include "adapters/entry/variant.hpp"
#include "zendara/zendara.h"

namespace zendara {

class OtherObject {
 public:
  // Counts it. Refused: ZENDARA_WRONG_TYPE for one that answers to no calls by name.
  explicit OtherObject(zendara_unknown& object);
  ~OtherObject();
  OtherObject(const OtherObject&) = delete;
  OtherObject& operator=(const OtherObject&) = delete;

  // False when it has no such member, and nothing was called. Its failures are run-time errors: that of
  // zendara_set_error, otherwise 51.
  bool Call(const char* member, std::uint32_t use, zendara_variant* arguments, std::uint32_t count,
            zendara_variant& result) const;

 private:
  zendara_dispatch* object_;
};

}  // namespace zendara
