// What the rules of the advice stand on: tables read once, their texts, and which texts are the same code.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "apps/zendara/commands/company_data.hpp"
#include "apps/zendara/commands/console.hpp"
#include "zendara/record_engine.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

using Texts = std::span<const std::string>;

// As the engine compares texts, whose trailing blanks are gone: those with the same key are the same code.
std::string KeyOf(std::string_view text);
std::string KeyOf(Texts texts);
using Keys = std::unordered_set<std::string>;

// A column of the current row: printable, without trailing blanks, empty for Null.
std::string TextAt(Recordset& row, int ordinal);
// Those that are not empty, a blank between them.
std::string Joined(Texts texts);

// A row of TrabajadoresVar.
struct Situation {
  std::string worker;
  std::string number;
  std::optional<Date> start;
  std::optional<Date> end;  // nothing: open
};

// The tables of the company, each read once from its first row to its last.
class Tables {
 public:
  // `sound`: the files have no faults, so a table that cannot be read is a RuntimeError.
  Tables(const CompanyData& data, Console& console, bool sound) : data_(data), console_(console), sound_(sound) {}

  // In the order of its primary key. False when it cannot be read to its end, for a fault that was found before.
  template <typename Visit>
  bool Read(FileKind file, std::string_view table, Visit visit) const {
    const std::string place = data_.FileName(file) + ": " + std::string(table);
    try {
      const std::shared_ptr<Database> database = data_.Open(file, console_);
      console_.Doing("reading " + place);
      const std::shared_ptr<Recordset> rows = database->OpenRecordset(table, RecordsetType::kForward);
      for (std::int64_t number = 1; !rows->Eof(); rows->MoveNext(), ++number) {
        visit(*rows);
        console_.Progress("advice on " + place, number);
      }
      return true;
    } catch (const RuntimeError&) {
      if (sound_) throw;
      return false;
    }
  }

 private:
  const CompanyData& data_;
  Console& console_;
  bool sound_;
};

}  // namespace zendara
