// A company's stored tables, empty until a test writes rows, and a pick list that takes a given row.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/row_list.hpp"
#include "frame/parametros.hpp"
#include "frame/sesion_anfitrion.hpp"
#include "frame/stored_tables.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {

struct PickAsked {
  std::string sql;
  std::string base;
  std::string titulo;
  int marca = -1;
  std::vector<std::string> filas;
};

// Notes what it was asked and takes the row `elegida`, none below 0.
class TestPickList : public PickList {
 public:
  TestPickList(PickAsked& asked, int elegida) : asked_(asked), elegida_(elegida) {}

  void ConsultaLista(const std::vector<std::string>& columnas, const std::string& sql,
                     const std::vector<RowPlace>& lugares, Engine& motor, const std::string& base,
                     const std::string& titulo, std::int16_t marca_boton, std::string& resultado) override {
    Take(RowList(motor, base, sql, columnas, lugares), {sql, base, titulo, marca_boton, {}}, resultado);
  }
  void ConsultaFija(const std::vector<std::string>& lineas, const std::string& titulo, std::int16_t marca_boton,
                    std::string& resultado) override {
    Take(RowList(lineas), {{}, {}, titulo, marca_boton, {}}, resultado);
  }

 private:
  void Take(RowList filas, PickAsked asked, std::string& resultado) {
    for (std::size_t i = 0; filas.Reach(i); ++i) asked.filas.push_back(filas.Row(i));
    asked_ = std::move(asked);
    if (elegida_ >= 0) resultado = asked_.filas.at(static_cast<std::size_t>(elegida_));
  }

  PickAsked& asked_;
  int elegida_;
};

class ListsTest : public testing::Test {
 protected:
  ListsTest() {
    std::filesystem::create_directory(folder.path() / "DATOS");
    for (const StoredFile& file : StoredFiles()) {
      const auto db = engine->Workspaces(0)->CreateDatabase(PathOf(file.kind));
      for (const TableDef& table : file.tables) db->CreateTable(table);
    }
    components.Register(kPickListClass, [this] { return std::make_unique<TestPickList>(asked, elegida); });
    sesion.platform.components = &components;
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
  Components components;
  PickAsked asked;
  int elegida = 0;
  Sesion sesion{
      Platform{.engine = engine.get(), .application_folder = folder.path().string(), .components = &components}};
};

}  // namespace zendara
