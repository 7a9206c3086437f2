#include "incidents/calendario.hpp"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "runtime/date.hpp"

namespace zendara {
namespace {

using enum TablaIncidencias;

Date On(int month, int day, int year = 2026) { return *MakeDate(year, month, day); }

struct Pixels : Screen {
  double TwipsPerPixel() const override { return 15; }
  std::uint32_t TranslateColor(std::int32_t) const override { return 0; }
};

// Keeps the ink of every pixel, and the rectangles in their order.
struct Canvas : DrawingSurface {
  struct Mark {
    int left, top, right, bottom;
    Ink ink;
  };

  double Width() const override { return width * 15; }
  double Height() const override { return height * 15; }
  PictureFont Font() const override { return {.name = "Sans", .size = points}; }
  int VerticalPixelsPerInch() const override { return 96; }
  void FillRect(int, int, int, int, std::uint32_t) override { ADD_FAILURE() << "a colour that no palette has"; }
  void TextOut(const LogicalFont&, int, int, int, std::string_view) override { ADD_FAILURE(); }
  void Refresh() override {}
  void FillMark(int left, int top, int right, int bottom, Ink ink) override {
    ASSERT_TRUE(left >= 0 && top >= 0 && right <= width && bottom <= height)
        << left << ' ' << top << ' ' << right << ' ' << bottom;
    marks.push_back({left, top, right, bottom, ink});
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = top; y < bottom; ++y) std::fill(At(left, y), At(right, y), ink);
  }
  void Write(const LogicalFont&, int, int, int, std::string_view text, Ink) override { texts.emplace(text); }

  std::vector<Ink>::iterator At(int x, int y) { return pixels.begin() + static_cast<std::ptrdiff_t>(y) * width + x; }

  int width = 360;
  int height = 460;
  double points = 9;
  std::vector<Mark> marks;
  std::vector<Ink> pixels;
  std::set<std::string> texts;
};

Calendario Of2026(std::vector<IncidenciaVista> rows, std::optional<IntervaloTecleado> typed = std::nullopt) {
  return {.ano = 2026, .hoy = On(10, 14), .filas = std::move(rows), .tecleado = typed, .aviso = {}};
}

// What a day shows: series of the upper and the lower lane, x where rows meet, frame of the typed interval (F), with a
// warning (W), T on today.
std::string LookOf(Canvas& canvas, const Canvas::Mark& cell) {
  std::string look = "--";
  const int middle = (cell.top + cell.bottom) / 2;
  const auto lane = [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      for (int x = cell.left; x < cell.right; ++x) {
        const Ink ink = *canvas.At(x, y);
        if (ink >= Ink::kSeries1 && ink <= Ink::kSeries5) {
          return static_cast<char>('1' + static_cast<int>(ink) - static_cast<int>(Ink::kSeries1));
        }
      }
    }
    return '-';
  };
  look[0] = lane(cell.top, middle - 1);
  look[1] = lane(middle + 2, cell.bottom);
  const int x = (cell.left + cell.right) / 2;
  for (int y = middle - 2; y <= middle + 2; ++y) {
    if (*canvas.At(x, y) == Ink::kWarning) {
      look += 'x';
      break;
    }
  }
  const Ink edge = *canvas.At(x, cell.top);
  if (edge == Ink::kText) look += 'F';
  if (edge == Ink::kWarning) look += 'W';
  if (edge == Ink::kAccent) look += 'T';
  return look;
}

// The ground of the days: nothing on paper is as high.
std::vector<Canvas::Mark> DaysOf(const Canvas& canvas) {
  std::vector<Canvas::Mark> days;
  int highest = 0;
  for (const auto& mark : canvas.marks) {
    if (mark.ink != Ink::kPaper && mark.ink != Ink::kDimmed) continue;
    if (mark.bottom - mark.top > highest) days.clear();
    highest = std::max(highest, mark.bottom - mark.top);
    if (mark.bottom - mark.top == highest) days.push_back(mark);
  }
  return days;
}

