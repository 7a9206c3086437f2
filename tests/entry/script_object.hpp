// An object of a script language: it answers to calls by name with functions, and is counted.
#pragma once

#include <strings.h>

#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/entry/variant.hpp"
#include "zendara/zendara.h"

namespace zendara {

class ScriptObject {
 public:
  using Member = std::function<zendara_result(std::uint32_t use, zendara_variant* arguments, std::uint32_t count,
                                              zendara_variant* result)>;

  explicit ScriptObject(std::vector<std::pair<std::string, Member>> members) : members_(std::move(members)) {}
  ScriptObject(const ScriptObject&) = delete;
  ScriptObject& operator=(const ScriptObject&) = delete;

  int Count() const { return count_; }
  void Add(const std::string& name, Member member) { members_.emplace_back(name, std::move(member)); }

 private:
  static ScriptObject& Self(void* self) { return *static_cast<ScriptObject*>(self); }
  static zendara_result QueryInterface(void* self, const zendara_guid* iid, void** object) {
    static constexpr zendara_guid kKnown[] = {ZENDARA_IID_UNKNOWN, ZENDARA_IID_DISPATCH};
    *object = nullptr;
    for (const zendara_guid& known : kKnown) {
      if (std::memcmp(iid, &known, sizeof known) == 0) *object = self;
    }
    if (!*object) return ZENDARA_NO_INTERFACE;
    AddRef(self);
    return ZENDARA_OK;
  }
  static std::uint32_t AddRef(void* self) { return static_cast<std::uint32_t>(++Self(self).count_); }
  static std::uint32_t Release(void* self) { return static_cast<std::uint32_t>(--Self(self).count_); }
  static zendara_result GetIDsOfNames(void* self, const char* const* names, std::uint32_t /*one*/, std::int32_t* ids) {
    const auto& members = Self(self).members_;
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (strcasecmp(members[i].first.c_str(), names[0]) != 0) continue;
      ids[0] = static_cast<std::int32_t>(i);
      return ZENDARA_OK;
    }
    return ZENDARA_NO_NAME;
  }
  static zendara_result Invoke(void* self, std::int32_t id, std::uint32_t use, zendara_variant* arguments,
                               std::uint32_t count, zendara_variant* result) {
    return Self(self).members_[static_cast<std::size_t>(id)].second(use, arguments, count, result);
  }

  static constexpr zendara_dispatch_table kTable = {QueryInterface, AddRef, Release, GetIDsOfNames, Invoke};

  const zendara_dispatch_table* table_ = &kTable;
  std::vector<std::pair<std::string, Member>> members_;
  int count_ = 1;
};

// An argument of a script's.
struct Argument : Variant {
  Argument() = default;
  Argument(const char* text) { zendara_variant_set_text(this, text); }
  Argument(int number) { PutLong(*this, number); }
  explicit Argument(void* object) { zendara_variant_set_object(this, object); }
  Argument(Argument&& other) noexcept : Variant() { std::swap<zendara_variant>(*this, other); }
  Argument& operator=(Argument&& other) noexcept {
    std::swap<zendara_variant>(*this, other);
    return *this;
  }
};

// A call as an interpreter makes it: "Name(1, 2)" with its result. `answer` is that of the call.
inline Argument CallByName(void* object, const char* member, std::vector<Argument> given = {},
                           std::uint32_t use = ZENDARA_METHOD | ZENDARA_GET, zendara_result* answer = nullptr) {
  std::vector<zendara_variant> arguments(given.begin(), given.end());
  Argument result;
  const zendara_result called =
      zendara_call(object, member, use, arguments.data(), static_cast<std::uint32_t>(arguments.size()), &result);
  if (answer) *answer = called;
  return result;
}

inline zendara_error LastError() {
  zendara_error error{sizeof error, 0, nullptr, nullptr};
  zendara_last_error(&error);
  return error;
}

}  // namespace zendara
