// A company's stored tables, empty until a test writes rows, and a pick list that takes a given row.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/hosting/row_pick_list.hpp"
#include "common/row_list.hpp"
#include "frame/parametros.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "frame/stored_tables.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {

// What a pick list showed, and the row that it takes, if there is one.
struct Picking {
  std::string titulo;
  std::size_t filas = 0;
  std::size_t presentes = 0;  // texts of the fields that the first row has
  std::optional<std::size_t> elegida = 0;

  ChooseRow Choice() {
    return [this](const std::string& title, RowList& rows) {
      titulo = title;
      filas = rows.Total();
      presentes = filas > 0 ? rows.PresentIn(0) : 0;
      return filas > 0 ? elegida : std::nullopt;
    };
  }
};

class ListsTest : public testing::Test {
 protected:
  ListsTest() {
    std::filesystem::create_directory(folder.path() / "DATOS");
    for (const StoredFile& file : StoredFiles()) {
      const auto db = engine->Workspaces(0)->CreateDatabase(PathOf(file.kind));
      for (const TableDef& table : file.tables) db->CreateTable(table);
    }
    RegisterPickList(components, picking.Choice());
    AbreEmpresa(sesion, "00001", "01");
  }

  std::string PathOf(FileKind kind) const { return folder / ("DATOS/" + FileName(kind, "00001", "01")); }

  // A row of the columns that are given, the others Null.
  void Add(FileKind kind, std::string_view table, const std::vector<std::pair<int, Value>>& row) {
    const auto rs = engine->Workspaces(0)->OpenDatabase(PathOf(kind))->OpenRecordset(table, RecordsetType::kTable);
    rs->AddNew();
    for (const auto& [column, value] : row) rs->Fields(column).Set(value);
    rs->Update();
  }

  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeEngine();
  Picking picking;
  Sesion sesion{Platform{.engine = engine.get(), .application_folder = folder.path().string()}};
  Components& components = sesion.platform.components;
};

}  // namespace zendara
