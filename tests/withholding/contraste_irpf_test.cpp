// The calculation against a second one on whole hundredths, over random workers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "parametros.hpp"
#include "values/valor_numero.hpp"
#include "withholding/calculo_irpf.hpp"

namespace zendara {
namespace {

using Hundredths = std::int64_t;

std::string Text(Hundredths amount) {
  const std::string digits = std::to_string(100 + std::abs(amount) % 100);
  return (amount < 0 ? "-" : "") + std::to_string(std::abs(amount) / 100) + "," + digits.substr(1);
}

struct Child {
  int age;
  const char *whole, *grade;
};

struct Worker {
  bool pesetas, regularised;
  char receiver, contract, situation, grade, ceuta;
  int birth_year;  // 0: unknown
  Hundredths pay, irregular, expenses, annuity, paid, withheld;
  std::vector<Child> children;
  std::vector<std::pair<int, int>> ascendants;  // persons, grade

  EntradasIRPF Entradas() const {
    EntradasIRPF e;
    e.SituacionPerceptor = receiver;
    e.TipoContrato = contract;
    e.SituacionFamiliar = situation;
    e.GradoMinusvalia = grade;
    e.CeutaMelilla = ceuta;
    if (birth_year != 0) e.FechaNacimiento = "15/06/" + std::to_string(birth_year);
    if (birth_year == 0 && pesetas) e.FechaNacimiento = "";
    e.RetribucionesAnuales = Text(pay);
    e.RentasIrregulares = Text(irregular);
    e.GastosAnuales = Text(expenses);
    e.Anualidades = Text(annuity);
    e.RetribucionesAcumuladas = Text(paid);
    e.RetencionAcumulada = Text(withheld);
    std::ranges::transform(children, e.Hijos.begin(), [](const Child& c) {
      return Hijo{static_cast<double>(c.age), c.whole, c.grade};
    });
    std::ranges::transform(ascendants, e.Ascendientes.begin(), [](const auto& a) {
      return Ascendiente{std::to_string(a.first), std::to_string(a.second)};
    });
    return e;
  }
};

Hundredths Row(int column) { return std::llround(Parametros()[static_cast<std::size_t>(column)] * 100); }

class Reference {
 public:
  explicit Reference(const Worker& worker) : w_(worker) {
    const Hundredths net = Money(w_.pay - w_.irregular - w_.expenses);
    const Hundredths family = Family();  // counts the children that the others ask for
    base = std::max<Hundredths>(0, Money(net - Reduction(net) - Personal() - family - w_.annuity - Deductions()));
    const Hundredths limit = w_.situation > '3' ? 0 : Row(32 + 3 * std::min(in_limit_, 2) + (w_.situation - '1'));
    raised = limit + (w_.receiver == 'P' ? Row(41) : w_.receiver == 'D' ? Row(42) : 0);
    amount = Scale();
    Hundredths rate = 0;
    if (w_.pay > raised) {
      if (w_.pay <= Row(73)) amount = std::min(amount, Money((w_.pay - limit) * Row(74), 10000));
      rate = w_.regularised ? Quotient(amount - w_.withheld, w_.pay - w_.paid) : Quotient(amount, w_.pay);
    }
    if (w_.ceuta == 'S') rate = w_.pesetas ? Money(rate, 2) : Money(rate, 2) % 10000;
    if (w_.contract == 'I') rate = std::max(rate, Row(43));
    if (w_.contract == 'R') rate = std::max(rate, Row(44));
    rate_text = rate % 100 == 0 ? std::to_string(rate / 100) : Text(rate);
  }

  Hundredths base, raised, amount;
  std::string rate_text;

 private:
  // Half a unit is added, then the rest cut, towards zero; whole amounts stay. Ten characters are kept: with decimals
  // that is seven digits before the comma, and a minus only before six.
  Hundredths Money(Hundredths numerator, Hundredths denominator = 1) const {
    const Hundredths unit = w_.pesetas ? 100 : 1;
    const Hundredths rounded = numerator % (100 * denominator) == 0
                                   ? numerator / denominator
                                   : (2 * numerator + unit * denominator) / (2 * denominator * unit) * unit;
    constexpr Hundredths kTenMillion = 1000000000;
    if (w_.pesetas) return rounded;
    return rounded <= -kTenMillion / 10 ? -rounded % kTenMillion : rounded % kTenMillion;
  }

  // Percent in hundredths, cut; five characters hold four digits beside a comma.
  static Hundredths Quotient(Hundredths amount, Hundredths pay) {
    if (pay == 0) return 0;
    if (pay < 0) return Quotient(-amount, -pay);
    if (amount < 0) return 0;
    return amount * 100 % pay == 0 ? amount * 100 / pay % 100000 * 100 : amount * 10000 / pay % 10000;
  }

  Hundredths Reduction(Hundredths net) const {
    Hundredths reduction = net <= Row(46) ? Row(47) : 0;
    if (net >= Row(49)) {
      reduction = Row(53);
    } else if (net > Row(48)) {
      reduction = Money(Row(47) * 10000 - (net - Row(48)) * 1923, 10000);
    }
    if (w_.grade == '0') return reduction;
    return Money(reduction * Row(w_.grade == '1' ? 55 : w_.grade == '2' ? 56 : 54), 100);
  }

