#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "incidents/calendario.hpp"
#include "incidents/dias_del_ano.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"

namespace zendara {
namespace {

constexpr int kCeldas = 31;  // of a month
constexpr int kDiasEscala[] = {1, 5, 10, 15, 20, 25, 30};

// How a type is told from the others of its colour, and without colours.
enum Trama : unsigned {
  kLlena = 0,
  kHueca = 1,   // its outline
  kLineas = 2,  // along it
  kCortes = 4,  // across it
};

struct Estilo {
  std::string_view letra;
  Ink tinta;
  unsigned trama;
};

// In the order of kTiposIncidencia.
constexpr std::array<Estilo, std::size(kTiposIncidencia)> kEstilos = {{
    {"E", Ink::kSeries1, kLlena},
    {"M", Ink::kSeries2, kHueca},
    {"A", Ink::kSeries3, kLineas},
    {"RE", Ink::kSeries1, kCortes},
    {"RA", Ink::kSeries3, kLineas | kCortes},
    {"V", Ink::kSeries4, kLlena},
    {"H", Ink::kSeries5, kCortes},
}};

struct Barra {
  std::size_t tipo;  // of kTiposIncidencia
  TramoAno dias;
  int debajo_hasta;  // the last day that another one of its table, drawn above it, has; -1: none
};

// What the year shows, day by day.
struct Plano {
  explicit Plano(const Calendario& calendario);

  bool Tecleado(int dia) const { return tecleado && dia >= tecleado->desde && dia <= tecleado->hasta; }
  bool Avisa(int dia) const { return Tecleado(dia) && avisos[static_cast<std::size_t>(dia)]; }
  bool Coinciden(int dia) const { return filas[static_cast<std::size_t>(dia)] > 1; }

  DiasDelAno ano;
  std::vector<Barra> barras;  // by table and start
  std::vector<int> filas;     // how many a day has
  std::vector<bool> avisos;   // days of the rows that the typed interval meets
  std::optional<TramoAno> tecleado;
  std::optional<int> hoy;
};

Plano::Plano(const Calendario& calendario) : ano(calendario.ano) {
  const auto dias = static_cast<std::size_t>(ano.Dias());
  filas.resize(dias);
  avisos.resize(dias);
  for (const IncidenciaVista& fila : calendario.filas) {
    const auto tramo = EsDibujable(fila) ? ano.TramoDe(*fila.inicio, fila.fin) : std::nullopt;
    if (!tramo) continue;
    const auto* tipo = std::ranges::find_if(
        kTiposIncidencia, [&](const TipoIncidencia& t) { return t.tabla == fila.tabla && t.codigo == fila.tipo; });
    barras.push_back({static_cast<std::size_t>(tipo - std::begin(kTiposIncidencia)), *tramo, -1});
    for (int dia = tramo->desde; dia <= tramo->hasta; ++dia) ++filas[static_cast<std::size_t>(dia)];
  }
  const auto tabla = [](const Barra& barra) { return kTiposIncidencia[barra.tipo].tabla; };
  std::ranges::stable_sort(barras, {}, [&](const Barra& b) { return std::pair(tabla(b), b.dias.desde); });
  int hasta = -1;  // of those above
  for (std::size_t i = 0; i < barras.size(); ++i) {
    if (i == 0 || tabla(barras[i]) != tabla(barras[i - 1])) hasta = -1;
    if (barras[i].dias.desde <= hasta) {
      barras[i].debajo_hasta = hasta;
    } else {
      hasta = barras[i].dias.hasta;
    }
  }
  if (calendario.tecleado) tecleado = ano.TramoDe(calendario.tecleado->inicio, calendario.tecleado->fin);
  for (const IncidenciaVista* fila : Coincidencias(calendario)) {
    const auto tramo = ano.TramoDe(*fila->inicio, fila->fin);
    for (int dia = tramo ? tramo->desde : 0; tramo && dia <= tramo->hasta; ++dia) {
      avisos[static_cast<std::size_t>(dia)] = true;
    }
  }
  if (const auto dia = ano.TramoDe(calendario.hoy, calendario.hoy)) hoy = dia->desde;
}

struct Rectangulo {
  int izquierda;
  int arriba;
  int derecha;  // this and the next are outside
  int abajo;

