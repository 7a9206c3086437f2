#include "apps/demo/people.hpp"

#include "values/identificaciones.hpp"

namespace zendara {
namespace {

constexpr std::string_view kApellidosRows[] = {
    "García",
    "Fernández",
    "González",
    "Rodríguez",
    "López",
    "Martínez",
    "Sánchez",
    "Pérez",
    "Gómez",
    "Martín",
    "Jiménez",
    "Ruiz",
    "Hernández",
    "Díaz",
    "Moreno",
    "Muñoz",
    "Álvarez",
    "Romero",
    "Alonso",
    "Gutiérrez",
    "Navarro",
    "Torres",
    "Domínguez",
    "Vázquez",
    "Ramos",
    "Gil",
    "Ramírez",
    "Serrano",
    "Blanco",
    "Molina",
    "Suárez",
    "Ortega",
    "Castro",
    "Núñez",
    "Ibáñez",
    "Peña",
    "Cañas",
    "Nuño",
    "Zúñiga",
    "Yáñez",
    "Ñíguez",
    "Argüelles",
    "Agüero",
    "Sigüenza",
    "Güell",
    "Echevarría",
    "Goñi",
    "Puig",
    "Ferrer",
    "Aznar",
    "Valdés",
    "Ulloa",
    "Íñiguez",
    "Quirós",
    "Oñate",
    "Bermúdez",
    "Camacho",
    "Xirgu",
    "Hita",
    "Zapatero",
    "Lasa",
    "Coll",
    "Rey",
    "Sanz",
    "de la Cruz",
    "de los Ríos",
    "del Águila",
    "Ruiz de Alarcón",
    "García de la Torre",
    "Ponce de León",
    "Saiz-Güemes",
    "Martínez de Irujo",
};

constexpr std::string_view kNombresMujerRows[] = {
    "María",
    "Carmen",
    "Ana",
    "Isabel",
    "Dolores",
    "Pilar",
    "Josefa",
    "Teresa",
    "Rosario",
    "Lucía",
    "Mónica",
    "Begoña",
    "Inés",
    "Ángeles",
    "Núria",
    "Sofía",
    "Concepción",
    "Ainhoa",
    "Úrsula",
    "Eva",
    "María José",
    "Ana Belén",
    "María Cristina",
    "María del Pilar",
    "María del Rocío",
    "Inmaculada",
    "Consuelo",
    "Noemí",
    "Raquel",
    "Leonor",
};

constexpr std::string_view kNombresHombreRows[] = {
    "Antonio",        "José",    "Manuel",  "Francisco", "Juan",      "David",        "Javier",         "Jesús",
    "Ángel",          "Íñigo",   "Iñaki",   "Óscar",     "Tomás",     "Andrés",       "Ramón",          "Sebastián",
    "Adrián",         "Nicolás", "Joaquín", "Luis",      "Juan José", "José Antonio", "Juan Sebastián", "Miguel Ángel",
    "Ángel Custodio", "Gonzalo", "Víctor",  "Rubén",     "Fermín",    "Xavier",
};

constexpr std::string_view kNombresCalleRows[] = {
    "Mayor",
    "del Olmo",
    "de la Peña",
    "Nueva",
    "del Río",
    "San Íñigo",
    "Cigüeña",
    "de los Caños",
    "de España",
    "del Carmen",
    "Ñ de la Villa",
    "Miguel de Cervantes",
    "Real",
    "de la Montaña",
    "Pingüino",
    "Santa Águeda",
    "de la Constitución de 1812",
};

constexpr Lugar kLugaresRows[] = {
    {"Madrid", "Madrid", "28"},
    {"Alcalá de Henares", "Madrid", "28"},
    {"San Sebastián de los Reyes", "Madrid", "28"},
    {"Barcelona", "Barcelona", "08"},
    {"L'Hospitalet de Llobregat", "Barcelona", "08"},
    {"A Coruña", "A Coruña", "15"},
    {"Logroño", "La Rioja", "26"},
    {"Almuñécar", "Granada", "18"},
    {"León", "León", "24"},
    {"Málaga", "Málaga", "29"},
    {"Sevilla", "Sevilla", "41"},
    {"Santa Cruz de Tenerife", "Santa Cruz de Tenerife", "38"},
    {"Castelló de la Plana", "Castellón", "12"},
    {"Ceuta", "Ceuta", "51"},
};

}  // namespace

const std::span<const std::string_view> kApellidos = kApellidosRows;
const std::span<const std::string_view> kNombresMujer = kNombresMujerRows;
const std::span<const std::string_view> kNombresHombre = kNombresHombreRows;
const std::span<const std::string_view> kNombresCalle = kNombresCalleRows;
const std::span<const Lugar> kLugares = kLugaresRows;

std::string Digits(int number, int width) {
  std::string text = std::to_string(number);
  if (static_cast<int>(text.size()) < width) text.insert(0, static_cast<std::size_t>(width) - text.size(), '0');
  return text;
}

std::string Nif(int number) { return Digits(number, 8) + LetraNif(number); }

std::string Nie(int number) { return "X" + Digits(number, 7) + LetraNif(number); }

}  // namespace zendara
