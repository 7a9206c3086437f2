#include "adapters/postgres/beside_files.hpp"

#include <string>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/server.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

class FilesBeside final : public Files {
 public:
  explicit FilesBeside(std::string_view conninfo) : server_(conninfo, Access::kRead) {}

  bool Exists(std::string_view path) const override {
    return Ask("SELECT 1 FROM zendara_beside WHERE zendara_file = $1", path).Rows() > 0;
  }

  std::string ReadRecord(std::string_view path, std::size_t length) const override {
    const Answer found = Ask("SELECT bytes FROM zendara_beside WHERE zendara_file = $1", path);
    if (found.Rows() == 0) throw RuntimeError(kFileNotFound, {}, std::string(path) + " is not on the server");
    std::string record(found.Bytes(0, 0).substr(0, length));
    record.resize(length);
    return record;
  }

 private:
  Answer Ask(std::string_view question, std::string_view path) const {
    return server_.main().Run(question, Parameters().Text(FileOf(path)));
  }

  mutable Server server_;
};

}  // namespace

std::unique_ptr<Files> MakeFilesBeside(std::string_view conninfo) { return std::make_unique<FilesBeside>(conninfo); }

}  // namespace zendara::postgres