  int Ancho() const { return derecha - izquierda; }
  int Alto() const { return abajo - arriba; }
  Rectangulo Dentro(int borde) const { return {izquierda + borde, arriba + borde, derecha - borde, abajo - borde}; }
};

// Pixels and letters on the surface; measures follow its font.
class Lapiz {
 public:
  Lapiz(const Screen& screen, DrawingSurface& superficie) : superficie_(superficie), fuente_(superficie.Font()) {
    const double pixel = screen.TwipsPerPixel();
    ancho = static_cast<int>(superficie.Width() / pixel);
    alto = static_cast<int>(superficie.Height() / pixel);
    eme = std::max(CLng(fuente_.size * superficie.VerticalPixelsPerInch() / 72), 1);
    grueso = std::max(eme / 6, 2);
  }

  int Doceavos(int cuantos) const { return eme * cuantos / 12; }

  void Llena(const Rectangulo& r, Ink tinta) {
    if (r.Ancho() > 0 && r.Alto() > 0) superficie_.FillMark(r.izquierda, r.arriba, r.derecha, r.abajo, tinta);
  }

  // About how wide it is.
  int Ancho(std::string_view texto, int letra) const {
    constexpr double kAnchoMedio = 0.6;
    return static_cast<int>(static_cast<double>(Len(texto)) * letra * kAnchoMedio) + 1;
  }

  // `medio`: of the capitals; `letra`: height of the font.
  void Escribe(int x, int medio, std::string_view texto, int letra, Ink tinta, int alineacion = kAlignLeft,
               bool negrita = false) {
    constexpr double kMedioMayuscula = 0.57;  // from the top of the line
    const LogicalFont fuente = {.face = fuente_.name, .height = -letra, .weight = negrita ? 700 : 400};
    superficie_.Write(fuente, alineacion, x, medio - CLng(letra * kMedioMayuscula), texto, tinta);
  }

  void Barra(const Rectangulo& r, const Estilo& estilo);
  // To the right, or with a negative width to the left.
  void Flecha(int x, const Rectangulo& carril, int largo, Ink tinta);

  int ancho = 0;
  int alto = 0;
  int eme = 0;     // height of the font
  int grueso = 0;  // of lines that say something

 private:
  DrawingSurface& superficie_;
  PictureFont fuente_;
};

void Lapiz::Barra(const Rectangulo& r, const Estilo& estilo) {
  Llena(r, estilo.tinta);
  const int raya = std::max(r.Alto() / 4, 1);
  if (estilo.trama & kHueca) Llena(r.Dentro(raya), Ink::kPaper);
  if (estilo.trama & kLineas) {
    for (int y = r.arriba + raya; y + raya < r.abajo; y += 2 * raya) {
      Llena({r.izquierda, y, r.derecha, y + raya}, Ink::kPaper);
    }
  }
  if (estilo.trama & kCortes) {
    for (int x = r.izquierda + 2 * grueso; x + grueso < r.derecha; x += 3 * grueso) {
      Llena({x, r.arriba, x + grueso, r.abajo}, Ink::kPaper);
    }
  }
  // The letter stands on its colour, as high as the bar.
  constexpr int kLegible = 8;
  const int letras = static_cast<int>(estilo.letra.size());
  const int letra = std::min({r.Alto() * 4 / 3, eme, r.Ancho() * 5 / (4 * letras)});
  if (letra < kLegible) return;
  const int fondo = std::min(letra * letras * 4 / 5 + 2, r.Ancho());
  Llena({r.izquierda, r.arriba, r.izquierda + fondo, r.abajo}, estilo.tinta);
  Escribe(r.izquierda + fondo / 2, (r.arriba + r.abajo) / 2, estilo.letra, letra, Ink::kOnMarks, kAlignCentre, true);
}

void Lapiz::Flecha(int x, const Rectangulo& carril, int largo, Ink tinta) {
  const int medio = (carril.Alto() + 1) / 2;
  for (int i = 0; i < medio; ++i) {
    const int punta = largo * (i + 1) / medio;
    for (const int y : {carril.arriba + i, carril.abajo - 1 - i}) {
      Llena({std::min(x, x + punta), y, std::max(x, x + punta), y + 1}, tinta);
    }
  }
}

// What the legend explains: a sample in its place, and words.
struct Entrada {
  std::string texto;
  std::function<void(const Rectangulo& muestra)> pinta;
  int x = 0;
  int linea = 0;
};

class Dibujo {
 public:
  Dibujo(const Screen& screen, DrawingSurface& superficie, const Calendario& calendario)
      : calendario_(calendario), plano_(calendario), lapiz_(screen, superficie) {
    PonEntradas();
    Mide();
    if (carril_ >= kMenor) return;
    con_leyenda_ = false;
    Mide();
  }

  void Pinta() {
    if (celda_ < kMenor || carril_ < kMenor) return;
    PintaTitulo();
    for (int mes = 0; mes < kMesesAno; ++mes) PintaMes(mes);
    if (con_leyenda_) PintaLeyenda();
  }

