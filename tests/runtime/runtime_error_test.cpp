#include "zendara/runtime_error.hpp"

#include <gtest/gtest.h>

namespace zendara {
namespace {

TEST(ErrorText, NamesFillThePlacesInOrder) {
  for (const int unknown : {-1, 10, 3013, 32767}) {
    EXPECT_EQ(ErrorText(unknown), "Error definido por la aplicación o el objeto");
  }
  EXPECT_STREQ(RuntimeError(3061, {"1"}, "of the store").what(), "3061  Pocos parámetros. Se esperaba 1.");
  EXPECT_EQ(ErrorText(3015), "'…' no es un índice de esta tabla.");
  EXPECT_EQ(ErrorText(13, {"one too many"}), "No coinciden los tipos");
  EXPECT_EQ(ErrorText(3075, {"Error de sintaxis en la cadena", "campo0 = '…"}),
            "Error de sintaxis en la cadena en la expresión de consulta 'campo0 = '…'.");
  EXPECT_EQ(ErrorText(3260, {"…", "PC1"}),
            "No se pudo actualizar; bloqueado actualmente por el usuario '…' en el equipo 'PC1'.");
}

}  // namespace
}  // namespace zendara
