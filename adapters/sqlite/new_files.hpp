// New files of a folder: made in a hidden folder inside of it, and named in it when all are whole.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/host/staging_folder.hpp"
#include "adapters/sqlite/connection.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::sqlite {

class FilesTogether final : public NewFiles {
 public:
  FilesTogether(std::string_view folder, std::shared_ptr<const SpanishOrder> order);
  ~FilesTogether() override;
  FilesTogether(const FilesTogether&) = delete;
  FilesTogether& operator=(const FilesTogether&) = delete;

  std::shared_ptr<Database> Create(std::string_view name, const std::vector<TableDef>& tables) override;
  void Put(std::string_view name, std::string_view bytes) override;
  void Publish() override;

 private:
  struct Made {
    std::shared_ptr<Database> database;
    std::shared_ptr<Connection> connection;
  };

  void MakeFolders();
  void RefuseTaken(std::string_view name) const;
  void Remove() noexcept;

  std::filesystem::path folder_;
  std::shared_ptr<const SpanishOrder> order_;
  std::vector<std::filesystem::path> made_folders_;  // outermost first
  std::optional<StagingFolder> staging_;
  std::vector<std::string> names_;
  std::vector<Made> made_;
};

}  // namespace zendara::sqlite