  Hundredths Personal() const {
    if (w_.grade != '0') return w_.grade == '3' ? Row(60) : Row(59);
    return w_.birth_year != 0 && 101 - w_.birth_year > 65 ? Row(58) : Row(57);
  }

  Hundredths Family() {
    Hundredths sum = 0;
    for (const Child& c : w_.children) {
      const int weight = *c.whole == 'N' ? 1 : 2;
      const bool disabled = *c.grade == '1' || *c.grade == '2';
      if (c.age == 0 || (c.age >= 25 && !disabled)) continue;
      sum += weight * (++counted_ > 2 ? Row(62) : Row(61));
      in_limit_ += c.age < 25 ? 1 : weight;
      if (c.age < 3) sum += weight * Row(64);
      if (c.age >= 3 && c.age <= 15) sum += weight * Row(63);
      if (disabled) sum += weight * Row(*c.grade == '1' ? 65 : 66);
    }
    sum = Money(sum);
    for (const auto& [persons, grade] : w_.ascendants) {
      if (persons == 0) continue;
      sum = Money(sum * persons + Row(67), persons);
      if (grade > 0) sum = Money(sum * persons + Row(grade == 1 ? 68 : 69), persons);
    }
    return sum;
  }

  Hundredths Deductions() const {
    return (w_.receiver == 'P' ? Row(70) : w_.receiver == 'D' ? Row(71) : 0) + (counted_ > 2 ? Row(72) : 0);
  }

  Hundredths Scale() const {
    constexpr int kLast = 20;
    if (base == Row(kLast)) return 0;  // finds no bracket
    int row = kLast;
    while (base < Row(row)) row -= 4;
    return Money(Money(Money(base - Row(row)) * Row(row + 2), 10000) + Row(row + 1));
  }

  const Worker& w_;
  int counted_ = 0;
  int in_limit_ = 0;
};

Worker RandomWorker(std::mt19937& random) {
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  Worker w{};
  w.pesetas = below(2) == 0;
  w.regularised = below(3) == 0;
  w.ceuta = "00001sSS"[below(8)];
  w.receiver = "AAPD"[below(4)];
  w.contract = "GGIR"[below(4)];
  w.situation = "1122334"[below(7)];
  w.grade = "000123"[below(6)];
  w.birth_year = below(8) == 0 ? 0 : 10 + below(70);
  const int unit = w.pesetas ? 100 : 1;
  const auto amount = [&](int pesetas) { return static_cast<Hundredths>(below(pesetas)) * 100 + below(100) / unit; };
  w.pay = 90000000 + amount(below(2) == 0 ? 2500000 : 8000000);
  w.irregular = below(4) == 0 ? amount(500000) : 0;
  w.expenses = amount(400000);
  w.annuity = below(4) == 0 ? amount(800000) : 0;
  w.paid = amount(4000000);
  w.withheld = amount(700000);
  constexpr const char* kGrades[] = {"", "0", "1", "2", "2x"};
  constexpr const char* kWhole[] = {"", "N", "N", "S"};
  for (int i = below(2) * below(7); i > 0; --i) w.children.push_back({below(30), kWhole[below(4)], kGrades[below(5)]});
  for (int i = below(2) * below(5); i > 0; --i) {
    const int persons = below(10);
    w.ascendants.emplace_back(persons, below(3));
  }

  // Exactly onto a limit, or one unit beside it.
  const Hundredths beside = (below(3) - Hundredths{1}) * unit;
  switch (below(8)) {
    case 0:
      w.pay = Reference(w).raised + beside;
      break;
    case 1:
      w.pay = Row(73) + beside;
      break;
    case 2:
      w.pay = Row(std::array{46, 48, 49}[static_cast<std::size_t>(below(3))]) + w.irregular + w.expenses + beside;
      break;
    case 3:
      w.annuity += Reference(w).base - Row(4 * below(6)) + beside;
      break;
    case 4:
      // Not by hundredths: a double does not tell such a difference to the digit.
      w.paid = w.pay + (w.pesetas ? beside : 0);
      break;
    default:
      break;
  }
  return w;
}

TEST(Contraste, GivesTheSameFiguresAsWholeHundredths) {
  std::mt19937 random(19990101);
  const auto hundredths = [](const std::string& text) -> Hundredths { return std::llround(ValorNumero(text) * 100); };
  int withheld = 0;
  for (int i = 0; i < 40000; ++i) {
    const Worker worker = RandomWorker(random);
    const Reference reference(worker);
    const DesgloseIRPF d =
        CalculaTipoIRPF(worker.Entradas(), Parametros(),
                        {.ano = "01", .pesetas = worker.pesetas, .regularizacion = worker.regularised});
    SCOPED_TRACE(i);
    ASSERT_EQ(hundredths(d.base_retencion), reference.base);
    ASSERT_EQ(hundredths(d.limite), reference.raised);
    // A half of a hundredth may fall either way in a double.
    ASSERT_LE(std::abs(hundredths(d.cuota_retencion) - reference.amount), worker.pesetas ? 0 : 1)
        << "pay " << Text(worker.pay);
    ASSERT_EQ(d.tipo, reference.rate_text) << "pay " << Text(worker.pay);
    if (d.tipo != "0") ++withheld;
  }
  EXPECT_GT(withheld, 20000);
}

}  // namespace
}  // namespace zendara