 private:
  static constexpr int kMenor = 5;  // pixels of a day and of a lane in which anything can be seen

  void PonEntradas();
  void Mide();
  int PonLeyenda();
  void PintaTitulo();
  void PintaMes(int mes);
  void PintaBarras(int mes);
  void PintaTecleado(int mes);
  void PintaHoy(const Rectangulo& celda);
  void PintaLeyenda();
  std::string Mensaje() const;

  int Izquierda(int celda) const { return dias_ + celda * celda_; }
  int Arriba(int mes) const { return meses_ + mes * fila_; }
  // The lane of a table in the row.
  Rectangulo Carril(TablaIncidencias tabla, int mes, int desde, int hasta) const {
    const int borde = lapiz_.grueso;
    const int arriba = Arriba(mes) + borde + (tabla == TablaIncidencias::kESP ? carril_ + lapiz_.grueso : 0);
    return {Izquierda(desde), arriba, Izquierda(hasta + 1), arriba + carril_};
  }
  // The runs of days of the month, as cells, that `es` holds for.
  template <typename Prueba, typename Accion>
  void PorTramos(int mes, const Prueba& es, const Accion& accion) const {
    const int primero = plano_.ano.Primero(mes);
    const int celdas = plano_.ano.Primero(mes + 1) - primero;
    for (int desde = 0; desde < celdas; ++desde) {
      if (!es(primero + desde)) continue;
      int hasta = desde;
      while (hasta + 1 < celdas && es(primero + hasta + 1)) ++hasta;
      accion(desde, hasta);
      desde = hasta;
    }
  }

