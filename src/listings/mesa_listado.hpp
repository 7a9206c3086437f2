// The staging table of listings: finished lines, in the order in which they come to paper, and their way to the viewer.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/sesion.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

// A column of a listing.
struct ColumnaListado {
  std::string_view titulo;
  std::int16_t alineacion;  // 0 text, 1 number, 2 in the listing of pending incidents
  std::string_view ancho;   // twips, in decimal
};

struct DescripcionListado {
  std::string_view titulo;
  std::vector<ColumnaListado> columnas;
  bool pendientes = false;  // of pending incidents
};

// Opens the company's file in the place of BDEmpresa and the table in that of TablaListados, by an index, and empties
// it. There is one for all users of a company and for all listings: the later one takes the table.
//
// Lines are stored some at a time, so that others can write between them. Those before a failure stay.
class MesaListado {
 public:
  // Errors of the store, here and from every operation, go to the caller.
  explicit MesaListado(Sesion& sesion, std::string_view indice = "ICampo1");
  ~MesaListado();
  MesaListado(const MesaListado&) = delete;
  MesaListado& operator=(const MesaListado&) = delete;

  // One value a column from the first on; a Null leaves its column.
  void Anade(const std::vector<Value>& linea);
  std::size_t Lineas() const { return lineas_; }
  // The first line is the current one, by ICampo1.
  void Termina();

 private:
  void Asienta();

  Sesion& sesion_;
  std::shared_ptr<Database> base_;
  std::unique_ptr<Transaction> tanda_;
  std::size_t lineas_ = 0;
};

// Hands the table to a new viewer and returns when it is done. Error 429 when there is none.
void VisualizaListado(const Sesion& sesion, const DescripcionListado& descripcion, const std::string& fichero,
                      std::string_view tabla, Form* formulario);

}  // namespace zendara
