#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/company_data.hpp"
#include "apps/zendara/commands/table_copy.hpp"
#include "frame/parametros.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Tables of general files that have a row of each company, with its code first.
constexpr const char* kCompanyTables[] = {"EmpresasNom", "Empresas"};

struct CopiedFile {
  std::string name;
  bool database = true;
  bool general = false;    // it may have such tables
  bool stays = false;      // the target has it already
  std::int64_t added = 0;  // rows, to one that stays
};

// Rows that were added to a file, until they are committed.
struct Pending {
  explicit Pending(std::shared_ptr<Database> file) : database(std::move(file)), transaction(*database) {}

  std::shared_ptr<Database> database;
  Transaction transaction;
};

class CompanyCopy {
 public:
  CompanyCopy(const CopyOptions& options, Console& console)
      : code_(options.company),
        from_({.place = options.from, .company = code_, .year = {}, .access = Access::kRead}),
        to_({.place = options.to, .company = code_, .year = {}}),
        console_(console) {}

  void ListFiles();
  void Write();
  // Reads all again, and prints what was found.
  void Compare();

 private:
  void List(CopiedFile file, bool own);
  void CopyRows(NewFiles& files);
  std::vector<std::unique_ptr<Pending>> EnterCompany();
  void CompareDatabase(const CopiedFile& file);
  void CompareBytes(const CopiedFile& file);
  [[noreturn]] void FailTaken(const std::string& file) const {
    throw CommandError("there is a company " + code_ + " in " + to_.store().folder + " already: " + file +
                       " exists, nothing was written");
  }

  const std::string code_;
  const CompanyData from_;
  const CompanyData to_;
  Console& console_;
  std::vector<CopiedFile> files_;  // in the order of making: the company's own one last, since it shows by that
};

void CompanyCopy::ListFiles() {
  console_.Doing("looking for company " + code_);
  const std::string own = FileName(FileKind::kCompany, code_, {});
  if (!from_.Has(own)) {
    throw CommandError("there is no company " + code_ + " in " + from_.store().folder + ": " + own + " is missing");
  }
  std::vector<std::string> years;
  for (int number = 0; number < 100; ++number) {
    const std::string year = {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
    const std::string name = FileName(FileKind::kYear, code_, year);
    if (from_.Has(name)) {
      years.push_back(year);
    } else if (to_.Has(name)) {
      FailTaken(name);
    }
  }
  for (const ParameterFile& file : kParameterFiles) List({std::string(file.name), false}, false);
  for (const FileKind kind : {FileKind::kEmpresa, FileKind::kEmpresas})
    List({FileName(kind, {}, {}), true, true}, false);
  for (const std::string& year : years) {
    for (const FileKind kind : {FileKind::kOfficial, FileKind::kTaxReturns, FileKind::kYear}) {
      List({FileName(kind, code_, year)}, kind == FileKind::kYear);
    }
  }
  for (const FileKind kind : {FileKind::kDocuments, FileKind::kCompany}) List({FileName(kind, code_, {})}, true);
}

void CompanyCopy::List(CopiedFile file, bool own) {
  file.stays = to_.Has(file.name);
  if (own && file.stays) FailTaken(file.name);
  if (from_.Has(file.name)) return files_.push_back(std::move(file));
  console_.Out(file.name + ": is missing, not copied\n");
}

void CompanyCopy::Write() {
  console_.Doing("creating files in " + DataFolder(to_.store()));
  try {
    const std::unique_ptr<NewFiles> files = to_.workspace()->CreateFiles(DataFolder(to_.store()));
    CopyRows(*files);
    const auto entered = EnterCompany();
    console_.Doing("naming the files in " + DataFolder(to_.store()));
    files->Publish();
    console_.Doing("entering the company in the general tables");
    for (const auto& pending : entered) pending->transaction.Commit();
  } catch (const RuntimeError& error) {
    if (error.number() != kObjectExists) throw;
    FailTaken(error.detail());
  }
}

// All are made before a row is copied, since a name may be taken.
void CompanyCopy::CopyRows(NewFiles& files) {
  struct Pair {
    const std::string& name;
    std::shared_ptr<Database> from, to;
  };
  std::vector<Pair> databases;
  for (const CopiedFile& file : files_) {
    if (file.stays) continue;
    if (file.database) {
      const auto from = from_.Open(file.name, console_);
      databases.push_back({file.name, from, files.Create(file.name, from->Tables())});
    } else {
      files.Put(file.name, from_.Read(file.name, console_));
    }
  }
  for (const Pair& pair : databases) CopyAll({pair.name, *pair.from, *pair.to}, console_);
}

std::vector<std::unique_ptr<Pending>> CompanyCopy::EnterCompany() {
  std::vector<std::unique_ptr<Pending>> entered;
  for (CopiedFile& file : files_) {
    if (!file.stays || !file.general) continue;
    const auto from = from_.Open(file.name, console_);
    entered.push_back(std::make_unique<Pending>(to_.Open(file.name, console_)));
    const DatabasePair pair{file.name, *from, *entered.back()->database};
    for (const char* table : kCompanyTables) file.added += CopyMissing(pair, table, code_, console_);
  }
  return entered;
}

void CompanyCopy::Compare() {
  for (const CopiedFile& file : files_) file.database ? CompareDatabase(file) : CompareBytes(file);
}

void CompanyCopy::CompareDatabase(const CopiedFile& file) {
  const auto from = from_.Open(file.name, console_);
  const auto to = to_.Open(file.name, console_);
  const DatabasePair pair{file.name, *from, *to};
  if (file.stays) {
    const std::string added = file.added ? ", " + RowsText(file.added) + " added" : "";
    console_.Out(file.name + ": was there" + added + "\n" + Differences(pair, console_));
  } else {
    const std::int64_t rows = CompareAll(pair, console_);
    console_.Out(file.name + ": " + std::to_string(from->Tables().size()) + " tables, " + RowsText(rows) + "\n");
  }
}

void CompanyCopy::CompareBytes(const CopiedFile& file) {
  const std::string bytes = from_.Read(file.name, console_);
  const bool same = bytes == to_.Read(file.name, console_);
  if (file.stays) {
    console_.Out(file.name + ": was there" + (same ? "\n" : ", with other bytes\n"));
  } else if (same) {
    console_.Out(file.name + ": " + std::to_string(bytes.size()) + " bytes\n");
  } else {
    throw CommandError(file.name + ": the bytes are others than those that were read");
  }
}

}  // namespace

int DataCopy(const CopyOptions& options, Console& console) {
  CompanyCopy copy(options, console);
  copy.ListFiles();
  copy.Write();
  copy.Compare();
  return 0;
}

}  // namespace zendara
