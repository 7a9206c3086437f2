#include "adapters/cairo/pdf_file.hpp"

#include <cairo-pdf.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <system_error>

#include "adapters/host/file_error.hpp"
#include "runtime/format.hpp"
#include "runtime/surroundings.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
PdfFile::PdfFile(const Facts& facts, const PangoMeasure& measure, const std::string& path,
                 print::DocumentWriter::Existing existing)
    : path_(path),
      measure_(measure),
      file_(path,
            existing == print::DocumentWriter::Existing::kReplace ? NewFile::Taken::kReplace : NewFile::Taken::kKeep),
      surface_(cairo_pdf_surface_create_for_stream(Append, &file_, facts.paper.width / kTwipsPerPoint,
                                                   facts.paper.height / kTwipsPerPoint)),
      cairo_(cairo_create(surface_.get())) {
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, Readable(facts.title).c_str());
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "Zendara");
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATE_DATE, facts.created.c_str());
  Check(cairo_status(cairo_.get()));
}

void PdfFile::Add(const print::Page& page) {
  DrawPage(page, measure_, *cairo_);
  cairo_show_page(cairo_.get());
  Check(cairo_status(cairo_.get()));
}

void PdfFile::Finish() {
  cairo_.reset();
  cairo_surface_finish(surface_.get());
  Check(cairo_surface_status(surface_.get()));
  if (const auto error = file_.Commit()) throw FileError(error, path_);
}

cairo_status_t PdfFile::Append(void* file, const unsigned char* data, unsigned length) {
  try {
    const std::string_view piece(reinterpret_cast<const char*>(data), length);
    return static_cast<NewFile*>(file)->Append(piece) ? CAIRO_STATUS_WRITE_ERROR : CAIRO_STATUS_SUCCESS;
  } catch (...) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

void PdfFile::Check(cairo_status_t status) {
  if (const auto error = file_.Append({})) throw FileError(error, path_);
  if (status == CAIRO_STATUS_NO_MEMORY) throw RuntimeError(kOutOfMemory);
  if (status != CAIRO_STATUS_SUCCESS) throw RuntimeError(kInternalError, {}, cairo_status_to_string(status));
}

std::string TimeNow() {
  constexpr long kSecondsOfADay = 24 * 60 * 60;
  const Date now = Now();
  const double part = (now.serial - std::floor(now.serial)) * kSecondsOfADay;
  const long second = std::min(std::lround(part), kSecondsOfADay - 1);
  const auto digits = [](long number) { return std::to_string(100 + number).substr(1); };
  return FormatDate(now, "yyyy-mm-dd") + "T" + digits(second / 3600) + ":" + digits(second / 60 % 60) + ":" +
         digits(second % 60);
}

}  // namespace zendara
