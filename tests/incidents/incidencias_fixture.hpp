// The screens of incidents on a company of their own, with one worker in each test's rows.
#pragma once

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/hosting/silent_banner.hpp"
#include "common/lists_fixture.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "incidents/incidencias_fechas.hpp"
#include "incidents/incidencias_variables.hpp"
#include "runtime/text.hpp"
#include "support/fake_form_host.hpp"
#include "values/valor_numero.hpp"

namespace zendara {

inline constexpr const char* kTrabajadorUno = "00003";

class IncidenciasTest : public ListsTest {
 protected:
  IncidenciasTest() {
    components.Register(kBannerClass, [] { return std::make_unique<SilentBanner>(); });
    sesion.platform.forms = &host;
    sesion.platform.dialogs = &host;
    sesion.platform.files = files.get();
    for (const char* parametros : {"IMPM1600.DAT", "IMPM0999.DAT", "NOM00997.DAT"}) {
      std::ofstream(folder.path() / "DATOS" / parametros);
    }
    Add(FileKind::kCompany, "TrabajadoresFijo", {{0, kTrabajadorUno}, {1, "Díaz"}, {2, "Suárez"}, {3, "Fermín"}});
  }

  template <typename T>
  T& Abre() {
    auto nueva = std::make_shared<T>(sesion, pantallas);
    nueva->Mostrar();
    pantalla = nueva;
    return *nueva;
  }

  template <typename T>
  T& El(const std::string& id) {
    auto* control = dynamic_cast<T*>(pantalla->Find(id));
    if (!control) throw std::out_of_range(id);
    return *control;
  }
  TextBox& Caja(IndiceCampo indice) { return El<TextBox>("Text1(" + std::to_string(indice) + ")"); }
  std::string Texto(IndiceCampo indice) { return Caja(indice).Text(); }
  void Pulsa(const std::string& boton) { pantalla->Click(El<Button>(boton)); }
  void Escribe(const std::string& texto) {
    for (std::size_t i = 1; i <= Len(texto); ++i) {
      const std::string letra = Mid(texto, static_cast<int>(i), 1);
      pantalla->Press(letra == "\n" ? Key{key::kEnter, 0, ""} : Key{0, 0, letra});
    }
  }

  // A row of a table with dates; Null for the empty text.
  void Incidencia(std::string_view tabla, const std::string& inicio, const std::string& fin,
                  const Value& nombre = "Díaz Suárez, Fermín", const Value& tipo = "1") {
    std::vector<std::pair<int, Value>> fila = {{0, kTrabajadorUno}, {1, nombre}, {2, tipo}, {3, inicio}};
    if (!fin.empty()) fila.emplace_back(4, fin);
    Add(FileKind::kCompany, tabla, fila);
  }
  // The rows of a table, each as its texts with a bar between them.
  std::vector<std::string> Filas(FileKind fichero, const std::string& tabla) {
    std::vector<std::string> filas;
    const auto leidas = AbreAparte(sesion, fichero)->OpenRecordset("select * from " + tabla);
    for (; !leidas->Eof(); leidas->MoveNext()) {
      std::string& fila = filas.emplace_back();
      for (int i = 0; i < static_cast<int>(leidas->Columns().size()); ++i) {
        fila += (i > 0 ? "|" : "") + TextoNoNulo(leidas->Fields(i).Get());
      }
    }
    return filas;
  }
  void Vacia(FileKind fichero, const std::string& tabla) {
    AbreAparte(sesion, fichero)->Execute("delete * from " + tabla);
  }

  FakeFormHost host;
  std::unique_ptr<Files> files = MakeHostFiles();
  RegistroPantallas pantallas;
  std::shared_ptr<PantallaIncidencias> pantalla;
};

}  // namespace zendara
