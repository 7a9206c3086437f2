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
  void SetIndex(std::string_view) override { throw RuntimeError(kNoActiveIndex); }
  void Seek(const std::vector<Value>&) override { throw RuntimeError(kNoActiveIndex); }
  bool NoMatch() const override { return RequireOpen(), false; }

  void AddNew() override { throw RuntimeError(kReadOnly); }
  void Edit() override { throw RuntimeError(kReadOnly); }
  void Update() override { throw RuntimeError(kUpdateWithoutEdit); }
  void CancelUpdate() override { throw RuntimeError(kUpdateWithoutEdit); }
  void Delete() override { throw RuntimeError(kReadOnly); }

 private:
  // Error 3420 once it is closed.
  virtual void RequireOpen() const = 0;
  void SetColumn(int, const Value&) override { throw RuntimeError(kUpdateWithoutEdit); }
};

}  // namespace zendara
