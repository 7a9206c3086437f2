// Listings as spreadsheets and as CSV: what another program finds in them, and that there is the whole file or none.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unzip.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>

#include "adapters/csv/csv.hpp"
#include "adapters/csv/csv_listing_writer.hpp"
#include "adapters/xlsx/xlsx_listing_writer.hpp"
#include "print/fixed_measure.hpp"
#include "print/given_rows.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using print::CellSide;
using print::DocumentWriter;
using print::Kept;
using testing::HasSubstr;
using Table = std::vector<print::Texts>;

// Their sides are in turn text, number, centred.
print::PagedListing ListingOf(const print::Texts& titles, std::unique_ptr<print::ListingRows> rows) {
  static const print::FixedMeasure measure;
  print::Listing listing{"Altas & bajas", {}, false};
  for (std::size_t i = 0; i < titles.size(); ++i) {
    listing.columns.push_back({titles[i], static_cast<CellSide>(i % 3), 1000});
  }
  return {listing, {"00001", "Empresa <1>", "31/12/2001"}, std::move(rows), measure};
}
print::PagedListing ListingOf(const print::Texts& titles, const Table& rows) {
  return ListingOf(titles, std::make_unique<print::GivenRows>(rows));
}

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Part(const fs::path& package, const std::string& name) {
  unzFile file = unzOpen64(package.c_str());
  std::string text;
  if (unzLocateFile(file, name.c_str(), 1) == UNZ_OK && unzOpenCurrentFile(file) == UNZ_OK) {
    std::string piece(1 << 16, '\0');
    for (int n = 0; (n = unzReadCurrentFile(file, piece.data(), 1 << 16)) > 0;) text.append(piece, 0, std::size_t(n));
  }
  unzClose(file);
  return text;
}

// Only a stop ends them.
struct EndlessRows : print::ListingRows {
  bool Next(print::Texts& cells) override {
    cells = {"x", "1", "y"};
    return true;
  }
};

// Place, then the text in quotes or the number with its format, a line each.
std::string Cells(const fs::path& package, const std::string& sheet = "sheet1") {
  const std::string styles = Part(package, "xl/styles.xml");
  std::map<std::string, std::string> codes = {{"0", ""}, {"1", "0"}, {"2", "0.00"}, {"49", "@"}};
  const std::regex code_mark(R"re(<numFmt numFmtId="(\d+)" formatCode="([^"]*)")re");
  for (std::sregex_iterator i(styles.begin(), styles.end(), code_mark), end; i != end; ++i) codes[(*i)[1]] = (*i)[2];
  const std::string formats = styles.substr(styles.find("<cellXfs"));
  std::vector<std::string> code_of;
  const std::regex format_mark(R"re(<xf numFmtId="(\d+)")re");
  for (std::sregex_iterator i(formats.begin(), formats.begin() + formats.find("</cellXfs>"), format_mark), end;
       i != end; ++i) {
    code_of.push_back(codes[(*i)[1]]);
  }

  const std::string xml = Part(package, "xl/worksheets/" + sheet + ".xml");
  EXPECT_THAT(xml, testing::Not(HasSubstr("<f>")));
  std::string cells;
  const std::regex mark(
      R"re(<c r="(\w+)"(?: s="(\d+)")?(?: t="inlineStr"><is><t[^>]*>([^<]*)</t></is>|><v>([^<]*)</v>)</c>)re");
  for (std::sregex_iterator i(xml.begin(), xml.end(), mark), end; i != end; ++i) {
    const std::smatch& cell = *i;
    cells += cell[1].str() + ' ';
    if (cell[4].matched) {
      cells += cell[4].str() + ' ' + code_of[std::stoul(cell[2])] + '\n';
    } else {
      cells += "'" + cell[3].str() + "'\n";
    }
  }
  return cells;
}

class ListingFilesTest : public testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(dir_);
    fs::create_directory(dir_);
    path_ = dir_ / "listado";
  }
  void TearDown() override { fs::remove_all(dir_); }

  Kept Write(const print::ListingWriter& writer, print::PagedListing listing,
             DocumentWriter::Existing existing = DocumentWriter::Existing::kKeep,
             const print::Progress& progress = {}) {
    return writer.Write(listing, path_, existing, progress);
  }
  std::size_t Entries() const { return static_cast<std::size_t>(std::distance(fs::directory_iterator(dir_), {})); }

  const XlsxListingWriter xlsx_{YearWindow{2029}};
  const CsvListingWriter csv_{CsvListingWriter::Kind::kPlain};
  const CsvListingWriter marked_{CsvListingWriter::Kind::kSpreadsheet};
  fs::path dir_;
  std::string path_;
};