TEST(CalendarioTest, EveryDayShowsItsRowsAndWhatTheTypedIntervalMeets) {
  Canvas empty;
  PintaCalendario(Pixels(), empty, Of2026({}));
  const auto days = DaysOf(empty);
  ASSERT_EQ(days.size(), 365U);
  const auto number = [](Date day) { return static_cast<std::size_t>(day.serial - On(1, 1).serial); };
  EXPECT_EQ(days[number(On(10, 16))].ink, Ink::kPaper);
  EXPECT_EQ(days[number(On(10, 17))].ink, Ink::kDimmed);
  EXPECT_EQ(days[number(On(10, 18))].ink, Ink::kDimmed);

  const IncidenciaVista ill{kIT, "1", On(2, 3), On(2, 10)};
  const IncidenciaVista again{kIT, "4", On(12, 20, 2025), On(1, 2)};
  const IncidenciaVista open{kIT, "3", On(11, 28), std::nullopt};
  const IncidenciaVista holidays{kESP, "1", On(2, 10), On(3, 1)};
  const IncidenciaVista beyond{kESP, "2", On(12, 31), On(1, 3, 2027)};
  const struct {
    const char* what;
    Calendario calendar;
    std::vector<std::pair<Date, std::string>> looks;
  } cases[] = {
      {"both ends count, across months",
       Of2026({ill, holidays}),
       {{On(2, 2), "--"},
        {On(2, 3), "1-"},
        {On(2, 9), "1-"},
        {On(2, 10), "14x"},
        {On(2, 28), "-4"},
        {On(3, 1), "-4"},
        {On(3, 2), "--"},
        {On(10, 14), "--T"}}},
      {"clipped at the year, open to its end",
       Of2026({again, open, beyond}),
       {{On(1, 1), "1-"},
        {On(1, 2), "1-"},
        {On(1, 3), "--"},
        {On(11, 27), "--"},
        {On(12, 30), "3-"},
        {On(12, 31), "35x"}}},
      {"two of one table",
       Of2026({ill, {kIT, "2", On(2, 8), On(2, 12)}}),
       {{On(2, 7), "1-"}, {On(2, 8), "1-x"}, {On(2, 11), "2-"}}},
      {"typed",
       Of2026({ill, holidays}, IntervaloTecleado{kESP, On(2, 1), On(2, 3)}),
       {{On(1, 31), "--"},
        {On(2, 1), "--F"},
        {On(2, 2), "--F"},
        {On(2, 3), "1-W"},
        {On(2, 4), "1-"},
        {On(2, 5), "1-"}}},
      {"typed and open",
       Of2026({open}, IntervaloTecleado{kESP, On(11, 1), std::nullopt}),
       {{On(11, 1), "--F"}, {On(11, 28), "3-W"}, {On(12, 31), "3-W"}}},
      {"typed over itself, with another one behind",
       Of2026({ill, holidays}, IntervaloTecleado{kIT, On(2, 3), On(2, 11)}),
       {{On(2, 3), "1-F"}, {On(2, 10), "14xW"}, {On(2, 11), "-4W"}}},
      {"typed backwards", Of2026({ill}, IntervaloTecleado{kESP, On(2, 5), On(2, 4)}), {{On(2, 4), "1-"}}},
      {"bad rows",
       Of2026({{kIT, "1", std::nullopt, On(5, 5)},
               {kIT, "1", On(5, 9), On(5, 5)},
               {kESP, "3", On(5, 5), On(5, 5)},
               {kIT, "", On(5, 5), On(5, 5)},
               {kIT, "1", On(5, 5), std::nullopt, true}},
              IntervaloTecleado{kIT, On(5, 5), On(5, 5)}),
       {{On(5, 5), "--F"}, {On(5, 6), "--"}}},
  };
  for (const auto& [what, calendar, looks] : cases) {
    Canvas canvas;
    PintaCalendario(Pixels(), canvas, calendar);
    for (const auto& [day, look] : looks) {
      EXPECT_EQ(LookOf(canvas, DaysOf(canvas).at(number(day))), look) << what << ", " << ShortDate(day);
    }
  }
}

