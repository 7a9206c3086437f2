#include "adapters/postgres/new_files.hpp"

#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/open_file.hpp"
#include "adapters/postgres/workspace.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

[[noreturn]] void FailTaken(const std::string& name) { throw RuntimeError(kObjectExists, {name}, name); }

// Others who make a file of the same name wait for the end of this transaction, so a name that was free stays so.
class MadeTogether final : public NewFiles {
 public:
  explicit MadeTogether(std::shared_ptr<Server> server) : server_(std::move(server)) {
    server_->EnsureTables({});
    link_ = server_->Take();
    link_->Begin();
  }

  ~MadeTogether() override {
    for (const auto& file : files_) file->Detach();
    if (!link_) return;
    link_->Rollback();
    server_->GiveBack(std::move(link_));
  }

  std::shared_ptr<Database> Create(std::string_view name, const std::vector<TableDef>& tables) override {
    const std::vector<int> numbers = server_->EnsureTables(tables);
    RequireFree(name);
    AddFile(*link_, NameOf(name), numbers);
    files_.push_back(std::make_shared<OpenFile>(server_, FileOf(name), numbers, link_.get()));
    return MakeDatabase(files_.back(), name);
  }

  void Put(std::string_view name, std::string_view bytes) override {
    RequireFree(name);
    const Answer added =
        link_->Run("INSERT INTO zendara_beside (zendara_file, name, bytes) VALUES ($1, $2, $3) ON CONFLICT DO NOTHING",
                   Parameters().Text(FileOf(name)).Text(NameOf(name)).Bytes(bytes));
    if (added.Affected() == 0) FailTaken(NameOf(name));
  }

  void Publish() override {
    for (const auto& file : files_) file->Reach();  // the last rows
    for (const auto& file : files_) file->Detach();
    link_->Commit();
    try {
      for (const auto& file : files_) file->RefreshFigures(*link_);
    } catch (const RuntimeError&) {
      // The files are there all the same.
    }
    server_->GiveBack(std::move(link_));
  }

 private:
  void RequireFree(std::string_view name) {
    const Answer taken = link_->Run(
        "SELECT name FROM zendara_files WHERE zendara_file = $1 UNION ALL SELECT name FROM zendara_beside WHERE "
        "zendara_file = $1",
        Parameters().Text(FileOf(name)));
    if (taken.Rows() > 0) FailTaken(std::string(taken.Bytes(0, 0)));
  }

  std::shared_ptr<Server> server_;
  std::unique_ptr<Link> link_;  // none once it is published
  std::vector<std::shared_ptr<OpenFile>> files_;
};

}  // namespace

std::unique_ptr<NewFiles> MakeNewFiles(std::shared_ptr<Server> server) {
  return std::make_unique<MadeTogether>(std::move(server));
}

void AddFile(Link& link, const std::string& name, const std::vector<int>& tables) {
  const Answer added = link.Run(
      "INSERT INTO zendara_files (zendara_file, name, tables) VALUES ($1, $2, ('{' || $3 || '}')::integer[]) "
      "ON CONFLICT DO NOTHING",
      Parameters().Text(FileOf(name)).Text(name).Text(NumbersText(tables)));
  if (added.Affected() == 0) FailTaken(name);
}

}  // namespace zendara::postgres