  const Calendario& calendario_;
  Plano plano_;
  Lapiz lapiz_;
  std::vector<Entrada> entradas_;
  bool con_leyenda_ = true;  // as long as the months are not too low
  int margen_ = 0;
  int menor_ = 0;   // height of the small letters
  int dias_ = 0;    // where the first day begins
  int celda_ = 0;   // width of a day
  int titulo_ = 0;  // middles of the lines above
  int mensaje_ = 0;
  int escala_ = 0;
  int meses_ = 0;    // where they begin
  int fila_ = 0;     // height of a month
  int carril_ = 0;   // height of a table in it
  int leyenda_ = 0;  // where it begins
  int linea_ = 0;    // height of its lines
  int muestra_ = 0;  // width of its samples
};

void Dibujo::PonEntradas() {
  for (std::size_t tipo = 0; tipo < kEstilos.size(); ++tipo) {
    if (std::ranges::none_of(plano_.barras, [&](const Barra& barra) { return barra.tipo == tipo; })) continue;
    entradas_.push_back({std::string(kTiposIncidencia[tipo].texto),
                         [this, tipo](const Rectangulo& muestra) { lapiz_.Barra(muestra, kEstilos[tipo]); }});
  }
  if (plano_.hoy) {
    entradas_.push_back({"Hoy", [this](const Rectangulo& muestra) {
                           const int medio = (muestra.izquierda + muestra.derecha) / 2;
                           PintaHoy({medio - celda_ / 2, muestra.arriba, medio - celda_ / 2 + celda_, muestra.abajo});
                         }});
  }
  // These always, so that the months stay where they are while somebody types.
  entradas_.push_back({"Tecleado", [this](const Rectangulo& muestra) {
                         lapiz_.Llena(muestra, Ink::kText);
                         lapiz_.Llena(muestra.Dentro(lapiz_.grueso), Ink::kPaper);
                       }});
  entradas_.push_back(
      {"Coinciden", [this](const Rectangulo& muestra) {
         const int medio = (muestra.arriba + muestra.abajo - lapiz_.grueso) / 2;
         lapiz_.Llena({muestra.izquierda, medio, muestra.derecha, medio + lapiz_.grueso}, Ink::kWarning);
       }});
}

void Dibujo::Mide() {
  margen_ = lapiz_.Doceavos(6);
  menor_ = lapiz_.Doceavos(11);
  linea_ = lapiz_.Doceavos(17);
  muestra_ = lapiz_.Doceavos(26);
  dias_ = margen_ + lapiz_.Doceavos(30);
  celda_ = (lapiz_.ancho - dias_ - margen_ - lapiz_.Doceavos(20)) / kCeldas;
  titulo_ = margen_ + linea_ / 2;
  mensaje_ = titulo_ + linea_;
  escala_ = mensaje_ + linea_;
  meses_ = escala_ + linea_ / 2;
  const int lineas = con_leyenda_ ? PonLeyenda() : 0;
  fila_ = std::min((lapiz_.alto - meses_ - lineas * linea_ - 2 * margen_) / kMesesAno, 3 * lapiz_.eme);
  leyenda_ = Arriba(kMesesAno) + margen_;
  carril_ = (fila_ - 1 - 3 * lapiz_.grueso) / 2;
}

// What a clerk has to know at once, even of days that are not in the year.
std::string Dibujo::Mensaje() const {
  if (!calendario_.aviso.empty()) return calendario_.aviso;
  const auto coincidencias = Coincidencias(calendario_);
  if (coincidencias.empty()) return {};
  if (coincidencias.size() > 1) return "Coincide con " + std::to_string(coincidencias.size()) + " incidencias";
  const IncidenciaVista& fila = *coincidencias.front();
  const std::string entera =
      "Coincide con " + std::string(TextoTipo(fila.tabla, fila.tipo)) + " del " + ShortDate(*fila.inicio);
  const bool cabe = lapiz_.Ancho(entera, menor_) <= lapiz_.ancho - 2 * linea_;
  return cabe ? entera : "Coincide con una incidencia";
}

void Dibujo::PintaTitulo() {
  lapiz_.Escribe(margen_, titulo_, "Calendario " + std::to_string(calendario_.ano), lapiz_.eme, Ink::kText, kAlignLeft,
                 true);
  const std::string mensaje = Mensaje();
  if (!mensaje.empty()) {
    int x = margen_;
    if (calendario_.aviso.empty()) {
      lapiz_.Llena({x, mensaje_ - menor_ / 2 - 1, x + menor_, mensaje_ + menor_ / 2 + 1}, Ink::kWarning);
      lapiz_.Escribe(x + menor_ / 2, mensaje_, "!", menor_, Ink::kOnMarks, kAlignCentre, true);
      x += menor_ + margen_;
    }
    lapiz_.Escribe(x, mensaje_, mensaje, menor_, Ink::kText);
  }
  for (const int dia : kDiasEscala) {
    lapiz_.Escribe(Izquierda(dia - 1) + celda_ / 2, escala_, std::to_string(dia), menor_, Ink::kText, kAlignCentre);
  }
}

void Dibujo::PintaMes(int mes) {
  const int primero = plano_.ano.Primero(mes);
  const int celdas = plano_.ano.Primero(mes + 1) - primero;
  const int arriba = Arriba(mes);
  const int abajo = arriba + fila_;
  const bool este = plano_.hoy && *plano_.hoy >= primero && *plano_.hoy < primero + celdas;
  lapiz_.Escribe(margen_, (arriba + abajo) / 2, Left(NombreMes(static_cast<std::int16_t>(mes + 1)), 3), menor_,
                 Ink::kText, kAlignLeft, este);
  for (int celda = 0; celda < celdas; ++celda) {
    const bool descanso = plano_.ano.EsFinDeSemana(primero + celda);
    lapiz_.Llena({Izquierda(celda), arriba, Izquierda(celda + 1) - 1, abajo - 1},
                 descanso ? Ink::kDimmed : Ink::kPaper);
  }
  lapiz_.Llena({Izquierda(0), abajo - 1, Izquierda(celdas), abajo}, Ink::kLine);
  PintaBarras(mes);
  const int medio = Carril(TablaIncidencias::kIT, mes, 0, 0).abajo;
  PorTramos(
      mes, [&](int dia) { return plano_.Coinciden(dia); },
      [&](int desde, int hasta) {
        lapiz_.Llena({Izquierda(desde), medio, Izquierda(hasta + 1), medio + lapiz_.grueso}, Ink::kWarning);
      });
  if (plano_.tecleado) PintaTecleado(mes);
  if (este) {
    const int celda = *plano_.hoy - primero;
    PintaHoy({Izquierda(celda), arriba, Izquierda(celda + 1), abajo});
  }
}

void Dibujo::PintaBarras(int mes) {
  const int primero = plano_.ano.Primero(mes);
  const int ultimo = plano_.ano.Primero(mes + 1) - 1;
  for (const Barra& barra : plano_.barras) {
    const int desde = std::max(barra.dias.desde, primero);
    const int hasta = std::min(barra.dias.hasta, ultimo);
    if (desde > hasta) continue;
    const Estilo& estilo = kEstilos[barra.tipo];
    Rectangulo lugar = Carril(kTiposIncidencia[barra.tipo].tabla, mes, desde - primero, hasta - primero);
    if (desde <= barra.debajo_hasta) lugar.arriba += lugar.Alto() / 2;
    // A day apart from the next incident.
    if (hasta == barra.dias.hasta) --lugar.derecha;
    lapiz_.Barra(lugar, estilo);
    const int flecha = lapiz_.Doceavos(6);
    if (barra.dias.viene && desde == 0) lapiz_.Flecha(lugar.izquierda - 1, lugar, -flecha, estilo.tinta);
    if (barra.dias.sigue && hasta == plano_.ano.Dias() - 1) {
      lapiz_.Flecha(lugar.derecha + 1, lugar, flecha, estilo.tinta);
    }
  }
}

// A frame around the days of the month, thicker and in the colour of a warning where it meets a row.
void Dibujo::PintaTecleado(int mes) {
  const int primero = plano_.ano.Primero(mes);
  const int arriba = Arriba(mes);
  const int abajo = arriba + fila_ - 1;
  const int grueso = lapiz_.grueso;
  PorTramos(
      mes, [&](int dia) { return plano_.Tecleado(dia); },
      [&](int desde, int hasta) {
        const int izquierda = Izquierda(desde);
        const int derecha = Izquierda(hasta + 1);
        lapiz_.Llena({izquierda, arriba, derecha, arriba + grueso}, Ink::kText);
        lapiz_.Llena({izquierda, abajo - grueso, derecha, abajo}, Ink::kText);
        if (primero + desde == plano_.tecleado->desde && !plano_.tecleado->viene) {
          lapiz_.Llena({izquierda - grueso, arriba, izquierda, abajo}, Ink::kText);
        }
        if (primero + hasta == plano_.tecleado->hasta && !plano_.tecleado->sigue) {
          lapiz_.Llena({derecha, arriba, derecha + grueso, abajo}, Ink::kText);
        }
      });
  PorTramos(
      mes, [&](int dia) { return plano_.Avisa(dia); },
      [&](int desde, int hasta) {
        const int izquierda = Izquierda(desde);
        const int derecha = Izquierda(hasta + 1);
        lapiz_.Llena({izquierda, arriba, derecha, arriba + grueso + 1}, Ink::kWarning);
        lapiz_.Llena({izquierda, abajo - grueso - 1, derecha, abajo}, Ink::kWarning);
        // Behind the last day, where no letter of a row stands.
        const Rectangulo marca = {lapiz_.ancho - margen_ - menor_, arriba + grueso, lapiz_.ancho - margen_,
                                  abajo - grueso};
        lapiz_.Llena(marca, Ink::kWarning);
        lapiz_.Escribe((marca.izquierda + marca.derecha) / 2, (marca.arriba + marca.abajo) / 2, "!", menor_,
                       Ink::kOnMarks, kAlignCentre, true);
      });
}

// Two points to the middle.
void Dibujo::PintaHoy(const Rectangulo& celda) {
  const int ancho = celda.Ancho() + 2 * lapiz_.grueso;
  for (int i = 0; 2 * i < ancho; ++i) {
    const int izquierda = celda.izquierda - lapiz_.grueso + i;
    const int derecha = celda.derecha + lapiz_.grueso - i;
    lapiz_.Llena({izquierda, celda.arriba + i, derecha, celda.arriba + i + 1}, Ink::kAccent);
    lapiz_.Llena({izquierda, celda.abajo - 1 - i, derecha, celda.abajo - i}, Ink::kAccent);
  }
}

// As many in a line as there is room for. The number of lines.
int Dibujo::PonLeyenda() {
  int x = margen_;
  int lineas = 1;
  for (Entrada& entrada : entradas_) {
    const int ancho = muestra_ + margen_ + lapiz_.Ancho(entrada.texto, menor_);
    if (x > margen_ && x + ancho > lapiz_.ancho - margen_) {
      x = margen_;
      ++lineas;
    }
    entrada.x = x;
    entrada.linea = lineas - 1;
    x += ancho + margen_;
  }
  return lineas;
}

void Dibujo::PintaLeyenda() {
  for (const Entrada& entrada : entradas_) {
    const int medio = leyenda_ + entrada.linea * linea_ + linea_ / 2;
    const int arriba = medio - lapiz_.eme / 2;
    entrada.pinta({entrada.x, arriba, entrada.x + muestra_, arriba + lapiz_.eme});
    lapiz_.Escribe(entrada.x + muestra_ + margen_ / 2, medio, entrada.texto, menor_, Ink::kText);
  }
}

}  // namespace

void PintaCalendario(const Screen& screen, DrawingSurface& superficie, const Calendario& calendario) {
  if (!MakeDate(calendario.ano, 1, 1) || !MakeDate(calendario.ano + 1, 1, 1)) return;
  Dibujo(screen, superficie, calendario).Pinta();
  superficie.Refresh();
}

}  // namespace zendara
