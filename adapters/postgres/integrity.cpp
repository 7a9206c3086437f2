#include "adapters/postgres/integrity.hpp"

#include "adapters/postgres/sort_key.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

constexpr std::size_t kRows = 1000;  // read at a time

class Check {
 public:
  Check(OpenFile& file, const Relation& relation, std::vector<std::string>& faults)
      : file_(file), relation_(relation), faults_(faults) {}

  void Run() {
    if (!IsThere()) return Report("its relation " + relation_.name + " is missing");
    CheckIndexes();
    CheckKeys();
  }

 private:
  void Report(const std::string& fault) { faults_.push_back(relation_.definition.name + ": " + fault); }

  Parameters OfRelation() const { return Parameters().Text(relation_.name); }

  bool IsThere() { return file_.Reach().Run("SELECT to_regclass($1) IS NOT NULL", OfRelation()).Integer(0, 0) != 0; }

  void CheckIndexes() {
    const Answer indexes = file_.Reach().Run(
        "SELECT indexrelid::regclass::text, indisvalid AND indisready FROM pg_index WHERE indrelid = $1::regclass",
        OfRelation());
    for (int row = 0; row < indexes.Rows(); ++row) {
      if (indexes.Integer(row, 1) == 0) Report("index " + std::string(indexes.Bytes(row, 0)) + " is not usable");
    }
    const std::size_t wanted = relation_.definition.indexes.size() + 1;  // and that of the row numbers
    const auto there = static_cast<std::size_t>(indexes.Rows());
    if (there < wanted) Report(std::to_string(wanted - there) + " of its indexes missing");
  }

  // A key that is not that of its value hides the row from look-ups.
  void CheckKeys() {
    std::string columns;
    std::vector<std::size_t> keyed;
    for (std::size_t i = 0; i < relation_.keys.size(); ++i) {
      if (relation_.keys[i].empty()) continue;
      keyed.push_back(i);
      columns += ", " + relation_.columns[i] + ", " + relation_.keys[i];
    }
    const std::string row_column(kRowColumn);
    const std::string question = "SELECT " + row_column + columns + " FROM " + relation_.name + " WHERE " +
                                 std::string(kFileColumn) + " = $1 AND " + row_column + " > $2 ORDER BY " + row_column +
                                 " LIMIT " + std::to_string(kRows);
    std::int64_t last = 0;
    std::int64_t wrong = 0;
    std::int64_t first_wrong = 0;
    for (bool more = true; more;) {
      const Answer rows = file_.Reach().Run(question, Parameters().Text(file_.name()).Integer(last));
      for (int row = 0; row < rows.Rows(); ++row) {
        last = rows.Integer(row, 0);
        if (KeysAreRight(rows, row, keyed)) continue;
        if (wrong++ == 0) first_wrong = last;
      }
      more = static_cast<std::size_t>(rows.Rows()) == kRows;
    }
    if (wrong > 0) {
      Report(std::to_string(wrong) + (wrong == 1 ? " row has" : " rows have") +
             " keys that are not those of the values, first row number " + std::to_string(first_wrong));
    }
  }

  bool KeysAreRight(const Answer& rows, int row, const std::vector<std::size_t>& keyed) {
    for (std::size_t i = 0; i < keyed.size(); ++i) {
      const int at = 1 + 2 * static_cast<int>(i);
      const Value value = rows.Read(row, at, relation_.definition.columns[keyed[i]].type);
      if (rows.IsNull(row, at + 1) != value.IsNull()) return false;
      if (rows.Bytes(row, at + 1) != SortKey(value, file_.server().order())) return false;
    }
    return true;
  }

  OpenFile& file_;
  const Relation& relation_;
  std::vector<std::string>& faults_;
};

}  // namespace

std::vector<std::string> FaultsOf(OpenFile& file) {
  std::vector<std::string> faults;
  for (const int table : file.tables()) Check(file, file.server().Table(table), faults).Run();
  return faults;
}

}  // namespace zendara::postgres