// Nothing leaves the surface, whatever its size; one that is too small stays empty.
TEST(CalendarioTest, ItStaysOnItsSurface) {
  std::vector<IncidenciaVista> rows;
  for (const TipoIncidencia& tipo : kTiposIncidencia) {
    rows.push_back({tipo.tabla, std::string(tipo.codigo), On(1, 1, 2025), std::nullopt});
  }
  const auto all = Of2026(rows, IntervaloTecleado{kESP, On(3, 1), std::nullopt});
  const struct {
    int width, height;
    double points;
    bool drawn, legend;
  } sizes[] = {{360, 460, 9, true, true},   {270, 414, 9, true, true},   {270, 345, 9, true, false},
               {720, 920, 18, true, true},  {540, 690, 18, true, true},  {900, 1400, 9, true, true},
               {0, 0, 9, false, false},     {100, 460, 9, false, false}, {360, 150, 9, false, false},
               {270, 345, 18, false, false}};
  for (const auto& [width, height, points, drawn, legend] : sizes) {
    Canvas canvas;
    canvas.width = width;
    canvas.height = height;
    canvas.points = points;
    PintaCalendario(Pixels(), canvas, all);
    EXPECT_EQ(!canvas.marks.empty(), drawn) << width << 'x' << height;
    for (const TipoIncidencia& tipo : kTiposIncidencia) {
      EXPECT_EQ(canvas.texts.contains(std::string(tipo.texto)), legend) << width << 'x' << height << ' ' << tipo.texto;
    }
  }
  Canvas canvas;
  PintaCalendario(Pixels(), canvas, Calendario{.ano = 9999, .hoy = {}, .filas = rows, .tecleado = {}, .aviso = {}});
  EXPECT_TRUE(canvas.marks.empty()) << "no year behind it";
}

TEST(CalendarioTest, WordsSayAllThatIsStored) {
  auto calendar = Of2026({{kESP, "1", On(7, 1), On(7, 31)},
                          {kIT, "1", On(7, 20), std::nullopt},
                          {kIT, "5", On(1, 5, 1998), On(1, 5, 1998)},
                          {kIT, "1", std::nullopt, std::nullopt},
                          {kIT, "2", std::nullopt, On(2, 2), true},
                          {kESP, "2", On(3, 4), On(3, 3)},
                          {kESP, "7", On(3, 4), On(3, 4)}},
                         IntervaloTecleado{kIT, On(7, 31), On(8, 2)});
  EXPECT_EQ(DescribeCalendario(calendar),
            "Calendario de 2026. Hoy es 14 de octubre de 2026. El intervalo tecleado, del 31 de julio de 2026 al 2 de "
            "agosto de 2026, coincide con 2 incidencias: Vacaciones, del 1 de julio de 2026 al 31 de julio de 2026; "
            "Enfermedad, desde el 20 de julio de 2026, sin final. Hay 3 incidencias. Recaidad de Accidente, el 5 de "
            "enero de 1998. Vacaciones, del 1 de julio de 2026 al 31 de julio de 2026; coincide con otra. Enfermedad, "
            "desde el 20 de julio de 2026, sin final; coincide con otra. No se dibuja una incidencia de I.T. sin fecha "
            "de inicio. No se dibuja una incidencia de I.T. con una fecha que no se entiende. No se dibuja una "
            "incidencia de E.S.P. que empieza el 4 de marzo de 2026 y termina antes, el 3 de marzo de 2026. No se "
            "dibuja una incidencia de E.S.P. de tipo desconocido, «7», el 4 de marzo de 2026.");
  calendar.filas.clear();
  calendar.tecleado->fin = On(7, 1);
  EXPECT_EQ(DescribeCalendario(calendar),
            "Calendario de 2026. Hoy es 14 de octubre de 2026. El intervalo tecleado termina antes de empezar. No hay "
            "incidencias.");
}

}  // namespace
}  // namespace zendara
