// The worker screen on a copy of the demonstration company, and a clerk's hands on it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "adapters/hosting/silent_banner.hpp"
#include "apps/demo/demo_company.hpp"
#include "common/lists_fixture.hpp"
#include "frame/catalogo.hpp"
#include "runtime/text.hpp"
#include "support/fake_form_host.hpp"
#include "support/temp_folder.hpp"
#include "workers/trabajadores.hpp"
#include "zendara/engines.hpp"

namespace zendara {

inline constexpr int kTrabajadoresDemo = kDemoCases + 2;

class TrabajadoresTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    modelo = std::make_unique<TempFolder>();
    const auto engine = MakeEngine();
    WriteDemoCompany(*engine, {.folder = modelo->path().string(), .workers = kTrabajadoresDemo});
  }
  static void TearDownTestSuite() { modelo.reset(); }

  TrabajadoresTest() {
    std::filesystem::copy(modelo->path(), folder.path(), std::filesystem::copy_options::recursive);
    PonAnuncio();
    RegisterPickList(components, picking.Choice());
    AbreEmpresa(sesion, "00001", "01");
    pantallas.Registra("Trabajadores", [this] { return std::make_shared<Trabajadores>(sesion, pantallas); });
  }

  void PonAnuncio() {
    components.Register(kBannerClass, [] { return std::make_unique<SilentBanner>(); });
  }
  // Loads the screen; it stays loaded.
  void Abre() {
    pantalla = std::dynamic_pointer_cast<Trabajadores>(pantallas.Objeto("Trabajadores"));
    pantalla->Mostrar();
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
    for (std::size_t i = 1; i <= Len(texto); ++i) pantalla->Press({0, 0, Mid(texto, static_cast<int>(i), 1)});
  }
  void Tecla(int code, int shift = 0) { pantalla->Press({code, shift, ""}); }
  // Types into a field and leaves it by Enter.
  void Rellena(IndiceCampo indice, const std::string& texto) {
    pantalla->PointTo(Caja(indice), 0, 99);
    texto.empty() ? Tecla(key::kDelete) : Escribe(texto);
    Tecla(key::kEnter);
  }
  std::string Foco() { return pantalla->Focus() ? pantalla->Focus()->Id() : ""; }
  // What stands in a field or cell, whatever its control.
  std::string Mostrado(IndiceCampo indice) {
    // A date of birth has its century for the calculation.
    return indice == IndiceCampo(CampoTrabajador::kFechaNacimiento) ? Texto(indice)
                                                                    : pantalla->TextoColumna(indice - 1);
  }
  void VaciaTabla(int ranura) {
    Recordset& tabla = sesion.Tabla(ranura);
    if (tabla.RecordCount() == 0) return;
    for (tabla.MoveFirst(); !tabla.Eof(); tabla.MoveNext()) tabla.Delete();
  }
  std::string PathOf(const std::string& nombre) { return folder / ("DATOS/" + nombre); }

  static inline std::unique_ptr<TempFolder> modelo;
  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeEngine();
  std::unique_ptr<Files> files = MakeHostFiles();
  Picking picking;
  FakeFormHost host;
  RegistroPantallas pantallas;
  Sesion sesion{{.engine = engine.get(),
                 .dialogs = &host,
                 .files = files.get(),
                 .application_folder = folder.path().string(),
                 .forms = &host}};
  Components& components = sesion.platform.components;
  std::shared_ptr<Trabajadores> pantalla;
};

}  // namespace zendara
