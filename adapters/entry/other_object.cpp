#include "adapters/entry/other_object.hpp"

#include "adapters/entry/failure.hpp"
#include "adapters/plain_c/outside_call.hpp"

namespace zendara {
namespace {

zendara_dispatch* Dispatched(zendara_unknown& object) {
  static constexpr zendara_guid kId = ZENDARA_IID_DISPATCH;
  void* dispatch = nullptr;
  object.table->QueryInterface(&object, &kId, &dispatch);
  if (!dispatch) Refuse(ZENDARA_WRONG_TYPE, "an object does not answer to calls by name");
  return static_cast<zendara_dispatch*>(dispatch);
}

}  // namespace

OtherObject::OtherObject(zendara_unknown& object) : object_(Dispatched(object)) {}

OtherObject::~OtherObject() { zendara_release(object_); }

bool OtherObject::Call(const char* member, std::uint32_t use, zendara_variant* arguments, std::uint32_t count,
                       zendara_variant& result) const {
  std::int32_t id = -1;
  if (object_->table->GetIDsOfNames(object_, &member, 1, &id) < 0) return false;
  CallOutside(member, object_->table->Invoke, object_, id, use, arguments, count, &result);
  return true;
}

}  // namespace zendara

extern "C" {

zendara_result zendara_call(void* object, const char* member, uint32_t use, zendara_variant* arguments, uint32_t count,
                            zendara_variant* result) {
  using namespace zendara;
  return AnswerInThread([&]() -> zendara_result {
    Needed(static_cast<char*>(object), "an object is null");
    Needed(member, "a member without a name");
    static constexpr zendara_guid kId = ZENDARA_IID_DISPATCH;
    auto* unknown = static_cast<zendara_unknown*>(object);
    void* found = nullptr;
    if (unknown->table->QueryInterface(unknown, &kId, &found) < 0 || !found) {
      Refuse(ZENDARA_NO_INTERFACE, "an object does not answer to calls by name");
    }
    auto* dispatch = static_cast<zendara_dispatch*>(found);
    std::int32_t id = -1;
    zendara_result answer = dispatch->table->GetIDsOfNames(dispatch, &member, 1, &id);
    if (answer >= 0) answer = dispatch->table->Invoke(dispatch, id, use, arguments, count, result);
    dispatch->table->Release(dispatch);
    return answer;
  });
}
}
