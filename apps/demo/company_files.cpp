#include "apps/demo/company_files.hpp"

#include <algorithm>
#include <fstream>
#include <ranges>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "runtime/text.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDataFolder = "DATOS";

// Records that the screens read at their load; the listings know what stands in them.
constexpr std::pair<std::string_view, std::size_t> kParameterFiles[] = {
    {"IMPM1600.DAT", 256}, {"IMPM0999.DAT", 300}, {"NOM00997.DAT", 256}};

fs::path PathOf(std::string_view text) { return fs::path(std::u8string(text.begin(), text.end())); }
std::string TextOf(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// The entry of that name whatever its case; `folder` / `name` when there is none.
fs::path Entry(const fs::path& folder, std::string_view name) {
  std::error_code none;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, none))
    if (LCase(TextOf(entry.path().filename())) == LCase(name)) return entry.path();
  return folder / PathOf(name);
}

}  // namespace

CompanyFiles::CompanyFiles(Engine& engine, const std::string& folder, std::string_view code,
                           std::span<const std::string_view> years)
    : code_(code), folder_(PathOf(folder)) {
  for (const StoredFile& file : StoredFiles()) {
    for (const std::string_view year : years) {
      std::string name = FileName(file.kind, code_, year);
      if (std::ranges::find(names_, name) == names_.end()) names_.push_back(std::move(name));
    }
  }
  data_ = Entry(folder_, kDataFolder);
  RefuseExisting();
  try {
    CreateAll(engine, years);
  } catch (const fs::filesystem_error& error) {
    Remove();
    throw std::runtime_error("cannot write in " + folder + ": " + error.code().message());
  } catch (...) {
    Remove();
    throw;
  }
}

CompanyFiles::~CompanyFiles() {
  if (!finished_) Remove();
}

void CompanyFiles::RefuseExisting() const {
  const auto refuse = [&](std::string_view name) {
    const fs::path path = Entry(data_, name);
    std::error_code none;
    if (fs::exists(fs::symlink_status(path, none))) {
      throw std::runtime_error("there is a company already: " + TextOf(path) + " exists, nothing was written");
    }
  };
  for (const std::string& name : names_) refuse(name);
  for (const auto& [name, length] : kParameterFiles) refuse(name);
}

void CompanyFiles::CreateAll(Engine& engine, std::span<const std::string_view> years) {
  for (fs::path missing = fs::absolute(folder_); !missing.empty() && !fs::exists(missing);
       missing = missing.parent_path()) {
    made_folders_.insert(made_folders_.begin(), missing);
  }
  fs::create_directories(folder_);
  for (int i = 1; staging_.empty(); ++i) {
    const fs::path candidate = folder_ / PathOf("DATOS.new" + std::to_string(i));
    if (fs::create_directory(candidate)) staging_ = candidate;
  }
  const std::shared_ptr<Workspace> workspace = engine.Workspaces(0);
  for (const StoredFile& file : StoredFiles()) {
    for (const std::string_view year : years) {
      const std::string name = FileName(file.kind, code_, year);
      if (open_.contains(name)) continue;
      const std::shared_ptr<Database> database = workspace->CreateDatabase(TextOf(staging_ / PathOf(name)));
      open_[name] = database;
      database->BeginTrans();
      for (const TableDef& table : file.tables) database->CreateTable(table);
    }
  }
  for (const auto& [name, length] : kParameterFiles) {
    std::ofstream out(staging_ / PathOf(name), std::ios::binary);
    out << std::string(length, ' ');
    if (!out.flush()) throw std::runtime_error("cannot write " + TextOf(staging_ / PathOf(name)));
  }
}

Database& CompanyFiles::Of(FileKind kind, std::string_view year) { return *open_.at(FileName(kind, code_, year)); }

void CompanyFiles::Finish() {
  for (auto& [name, database] : open_) {
    database->CommitTrans();
    database->Close();
  }
  open_.clear();
  RefuseExisting();  // somebody may have been quicker
  try {
    fs::create_directories(data_);
    for (const fs::directory_entry& entry : fs::directory_iterator(staging_)) {
      const fs::path target = data_ / entry.path().filename();
      fs::rename(entry.path(), target);
      moved_.push_back(target);
    }
    fs::remove(staging_);
  } catch (const fs::filesystem_error& error) {
    throw std::runtime_error("cannot write in " + TextOf(data_) + ": " + error.code().message());
  }
  finished_ = true;
}

void CompanyFiles::Remove() noexcept {
  open_.clear();  // undoes what is pending
  std::error_code none;
  for (const fs::path& path : moved_) fs::remove(path, none);
  if (!staging_.empty()) fs::remove_all(staging_, none);
  // Those that were made here, unless something else has come into them.
  for (const fs::path& folder : std::views::reverse(made_folders_)) fs::remove(folder, none);
}

}  // namespace zendara
