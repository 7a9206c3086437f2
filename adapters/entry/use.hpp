// Whether the library may leave memory, and which thread the component belongs to.
#pragma once

namespace zendara {

// Keeps the library in memory for as long as it lives, also when its host unloads it: a handle on itself is held until
// `NothingInUse` finds that nothing is in use any more.
class InUse {
 public:
  InUse() noexcept;
  ~InUse();
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;
};
bool NothingInUse() noexcept;

// Of the calling thread, from here on; of none.
void TakeThread() noexcept;
void LeaveThread() noexcept;
// True in the thread that has the component, and in any while none has it.
bool InThread() noexcept;

}  // namespace zendara
