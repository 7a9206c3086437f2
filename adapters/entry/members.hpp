// Calls by name, from a table of members for each class.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "adapters/entry/failure.hpp"
#include "adapters/entry/object.hpp"
#include "adapters/entry/text.hpp"
#include "adapters/entry/variant.hpp"
#include "runtime/text.hpp"

namespace zendara {

// The arguments of a call, in their order.
class Arguments {
 public:
  Arguments(const zendara_variant* items, std::uint32_t count) : items_(items), count_(count) {}

  std::uint32_t Count() const { return count_; }
  const zendara_variant& operator[](std::uint32_t index) const { return items_[index]; }
  std::string Text(std::uint32_t index) const { return ToText(items_[index]); }
  std::int32_t Long(std::uint32_t index) const { return ToLong(items_[index]); }
  // Left out, or empty.
  bool Lacks(std::uint32_t index) const { return index >= count_ || IsNothing(Meant(items_[index])); }
  zendara_unknown& AnyObject(std::uint32_t index) const {
    const zendara_variant& meant = Meant(items_[index]);
    if (meant.type != ZENDARA_OBJECT || !meant.value.object) Refuse(ZENDARA_WRONG_TYPE, "an argument is no object");
    return *meant.value.object;
  }
  // An object of the library's.
  template <typename T>
  T& Own(std::uint32_t index) const {
    auto* object = dynamic_cast<T*>(OwnObject(&AnyObject(index)));
    if (!object) Refuse(ZENDARA_WRONG_TYPE, "an argument is an object of another class");
    return *object;
  }

 private:
  const zendara_variant* items_;
  std::uint32_t count_;
};

inline constexpr std::uint32_t kAnyNumber = UINT32_MAX;

// A row for each use of a member; its number is that of the first row of its name, from 1.
template <typename T>
struct Member {
  std::string_view name;
  std::uint32_t use;
  std::uint32_t least, most;  // arguments
  void (*run)(T& self, const Arguments& arguments, zendara_variant& result);
};

// An object whose members stand in T::kMembers.
template <typename T>
class Named : public Object {
 public:
  zendara_result GetIDsOfNames(const char* const* names, std::uint32_t count, std::int32_t* ids) noexcept final {
    return Answer([&] {
      if (count == 0) return;
      Needed(names);
      Needed(ids);
      bool all = true;
      for (std::uint32_t i = 0; i < count; ++i) {
        ids[i] = names[i] ? NumberOf(names[i]) : -1;
        all = all && ids[i] != -1;
      }
      if (!all) Refuse(ZENDARA_NO_NAME, "the object has no member of that name");
    });
  }

  zendara_result Invoke(std::int32_t id, std::uint32_t use, zendara_variant* arguments, std::uint32_t count,
                        zendara_variant* result) noexcept final {
    const zendara_result answer = AnswerInThread([&] {
      zendara_variant_clear(result);
      if (count != 0) Needed(arguments, "a call without its arguments");
      const Member<T>& member = Find(id, use);
      if (count < member.least || count > member.most) Refuse(ZENDARA_WRONG_COUNT, "too many or too few arguments");
      // Nobody takes it away while it runs.
      const auto self = Counted<Named>::OneMore(*this);
      Variant dropped;
      member.run(static_cast<T&>(*this), Arguments(arguments, count), result ? *result : dropped);
    });
    return answer == ZENDARA_FAILED ? ZENDARA_EXCEPTION : answer;
  }

 private:
  static std::int32_t NumberOf(std::string_view name) {
    std::int32_t number = 1;
    for (const Member<T>& member : T::Members()) {
      if (UCase(member.name) == UCase(name)) return number;
      ++number;
    }
    return -1;
  }
  static const Member<T>& Find(std::int32_t id, std::uint32_t use) {
    const std::span<const Member<T>> members = T::Members();
    if (id > 0 && static_cast<std::size_t>(id) <= members.size()) {
      const std::string_view name = members[static_cast<std::size_t>(id) - 1].name;
      for (const Member<T>& member : members) {
        if (member.name == name && (member.use & use) != 0) return member;
      }
    }
    Refuse(ZENDARA_NO_MEMBER, "the object has no member of that number and use");
  }
};

}  // namespace zendara
