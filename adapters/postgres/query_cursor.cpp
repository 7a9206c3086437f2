#include "adapters/postgres/query_cursor.hpp"

#include <exception>
#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/prepared_query.hpp"
#include "adapters/postgres/rows_aside.hpp"
#include "adapters/postgres/sort_key.hpp"
#include "platform/sql/alternatives.hpp"
#include "platform/sql/implied.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

// What the server takes: the parameters of a statement, and the columns of a row with those that it is sorted by.
constexpr std::size_t kMaxParameters = 65535;
constexpr std::size_t kMaxColumns = 1664;

void RequireAtMost(std::size_t count, std::size_t limit, const sql::Tokens& tokens) {
  if (count > limit) sql::FailSyntax(tokens.sql, sql::kTooComplex);
}

Parameters Bind(OpenFile& file, const std::vector<Argument>& arguments, const std::vector<Value>& literals) {
  Parameters parameters;
  parameters.Text(file.name());
  for (const auto& [literal, key] : arguments) {
    const Value& value = literals[static_cast<std::size_t>(literal.number) - 1];
    if (key) {
      parameters.Bytes(SortKey(value, file.server().order()));
    } else {
      parameters.Stored(value, literal.type);
    }
  }
  return parameters;
}

std::shared_ptr<PreparedQuery> Prepare(OpenFile& file, const sql::Tokens& tokens) {
  ServerDialect dialect(file);
  sql::Select select = ParseSelect(tokens, dialect.Tables());
  AddImpliedKeys(select);
  JoinAlternatives(select.where);
  sql::Printed printed = Print(select, dialect);
  RequireAtMost(dialect.Arguments().size() + 1, kMaxParameters, tokens);
  RequireAtMost(select.items.size() + select.group_by.size() + select.order_by.size(), kMaxColumns, tokens);
  auto query = std::make_shared<PreparedQuery>();
  for (const sql::SelectItem& item : select.items) query->columns.push_back(item.column);
  query->text = std::move(printed.text);
  query->arguments = dialect.Arguments();
  query->relations = dialect.Relations();
  return query;
}

// Takes the rows from the connection, and then those that were put aside when somebody else needed it. The row on which
// it stands is its own, so nobody has to keep it before.
class Cursor final : public QueryCursor, private Reader {
 public:
  Cursor(std::shared_ptr<OpenFile> file, std::shared_ptr<const PreparedQuery> query, const Parameters& parameters)
      : file_(std::move(file)), query_(std::move(query)), link_(&file_->ReachFor(query_->relations)) {
    link_->Allow(Link::Plans::kAny);
    link_->Start(query_->text, parameters, *this, Link::Rows::kOneByOne);
  }

  ~Cursor() override {
    if (link_) link_->Leave(*this);
  }

  const std::vector<ColumnDef>& Columns() const override { return query_->columns; }

  bool Step() override {
    row_ = {};
    try {
      if (!link_) {
        row_ = aside_.Take();
      } else if (!link_->Next(*this)) {
        link_ = nullptr;
      }
    } catch (...) {
      link_ = nullptr;
      aside_ = {};
      fault_ = std::current_exception();
    }
    if (!row_ && fault_) std::rethrow_exception(fault_);
    return static_cast<bool>(row_);
  }

  Value Column(int ordinal) const override {
    if (!row_) throw RuntimeError(kNoCurrentRecord);
    return row_.Read(0, ordinal, query_->columns[static_cast<std::size_t>(ordinal)].type);
  }

 private:
  void Hurry() override { link_ = nullptr; }

  void Arrived(Answer rows) override {
    if (link_) {
      row_ = std::move(rows);
      return;
    }
    // Somebody else waits, who is not to suffer from a fault of this reading.
    try {
      if (!fault_) aside_.Put(rows);
    } catch (...) {
      fault_ = std::current_exception();
    }
  }

  void Failed(std::exception_ptr error) override {
    if (!fault_) fault_ = error;
  }

  std::shared_ptr<OpenFile> file_;
  std::shared_ptr<const PreparedQuery> query_;
  Link* link_;  // as long as it has rows that did not arrive
  Answer row_;
  RowsAside aside_;
  std::exception_ptr fault_;  // what ended the reading: it is raised behind the last row that there is
};

}  // namespace

std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<OpenFile> file, std::string_view sql, YearWindow window) {
  const sql::Tokens tokens = sql::Tokenize(sql, window);
  auto& queries = file->server().queries();
  const std::string key = tokens.shape + NumbersText(file->tables());
  auto query = queries.Find(key);
  if (!query) {
    query = Prepare(*file, tokens);
    // The text may have brought tables into sight that were not when the key was made.
    queries.Keep(tokens.shape + NumbersText(file->tables()), query);
  }
  const Parameters parameters = Bind(*file, query->arguments, tokens.literals);
  return std::make_unique<Cursor>(std::move(file), std::move(query), parameters);
}

void RunDelete(OpenFile& file, std::string_view sql, YearWindow window) {
  const sql::Tokens tokens = sql::Tokenize(sql, window);
  ServerDialect dialect(file);
  sql::Delete parsed = ParseDelete(tokens, dialect.Tables());
  JoinAlternatives(parsed.where);
  const sql::Printed printed = Print(parsed, dialect);
  RequireAtMost(dialect.Arguments().size() + 1, kMaxParameters, tokens);
  file.server().RequireWrites();
  const Parameters parameters = Bind(file, dialect.Arguments(), tokens.literals);
  Link& link = file.Reach();
  link.Allow(Link::Plans::kAny);
  try {
    link.AsOne([&] { link.RunOnce(printed.text, parameters); });
    file.server().Changed();
  } catch (const RuntimeError& error) {
    file.server().Changed();
    if (file.InTransaction() || !link.AnswerWasLost()) throw;
    throw RuntimeError(kOutcomeUnknown, {}, error.detail());
  }
}

}  // namespace zendara::postgres
