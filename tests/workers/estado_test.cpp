// What the title bar, the heading, the words beside codes and the right of the status line say.
#include <gmock/gmock.h>

#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;
using testing::EndsWith;
using testing::HasSubstr;

TEST_F(TrabajadoresTest, SaysWhoIsShownAndWhereHeStands) {
  Abre();
  EXPECT_EQ(pantalla->Subject() + pantalla->Position(), "");
  Rellena(kNumero, "13");
  const std::string zapatero = "00013 Zapatero Aznar, María del Rocío";
  const std::string de = " de " + std::to_string(kTrabajadoresDemo);
  EXPECT_EQ(pantalla->Subject(), zapatero);
  EXPECT_EQ(pantalla->Position(), "Trabajador 13" + de + " · Situación 4 de 4");
  pantalla->PointTo(Caja(kNumero), 0, 99);
  Escribe("2");
  EXPECT_EQ(pantalla->Subject(), zapatero) << "still shown while another number is typed";
  Tecla(key::kEnter);
  EXPECT_EQ(pantalla->Position(), "Trabajador 2" + de + " · Situación 1 de 1");
  Rellena(kNumero, "99");
  EXPECT_EQ(pantalla->Subject() + pantalla->Position(), "00099 (alta nueva)");
  Rellena(kApellido1, "Peña");
  Rellena(kNombre, "Begoña");
  EXPECT_EQ(pantalla->Subject(), "00099 Peña, Begoña (alta nueva)");

  // The rows before one are counted where others have changed them.
  Rellena(kNumero, "2");
  sesion.Tabla(kTrabajadoresFijo).MoveFirst();
  sesion.Tabla(kTrabajadoresFijo).Delete();
  Rellena(kNumero, "13");
  EXPECT_EQ(pantalla->Position(), "Trabajador 12 de " + std::to_string(kTrabajadoresDemo - 1) + " · Situación 4 de 4");
  Pulsa("CmdNuevo");
  EXPECT_THAT(pantalla->Position(), EndsWith(" · 4 situaciones")) << "the new one is none of them yet";
  Pulsa("Cancela");
  EXPECT_EQ(pantalla->Subject() + pantalla->Position(), "");

  // High numbers are counted from the other end.
  for (const char* numero : {"60000", "70000"}) {
    sesion.Tabla(kTrabajadoresFijo).AddNew();
    sesion.Tabla(kTrabajadoresFijo).Fields(0).Set(numero);
    sesion.Tabla(kTrabajadoresFijo).Update();
  }
  Rellena(kNumero, "60000");
  EXPECT_EQ(pantalla->Position(),
            "Trabajador " + std::to_string(kTrabajadoresDemo) + " de " + std::to_string(kTrabajadoresDemo + 1));
}

TEST_F(TrabajadoresTest, SaysWhatTheFieldTakes) {
  Abre();
  Rellena(kNumero, "13");
  const std::pair<CampoTrabajador, const char*> campos[] = {
      {kNumero, "5 cifras · Intro: lo muestra · F2: lista"},
      {kApellido1, "Hasta 20 caracteres"},
      {kTipoIdentificacion, "Código, una letra o cifra · F2: lista"},
      {kFechaNacimiento, "Fecha: ddmmaa"},
      {kRetribuciones, "Importe"},
      {kCeuta, "Barra espaciadora: sí o no"},
      {kCuenta, "10 cifras"},
      {kModalidad1, "Lo pone el programa"},
      {kHorasParcial, "Horas, hasta 24"},
      {kPorcentajeIRPF, "Porcentaje, hasta 100"},
  };
  for (const auto& [campo, espera] : campos) {
    const std::string indice = "(" + std::to_string(IndiceCampo(campo)) + ")";
    for (const char* tipo : {"Text1", "Combo1", "Check1"}) {
      if (Control* control = pantalla->Find(tipo + indice)) control->SetFocus();
    }
    EXPECT_EQ(pantalla->Expected(), espera) << indice;
  }
  auto& hijos = El<Grid>("Grid1(0)");
  pantalla->PointTo(hijos, 1, 3);
  EXPECT_EQ(pantalla->Expected(), "S o N");
}

TEST_F(TrabajadoresTest, WordsFollowTheCodes) {
  Abre();
  Rellena(kNumero, "2");
  const auto palabras = [&](CampoTrabajador lista) {
    return El<Label>("lbTexto(" + std::to_string(IndiceCampo(lista)) + ")").Caption();
  };
  const auto elige = [&](CampoTrabajador lista, const char* codigo) {
    El<ComboBox>("Combo1(" + std::to_string(IndiceCampo(lista)) + ")").SetText(codigo);
    return palabras(lista);
  };
  EXPECT_EQ(elige(kSituacionPerceptor, "P"), "Pensionista");
  EXPECT_EQ(elige(kClaseContrato, "R"), "Relaciones laborales especiales");
  EXPECT_THAT(elige(kSituacionFamiliar, "1"), HasSubstr("hijos<18 años"));
  EXPECT_EQ(elige(kMinusvalia, "2"), ">= 33% y < 65%, sin ayuda.");
  Rellena(kNumero, "99");
  EXPECT_EQ(palabras(kSituacionFamiliar), "");
  EXPECT_EQ(palabras(kSituacionPerceptor), "Activo");
}

}  // namespace
}  // namespace zendara
