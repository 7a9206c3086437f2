#include "zendara/runtime_error.hpp"

#include <gtest/gtest.h>

#include <string>

namespace zendara {
namespace {

const std::string kUnknown = "Error definido por la aplicación o el objeto";

TEST(ErrorText, KnowsEveryNumber) {
  for (const int number :
       {5,    6,    7,    9,    11,   13,   20,   28,   53,   55,   57,   61,   62,   70,   71,   75,
        76,   91,   94,   380,  424,  429,  438,  440,  449,  450,  3010, 3011, 3012, 3015, 3018, 3019,
        3020, 3021, 3022, 3024, 3026, 3027, 3034, 3044, 3045, 3049, 3051, 3055, 3058, 3061, 3075, 3077,
        3078, 3146, 3155, 3163, 3167, 3186, 3197, 3218, 3260, 3262, 3265, 3315, 3343, 3356, 3420, 3421}) {
    EXPECT_NE(ErrorText(number), kUnknown) << number;
  }
  for (const int number : {-1, 0, 10, 3013, 32767}) EXPECT_EQ(ErrorText(number), kUnknown) << number;
}

TEST(ErrorText, NamesFillThePlacesInOrder) {
  EXPECT_EQ(ErrorText(3061, {"1"}), "Pocos parámetros. Se esperaba 1.");
  EXPECT_EQ(ErrorText(3015), "'…' no es un índice de esta tabla.");
  EXPECT_EQ(ErrorText(3186, {"ANA"}), "No se pudo guardar; bloqueado por el usuario 'ANA' en el equipo '…'.");
  EXPECT_EQ(ErrorText(13, {"one too many"}), "No coinciden los tipos");
  EXPECT_EQ(ErrorText(3075, {"Error de sintaxis en la cadena", "campo0 = '…"}),
            "Error de sintaxis en la cadena en la expresión de consulta 'campo0 = '…'.");
  EXPECT_EQ(ErrorText(3260, {"…", "PC1"}),
            "No se pudo actualizar; bloqueado actualmente por el usuario '…' en el equipo 'PC1'.");
}

TEST(RuntimeError, KeepsTheDetailOutOfTheText) {
  const RuntimeError error(kObjectExists, {"Icampo0"}, "disk image is malformed");
  EXPECT_EQ(error.number(), 3012);
  EXPECT_EQ(error.text(), "El objeto 'Icampo0' ya existe.");
  EXPECT_STREQ(error.what(), "3012  El objeto 'Icampo0' ya existe.");
  EXPECT_EQ(error.detail(), "disk image is malformed");
}

}  // namespace
}  // namespace zendara
