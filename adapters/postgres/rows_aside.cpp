#include "adapters/postgres/rows_aside.hpp"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

constexpr std::size_t kMostInMemory = 1 << 20;
constexpr std::int32_t kNull = -1;

[[noreturn]] void FailAside(int error = errno) {
  const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
  throw RuntimeError(full ? kNoDiskSpace : kDeviceIoError, {},
                     "rows put aside: " + std::system_category().message(error), error);
}

std::FILE* OpenNameless() {
  std::error_code error;
  std::string path = std::filesystem::temp_directory_path(error) / "zendara-XXXXXX";
  if (error) FailAside(error.value());
  const int descriptor = mkostemp(path.data(), O_CLOEXEC);
  if (descriptor < 0) FailAside();
  unlink(path.c_str());
  std::FILE* file = fdopen(descriptor, "w+");
  if (!file) close(descriptor);
  return file;
}

PGresult* RowLike(const PGresult* other) {
  PGresult* row = PQcopyResult(other, PG_COPYRES_ATTRS);
  if (!row) throw std::bad_alloc();
  return row;
}

}  // namespace

void RowsAside::Put(const Answer& row) {
  if (!columns_) columns_.reset(RowLike(row.get()));
  if (memory_.size() >= kMostInMemory) Store();
  for (int column = 0; column < PQnfields(row.get()); ++column) {
    const std::string_view cell = row.Bytes(0, column);
    const std::int32_t length = row.IsNull(0, column) ? kNull : static_cast<std::int32_t>(cell.size());
    memory_.append(reinterpret_cast<const char*>(&length), sizeof length).append(cell);
  }
  ++in_memory_;
}

// What a failure leaves in the file is behind the rows that count.
void RowsAside::Store() {
  if (!file_) file_.reset(OpenNameless());
  if (!file_ || std::fwrite(memory_.data(), 1, memory_.size(), file_.get()) != memory_.size() ||
      std::fflush(file_.get()) != 0) {
    FailAside();
  }
  memory_.clear();
  in_file_ += std::exchange(in_memory_, 0);
}

Answer RowsAside::Take() {
  if (in_file_ == 0 && in_memory_ == 0) return {};
  if (!std::exchange(taking_, true) && file_) std::rewind(file_.get());
  Answer row(RowLike(columns_.get()));
  std::string cell;
  for (int column = 0; column < PQnfields(columns_.get()); ++column) {
    std::int32_t length = 0;
    Read(&length, sizeof length);
    cell.resize(length == kNull ? 0 : static_cast<std::size_t>(length));
    Read(cell.data(), cell.size());
    if (PQsetvalue(row.get(), 0, column, length == kNull ? nullptr : cell.data(), length) == 0) throw std::bad_alloc();
  }
  --(in_file_ > 0 ? in_file_ : in_memory_);
  return row;
}

void RowsAside::Read(void* bytes, std::size_t size) {
  if (in_file_ == 0) {
    std::memcpy(bytes, memory_.data() + at_, size);
    at_ += size;
  } else if (std::fread(bytes, 1, size, file_.get()) != size) {
    FailAside();
  }
}

}  // namespace zendara::postgres
