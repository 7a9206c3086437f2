#include "withholding/entradas_irpf.hpp"

#include <gtest/gtest.h>

#include "runtime/date.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// One row, which can only be read.
class OneRow : public Recordset {
 public:
  explicit OneRow(int columns) : columns_(static_cast<std::size_t>(columns)), row(static_cast<std::size_t>(columns)) {
    for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].name = "Campo" + std::to_string(i);
  }

  const std::vector<ColumnDef>& Columns() const override { return columns_; }
  std::string Index() const override { return {}; }
  void SetIndex(std::string_view) override { Refuse(); }
  void Seek(const std::vector<Value>&) override { Refuse(); }
  bool NoMatch() const override { return false; }
  bool Bof() const override { return false; }
  bool Eof() const override { return false; }
  std::int64_t RecordCount() const override { return 1; }
  void MoveFirst() override { Refuse(); }
  void MoveLast() override { Refuse(); }
  void MoveNext() override { Refuse(); }
  void MovePrevious() override { Refuse(); }
  void AddNew() override { Refuse(); }
  void Edit() override { Refuse(); }
  void Update() override { Refuse(); }
  void CancelUpdate() override { Refuse(); }
  void Delete() override { Refuse(); }
  std::shared_ptr<Recordset> Clone() override { return nullptr; }
  zendara::Bookmark Bookmark() const override { return 0; }
  void GoTo(zendara::Bookmark) override { Refuse(); }
  void Close() override { Refuse(); }

 private:
  static void Refuse() { throw RuntimeError(kReadOnly); }
  Value GetColumn(int ordinal) const override { return row[static_cast<std::size_t>(ordinal)]; }
  void SetColumn(int, const Value&) override { Refuse(); }

  std::vector<ColumnDef> columns_;

 public:
  std::vector<Value> row;
};

OneRow Worker() {
  OneRow worker(91);
  for (std::size_t i = 0; i < worker.row.size(); ++i) worker.row[i] = "c" + std::to_string(i);
  return worker;
}

TEST(LeeDatosRegistro, TakesEachFigureFromItsColumn) {
  OneRow worker = Worker();
  worker.row[19] = *MakeDate(1935, 3, 5);
  worker.row[81] = Null{};
  worker.row[24] = 2;
  const EntradasIRPF e = LeeDatosRegistro(worker, "01");

  const std::pair<const std::string*, const char*> figures[] = {
      {&e.SituacionPerceptor, "c20"},   {&e.TipoContrato, "c21"},         {&e.SituacionFamiliar, "c22"},
      {&e.GradoMinusvalia, "2"},        {&e.RetribucionesAnuales, "c75"}, {&e.RentasIrregulares, "c76"},
      {&e.GastosAnuales, "c77"},        {&e.Anualidades, "c48"},          {&e.CeutaMelilla, "c80"},
      {&e.RetribucionesAcumuladas, ""}, {&e.RetencionAcumulada, "c82"}};
  for (const auto& [figure, text] : figures) EXPECT_EQ(*figure, text);
  EXPECT_EQ(e.FechaNacimiento, Value("05/03/35"));
}

TEST(LeeDatosRegistro, ReadsTheRowsOfTheFamily) {
  OneRow worker = Worker();
  worker.row[25] = "1990";
  worker.row[28] = Null{};
  worker.row[31] = "2001";
  worker.row[52] = "1975,5";
  const EntradasIRPF e = LeeDatosRegistro(worker, "01");
  const double ages[] = {11, 2001, 0};
  for (std::size_t r = 0; r < std::size(ages); ++r) EXPECT_EQ(e.Hijos[r].edad, ages[r]);
  EXPECT_EQ(e.Hijos[9].edad, 25.5);
  EXPECT_EQ(e.Hijos[0].por_entero + e.Hijos[0].grado, "c26c27");
  EXPECT_EQ(e.Hijos[9].por_entero + e.Hijos[9].grado, "c53c54");
  EXPECT_EQ(e.Ascendientes[0].convivencia + e.Ascendientes[0].grado, "c55c56");
  EXPECT_EQ(e.Ascendientes[9].convivencia + e.Ascendientes[9].grado, "c73c74");
}

TEST(LeeDatosRegistro, KeepsMinimumRatesFromPensionersAndUnemployed) {
  OneRow worker = Worker();
  worker.row[21] = "I";
  for (const auto& [perceptor, contrato] : {std::pair{"A", "I"}, {"P", ""}, {"D", ""}, {"", "I"}}) {
    worker.row[20] = perceptor;
    EXPECT_EQ(LeeDatosRegistro(worker, "01").TipoContrato, contrato) << perceptor;
  }
}

TEST(LeeParametrosIRPF, ReadsNumbersAndTextsOfEitherPoint) {
  OneRow irpf(80);
  irpf.row[0] = 612000;
  irpf.row[1] = "28,3";
  irpf.row[2] = "37.2";
  irpf.row[3] = 0.1923;
  irpf.row[74] = "35";
  irpf.row[75] = "no column of the calculation";
  const ParametrosIRPF p = LeeParametrosIRPF(irpf);
  EXPECT_EQ((std::array{p[0], p[1], p[2], p[3], p[4], p[74]}), (std::array{612000.0, 28.3, 37.2, 0.1923, 0.0, 35.0}));
}

TEST(AnoFin, IsInThisCentury) {
  EXPECT_EQ(AnoFin("01"), 2001);
  EXPECT_EQ(AnoFin("99"), 2099);
  EXPECT_THROW(AnoFin("x1"), RuntimeError);
}

}  // namespace
}  // namespace zendara
