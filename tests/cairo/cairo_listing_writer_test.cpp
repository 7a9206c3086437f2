// A listing as a file that other programs read.
#include "adapters/cairo/cairo_listing_writer.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "print/given_rows.hpp"
#include "support/pdf.hpp"
#include "support/temp_folder.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using print::Kept;
using enum print::DocumentWriter::Existing;

constexpr int kRows = 300;

class CairoListingWriterTest : public testing::Test {
 protected:
  print::PagedListing Listing(int rows) const {
    print::Listing listing{.title = "Relación",
                           .columns = {{"Código", print::CellSide::kText, 900},
                                       {"Nombre", print::CellSide::kText, 3000},
                                       {"Importe", print::CellSide::kNumber, 1500}}};
    std::vector<print::Texts> texts;
    for (int i = 1; i <= rows; ++i) {
      texts.push_back({"0" + std::to_string(i), "Peña Núñez " + std::to_string(i % 7), std::to_string(i * 37) + ",50"});
    }
    return {listing, {"00001", "Talleres Ñuño", "31/12/2001"}, std::make_unique<print::GivenRows>(texts), measure_};
  }
  bool IsEmpty() const { return fs::is_empty(folder_.path()); }

  const PangoMeasure measure_;
  const CairoListingWriter writer_{measure_};
  TempFolder folder_;
  const std::string path_ = folder_ / "listado.pdf";
};

// Words with one blank between them.
std::vector<std::string> PlainLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string plain;
    for (std::string word; words >> word;) plain += (plain.empty() ? "" : " ") + word;
    if (!plain.empty()) lines.push_back(plain);
  }
  return lines;
}

// What stands on a page, from left to right; lines that overlap are one.
std::vector<std::string> LinesOf(const print::Page& page) {
  constexpr int kSameLine = 100;
  std::map<int, std::map<int, std::string>> lines;
  for (const print::Mark& mark : page.marks) {
    const auto* run = std::get_if<print::TextRun>(&mark);
    if (!run) continue;
    auto line = lines.lower_bound(run->baseline - kSameLine);
    if (line == lines.end() || line->first > run->baseline + kSameLine) line = lines.try_emplace(run->baseline).first;
    line->second[run->x] = run->text;
  }
  std::string text;
  for (const auto& [baseline, runs] : lines) {
    for (const auto& [x, words] : runs) text += words + " ";
    text += "\n";
  }
  return PlainLines(text);
}

TEST_F(CairoListingWriterTest, HasThePagesThatThePreviewShows) {
  print::PagedListing listing = Listing(kRows);
  ASSERT_EQ(writer_.Write(listing, path_, kKeep, {}), Kept::kWritten);
  ASSERT_GT(listing.Pages(), 3U);
  for (std::size_t page = 0; page < listing.Pages(); ++page) {
    const std::string number = std::to_string(page + 1);
    const std::string read = Read("pdftotext -layout -f " + number + " -l " + number + " '" + path_ + "' -");
    EXPECT_EQ(PlainLines(read), LinesOf(listing.PageAt(page))) << number;
  }
  EXPECT_THAT(PdfFacts(path_),
              testing::AllOf(testing::ContainsRegex("Title: +Relación\n"),
                             testing::ContainsRegex("CreationDate: +[A-Z]"), testing::HasSubstr("DejaVuSans")));
}

TEST_F(CairoListingWriterTest, WhoeverStopsItIsLeftWithNothing) {
  print::PagedListing listing = Listing(60'000);
  std::vector<std::size_t> said;
  EXPECT_EQ(writer_.Write(listing, path_, kKeep,
                          [&](std::size_t rows) {
                            said.push_back(rows);
                            return rows == 0;
                          }),
            Kept::kStopped);
  EXPECT_TRUE(std::ranges::is_sorted(said));
  EXPECT_GT(said.back(), 0U);
  EXPECT_TRUE(IsEmpty());
}

struct FailingRows : print::ListingRows {
  bool Next(print::Texts& cells) override {
    if (++count > 2000) throw RuntimeError(kLocked);
    cells = {"x"};
    return true;
  }
  int count = 0;
};

TEST_F(CairoListingWriterTest, ErrorsOfTheRowsLeaveWhatWasThere) {
  print::PagedListing listing({.title = "x", .columns = {{"x", print::CellSide::kText, 900}}}, {},
                              std::make_unique<FailingRows>(), measure_);
  std::ofstream(path_) << "antes";
  EXPECT_THROW(writer_.Write(listing, path_, kReplace, {}), RuntimeError);
  EXPECT_EQ(fs::file_size(path_), 5U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace zendara
