// What every result of a query answers alike: it has no index and takes no changes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zendara/record_engine.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

class ReadOnlyRecordset : public Recordset {
 public:
  std::string Index() const override { return RequireOpen(), std::string(); }
  void SetIndex(std::string_view) override { Refuse(kNoActiveIndex); }
  void Seek(const std::vector<Value>&) override { Refuse(kNoActiveIndex); }
  bool NoMatch() const override { return RequireOpen(), false; }

  void AddNew() override { Refuse(kReadOnly); }
  void Edit() override { Refuse(kReadOnly); }
  void Update() override { Refuse(kUpdateWithoutEdit); }
  void CancelUpdate() override { Refuse(kUpdateWithoutEdit); }
  void Delete() override { Refuse(kReadOnly); }

 protected:
  [[noreturn]] void Refuse(int number) const {
    RequireOpen();
    throw RuntimeError(number);
  }

 private:
  // Error 3420 once it is closed.
  virtual void RequireOpen() const = 0;
  void SetColumn(int, const Value&) override { Refuse(kUpdateWithoutEdit); }
};

}  // namespace zendara
