// The listing of the workers between two centres and two sections, by their fixed data or by their situaciones.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "common/ficha.hpp"
#include "common/pantalla_base.hpp"
#include "listings/mesa_listado.hpp"

namespace zendara {

// Text1; behind each code stands its name.
enum class CampoListado {
  kDeCentro = 0,
  kNombreDeCentro = 1,
  kACentro = 2,
  kNombreACentro = 3,
  kDeSeccion = 4,
  kNombreDeSeccion = 5,
  kASeccion = 6,
  kNombreASeccion = 7,
};

class ListadoTrabajador : public PantallaBase {
 public:
  ListadoTrabajador(Sesion& sesion, RegistroPantallas& pantallas);

  std::string Expected() const override;
  HelpPlace HelpOnFocus() const override;

 protected:
  void OnLoad() override;
  void SalidaCampo(int indice) override;
  void AbreLista(int indice) override;

 private:
  void PonRangosDefecto();
  // A code of the range that is empty: its own limit, or what stands for none.
  void PonLimite(CampoListado campo, const std::string& limite, bool hay, const std::string& ninguno);
  bool CompruebaRangos();
  void CondicionListado();
  void GeneraListado();
  void Imprime();
  void AnadeFija(MesaListado& mesa, Recordset& fila);
  void AnadeVariable(MesaListado& mesa, Recordset& fila, std::string& anterior);
  void Avanza(std::size_t leidas);
  void LeeUltimas();
  // Whether the worker's last situación begins on that day. REQUIRES: BDEmpresa is the company's file.
  bool EsSituacionActual(const std::string& trabajador, const Value& fecha);
  // Column `campo` of the slot's row with that key, or the worker's name; empty when there is none.
  std::string LeeDescripcion(int ranura, const std::string& clave, int campo);
  void PonNombre(CampoListado campo);

  bool Elegida(int opcion) const { return Option1(opcion).Value(); }
  TextBox& Caja(CampoListado campo) const { return Text1(static_cast<int>(campo)); }
  std::string Codigo(CampoListado campo) const;

  std::string TextoCondicion;                       // tail of the query
  std::unordered_map<std::string, Value> ultimas_;  // start of a worker's last situación, as far as it was asked for

  ControlArray<OptionButton> Option1{*this, "Option1"};
  Frame FrameTipo{*this, "FrameTipo"};
  Frame Frame1{*this, "Frame1"};
  Frame Frame3{*this, "Frame3"};
  Frame Frame4{*this, "Frame4"};
  Frame FrameRango{*this, "FrameRango"};
  Button Impresora{*this, "Impresora"};
};

}  // namespace zendara