TEST_F(ListingFilesTest, SpreadsheetHasNumbersAndDatesOnlyWhereNothingIsLost) {
  Write(xlsx_, ListingOf({"Código", "Importe", "Nota", "Baja", "Nº", "Alta"},
                         {{"00001", "1234,50", "=1+1", "01/02/99", "00007", "01/02/1935"},
                          {"", " -3", "a & <b>", "", "12", "29/02/2000"},
                          {"2", "01/02/01", " x", "01/01/30", "9", "31/12/29"},
                          {"3", "1234567890123456", "ñ\xFF", "28/02/1900", "", ""},
                          {"4", "12.5", "\x01", "31/12/29", "", ""}}));
  const std::string date = "[$-C0A]dd/mm/yy";
  EXPECT_EQ(Cells(path_),
            "A1 'Código'\nB1 'Importe'\nC1 'Nota'\nD1 'Baja'\nE1 'Nº'\nF1 'Alta'\n"
            "A2 '00001'\nB2 1234.5 0.00\nC2 '=1+1'\nD2 '01/02/99'\nE2 '00007'\nF2 12816 " +
                date +
                "yy\n"
                "B3 -3 0\nC3 'a &amp; &lt;b&gt;'\nE3 '12'\nF3 36585 " +
                date +
                "yy\n"
                "A4 '2'\nB4 '01/02/01'\nC4 ' x'\nD4 '01/01/30'\nE4 '9'\nF4 47483 " +
                date +
                "\n"
                "A5 '3'\nB5 '1234567890123456'\nC5 'ñ\uFFFD'\nD5 '28/02/1900'\n"
                "A6 '4'\nB6 '12.5'\nC6 '_x0001_'\nD6 '31/12/29'\n");
  const std::string sheet = Part(path_, "xl/worksheets/sheet1.xml");
  for (const char* part :
       {"state=\"frozen\"", "<autoFilter ref=\"A1:F6\"/>", "&amp;L00001 Empresa", "&amp;CAltas &amp;&amp; bajas"}) {
    EXPECT_THAT(sheet, HasSubstr(part));
  }
  EXPECT_THAT(Part(path_, "docProps/core.xml"), HasSubstr("<dc:title>Altas &amp; bajas</dc:title>"));
}

TEST_F(ListingFilesTest, SpreadsheetGoesOnOnAnotherSheet) {
  EXPECT_EQ(Write(XlsxListingWriter(YearWindow{2029}, 2), ListingOf({"A"}, {{"x"}, {"y"}, {"z"}})), Kept::kWritten);
  EXPECT_EQ(Cells(path_, "sheet1"), "A1 'A'\nA2 'x'\nA3 'y'\n");
  EXPECT_EQ(Cells(path_, "sheet2"), "A1 'A'\nA2 'z'\n");
}

TEST_F(ListingFilesTest, CsvHasTheTextsAsTheyWereStaged) {
  const Table rows = {{"00001", "1,5", "=1+1"}, {"", "a\"b", "c;d\r\ne"}, {"", "", ""}};
  Write(csv_, ListingOf({"Código", "N", "Nota"}, rows));
  std::ifstream file(path_, std::ios::binary);
  CsvReader reader(file);
  Table found;
  for (std::vector<CsvField> row; reader.Next(row);) {
    found.emplace_back();
    for (const CsvField& field : row) found.back().push_back(field.text);
  }
  EXPECT_EQ(found, (Table{{"Código", "N", "Nota"}, rows[0], rows[1], rows[2]}));

  Write(marked_, ListingOf({"Código", "N", "Nota"}, rows), DocumentWriter::Existing::kReplace);
  EXPECT_EQ(Contents(path_),
            "\xEF\xBB\xBF"
            "Código;N;Nota\r\n00001;\"1,5\";\"=1+1\"\r\n;\"a\"\"b\";\"c;d\r\ne\"\r\n;;\r\n");
}

TEST_F(ListingFilesTest, ThereIsTheWholeFileOrNone) {
  const Table rows(1000, {"00001", "1,5", "algo más de texto"});
  signal(SIGXFSZ, SIG_IGN);
  rlimit before = {};
  getrlimit(RLIMIT_FSIZE, &before);
  for (const print::ListingWriter* writer : std::initializer_list<const print::ListingWriter*>{&xlsx_, &csv_}) {
    const auto kept = [&] { return writer == &csv_ ? Contents(path_) : Part(path_, "xl/worksheets/sheet1.xml"); };
    Write(*writer, ListingOf({"A", "B", "C"}, rows));
    const std::string whole = kept();
    // Files of a process may not grow past a size, those of the rows neither. The edge is where the last byte of the
    // largest one has no room.
    rlim_t fails = 0;
    rlim_t works = 1 << 22;
    while (works - fails > 1) {
      fs::remove(path_);
      const rlim_t size = (fails + works) / 2;
      SCOPED_TRACE(size);
      const rlimit small = {size, before.rlim_max};
      setrlimit(RLIMIT_FSIZE, &small);
      int error = 0;
      try {
        Write(*writer, ListingOf({"A", "B", "C"}, rows));
      } catch (const RuntimeError& failure) {
        error = failure.number();
        EXPECT_THAT(failure.detail(), HasSubstr(path_));
      }
      setrlimit(RLIMIT_FSIZE, &before);
      (error == 0 ? works : fails) = size;
      if (error == 0) {
        EXPECT_EQ(kept(), whole);
      } else {
        EXPECT_EQ(error, kDiskFull);
        EXPECT_EQ(Entries(), 0U);
      }
    }
    EXPECT_EQ(works, whole.size());

    Write(*writer, ListingOf({"A", "B", "C"}, rows), DocumentWriter::Existing::kReplace);
    EXPECT_THROW(Write(*writer, ListingOf({"A"}, {{"x"}})), RuntimeError);  // it is to be kept
    const print::Progress stop = [](std::size_t /*rows*/) { return false; };
    EXPECT_EQ(Write(*writer, ListingOf({"A", "B", "C"}, std::make_unique<EndlessRows>()),
                    DocumentWriter::Existing::kReplace, stop),
              Kept::kStopped);
    EXPECT_EQ(kept(), whole);
    EXPECT_EQ(Entries(), 1U);
    fs::remove(path_);
  }
}

}  // namespace
}  // namespace zendara
