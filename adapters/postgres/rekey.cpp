// Sort keys made anew, when this program's collator is of another version than those of the server.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/new_rows.hpp"
#include "adapters/postgres/server.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace postgres {
namespace {

constexpr std::size_t kRows = 1000;  // at a time
// In the place of a version, while there are keys of two: no program opens a file then.
constexpr std::string_view kBeingMade = "being made";

using Progress = std::function<void(std::int64_t rows)>;

class KeyMaker {
 public:
  KeyMaker(Link& link, const SpanishOrder& order, const Relation& relation)
      : link_(link), order_(order), relation_(relation) {
    for (std::size_t i = 0; i < relation_.keys.size(); ++i) {
      if (!relation_.keys[i].empty()) keyed_.push_back(i);
    }
  }

  // In one transaction. The indexes are made again afterwards, so that new keys never meet old ones there.
  void Run(const Progress& progress) {
    if (keyed_.empty()) return;
    link_.Begin();
    try {
      for (const std::string& index : relation_.IndexNames()) link_.RunOnce("DROP INDEX " + index);
      std::string file;
      std::int64_t row = 0;
      while (Batch(file, row, progress)) {
      }
      const std::vector<std::string> creation = relation_.Creation();
      for (std::size_t i = 1; i < creation.size(); ++i) link_.RunOnce(creation[i]);
      link_.Commit();
    } catch (...) {
      if (link_.InTransaction()) link_.Rollback();
      throw;
    }
  }

 private:
  std::string Select() const {
    const std::string place = std::string(kFileColumn) + ", " + std::string(kRowColumn);
    std::string text = "SELECT " + place;
    for (const std::size_t i : keyed_) text += ", " + relation_.columns[i];
    return text + " FROM " + relation_.name + " WHERE (" + place + ") > ($1, $2) ORDER BY " + place + " LIMIT " +
           std::to_string(kRows);
  }

  std::string Update() const {
    std::string set;
    std::string names = "f, r";
    std::string arrays = "$1::text[], $2::bigint[]";
    for (std::size_t i = 0; i < keyed_.size(); ++i) {
      const std::string key = "k" + std::to_string(i);
      set += (i == 0 ? "" : ", ") + relation_.keys[keyed_[i]] + " = made." + key;
      names += ", " + key;
      arrays += ", $" + std::to_string(i + 3) + "::bytea[]";
    }
    return "UPDATE " + relation_.name + " SET " + set + " FROM unnest(" + arrays + ") AS made (" + names + ") WHERE " +
           std::string(kFileColumn) + " = made.f AND " + std::string(kRowColumn) + " = made.r";
  }

  // False behind the last row.
  bool Batch(std::string& file, std::int64_t& row, const Progress& progress) {
    const Answer rows = link_.Run(Select(), Parameters().Text(file).Integer(row));
    const int count = rows.Rows();
    if (count == 0) return false;
    const auto size = static_cast<std::size_t>(count);
    Parameters parameters;
    parameters.BeginArray(Parameters::Kind::kText, size);
    for (int i = 0; i < count; ++i) parameters.Text(rows.Bytes(i, 0));
    parameters.BeginArray(Parameters::Kind::kInteger, size);
    for (int i = 0; i < count; ++i) parameters.Integer(rows.Integer(i, 1));
    for (std::size_t k = 0; k < keyed_.size(); ++k) {
      const ColumnType type = relation_.definition.columns[keyed_[k]].type;
      parameters.BeginArray(Parameters::Kind::kBytes, size);
      for (int i = 0; i < count; ++i) BindKey(rows.Read(i, 2 + static_cast<int>(k), type), order_, parameters);
    }
    link_.Run(Update(), parameters);
    file = rows.Bytes(count - 1, 0);
    row = rows.Integer(count - 1, 1);
    if (progress) progress(count);
    return true;
  }

  Link& link_;
  const SpanishOrder& order_;
  const Relation& relation_;
  std::vector<std::size_t> keyed_;  // columns with a key
};

// One definition of each relation: those that share one have the same keys.
std::vector<Relation> RelationsOf(Link& link) {
  const Answer known = link.Run("SELECT DISTINCT ON (relation) relation, definition FROM zendara_tables");
  std::vector<Relation> relations;
  for (int i = 0; i < known.Rows(); ++i) relations.emplace_back(ReadDefinition(known.Bytes(i, 1)), known.Bytes(i, 0));
  return relations;
}

}  // namespace
}  // namespace postgres

void MakeSortKeys(std::string_view conninfo, const std::function<void(std::int64_t rows)>& progress) {
  using namespace postgres;
  const Conninfo place(conninfo, Access::kWrite);
  const Link::Greeting greeting = [](Link&) {};
  Link link(place, greeting);
  const SpanishOrder order;
  if (link.Run("SELECT pg_try_advisory_lock(" + Server::LockOfStore() + ")").Integer(0, 0) == 0) {
    throw RuntimeError(kFileInUse, {place.Name()}, "another program is connected");
  }
  std::int64_t rows = 0;
  const auto count = [&](std::int64_t more) {
    rows += more;
    if (progress) progress(rows);
  };
  link.Run("UPDATE zendara_store SET keys = $1", Parameters().Text(kBeingMade));
  for (const Relation& relation : RelationsOf(link)) KeyMaker(link, order, relation).Run(count);
  link.Run("UPDATE zendara_store SET keys = $1", Parameters().Text(order.KeyVersion()));
}

}  // namespace zendara
