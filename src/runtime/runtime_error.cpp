#include "zendara/runtime_error.hpp"

#include <algorithm>
#include <iterator>

namespace zendara {
namespace {

struct ErrorRow {
  int number;
  std::string_view text;
};

// Ascending, for the binary search.
constexpr ErrorRow kErrors[] = {
    {5, "Argumento o llamada a procedimiento no válidos"},
    {6, "Desbordamiento"},
    {7, "Memoria insuficiente"},
    {9, "Subíndice fuera del intervalo"},
    {11, "División por cero"},
    {13, "No coinciden los tipos"},
    {20, "Resume sin error"},
    {28, "Espacio de pila insuficiente"},
    {51, "Error interno"},
    {53, "No se ha encontrado el archivo"},
    {55, "El archivo ya está abierto"},
    {57, "Error de E/S de dispositivo"},
    {61, "Disco lleno"},
    {62, "Se sobrepasó el final del archivo"},
    {70, "Permiso denegado"},
    {71, "Disco no preparado"},
    {75, "Error de acceso a la ruta o al archivo"},
    {76, "No se ha encontrado la ruta de acceso"},
    {91, "Variable de objeto o bloque With no establecido"},
    {94, "Uso no válido de Null"},
    {380, "Valor de propiedad no válido"},
    {424, "Se requiere un objeto"},
    {429, "El componente no puede crear el objeto"},
    {438, "El objeto no admite esta propiedad o método"},
    {440, "Error de automatización"},
    {449, "Argumento no opcional"},
    {450, "Número de argumentos erróneo o asignación de propiedad no válida"},
    {3010, "La tabla '…' ya existe."},
    {3011,
     "El motor de base de datos no pudo encontrar el objeto '…'. Asegúrese de que el objeto existe y de que ha escrito "
     "el nombre y la ruta de acceso correctamente."},
    {3012, "El objeto '…' ya existe."},
    {3015, "'…' no es un índice de esta tabla."},
    {3018, "No se pudo encontrar el campo '…'."},
    {3019, "Operación no válida sin un índice activo."},
    {3020, "Update o CancelUpdate sin AddNew o Edit."},
    {3021, "No hay ningún registro activo."},
    {3022,
     "Los cambios solicitados en la tabla no se realizaron correctamente porque crearían valores duplicados en el "
     "índice, clave principal o relación. Cambie los datos en el campo o los campos que contienen datos duplicados, "
     "quite el índice o vuelva a definirlo para permitir entradas duplicadas e inténtelo de nuevo."},
    {3024, "No se pudo encontrar el archivo '…'."},
    {3026, "No hay suficiente espacio en disco."},
    {3027, "No se puede actualizar. La base de datos o el objeto es de sólo lectura."},
    {3034, "Intentó confirmar o deshacer una transacción sin iniciarla antes."},
    {3043, "Error de disco o de red."},
    {3044, "'…' no es una ruta de acceso válida."},
    {3045, "No se pudo usar '…'; el archivo ya está en uso."},
    {3049,
     "No se puede abrir la base de datos '…'. Puede que no sea una base de datos que reconozca su aplicación o que el "
     "archivo esté dañado."},
    {3051, "El motor de base de datos no puede abrir el archivo '…'."},
    {3055, "El nombre de archivo no es válido."},
    {3058, "El índice o la clave principal no puede contener un valor Nulo."},
    {3061, "Pocos parámetros. Se esperaba …."},
    {3075, "… en la expresión de consulta '…'."},
    {3077, "… en la expresión."},
    {3078,
     "El motor de base de datos no puede encontrar la tabla o consulta de entrada '…'. Asegúrese de que existe y que "
     "su nombre está escrito correctamente."},
    {3146, "ODBC: error en la llamada."},
    {3155, "ODBC: error al insertar."},
    {3163,
     "El campo es demasiado pequeño para aceptar la cantidad de datos que intentó agregar. Intente insertar o pegar "
     "menos datos."},
    {3167, "El registro está eliminado."},
    {3170, "No se pudo encontrar el controlador ISAM instalable."},
    {3186, "No se pudo guardar; bloqueado por el usuario '…' en el equipo '…'."},
    {3197,
     "El motor de base de datos detuvo el proceso porque usted y otro usuario intentan cambiar los mismos datos al "
     "mismo tiempo."},
    {3218, "No se pudo actualizar; bloqueado actualmente."},
    {3260, "No se pudo actualizar; bloqueado actualmente por el usuario '…' en el equipo '…'."},
    {3262, "No se pudo bloquear la tabla '…'."},
    {3265, "No se encontró el elemento en esta colección."},
    {3315, "El campo '…' no puede ser una cadena de longitud cero."},
    {3343, "Formato de base de datos '…' no reconocido."},
    {3356, "La base de datos ya está abierta en modo exclusivo por el usuario '…'."},
    {3420, "El objeto no es válido o ya no está establecido."},
    {3421, "Error de conversión de tipo de datos."},
};
static_assert(std::ranges::is_sorted(kErrors, {}, &ErrorRow::number));

constexpr std::string_view kUnknownError = "Error definido por la aplicación o el objeto";
constexpr std::string_view kPlace = "…";

std::string_view Template(int number) {
  const auto* row = std::ranges::lower_bound(kErrors, number, {}, &ErrorRow::number);
  return row != std::end(kErrors) && row->number == number ? row->text : kUnknownError;
}

}  // namespace

std::string ErrorText(int number, const std::vector<std::string>& names) {
  std::string_view rest = Template(number);
  std::string text;
  for (const std::string& name : names) {
    const std::size_t place = rest.find(kPlace);
    if (place == std::string_view::npos) break;
    text.append(rest.substr(0, place)).append(name);
    rest.remove_prefix(place + kPlace.size());
  }
  return text.append(rest);
}

RuntimeError::RuntimeError(int number, const std::vector<std::string>& names, std::string_view detail, int native)
    : std::runtime_error(std::to_string(number) + "  " + ErrorText(number, names)),
      number_(number),
      text_(ErrorText(number, names)),
      detail_(detail),
      native_(native) {}

// Here, so that its type is there once.
RuntimeError::~RuntimeError() = default;

}  // namespace zendara
