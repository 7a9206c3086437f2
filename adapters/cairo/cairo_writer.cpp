#include "adapters/cairo/cairo_writer.hpp"

#include <cairo-pdf.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <memory>
#include <system_error>

#include "adapters/cairo/pango_text.hpp"
#include "adapters/host/new_file.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kHairline = 0.5;
constexpr double kQuietGrey = 0.35;

struct Release {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};

void Draw(cairo_t& cairo, const print::TextRun& run, const PangoMeasure& measure) {
  const double grey = run.tone == print::Tone::kQuiet ? kQuietGrey : 0;
  cairo_set_source_rgb(&cairo, grey, grey, grey);
  cairo_move_to(&cairo, run.x / kTwipsPerPoint, run.baseline / kTwipsPerPoint);
  measure.Draw(cairo, run.text, run.font);
}

void Draw(cairo_t& cairo, const print::Rule& rule, const PangoMeasure& /*measure*/) {
  cairo_set_source_rgb(&cairo, kQuietGrey, kQuietGrey, kQuietGrey);
  cairo_set_line_width(&cairo, kHairline);
  cairo_move_to(&cairo, rule.x / kTwipsPerPoint, rule.y / kTwipsPerPoint);
  cairo_rel_line_to(&cairo, rule.width / kTwipsPerPoint, 0);
  cairo_stroke(&cairo);
}

cairo_status_t Append(void* contents, const unsigned char* data, unsigned length) {
  try {
    static_cast<std::string*>(contents)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  } catch (...) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

// The whole file in memory: it is small, and what fails here has touched no disk.
std::string PdfOf(const print::Document& document, const PangoMeasure& measure) {
  std::string contents;
  const std::unique_ptr<cairo_surface_t, Release> surface(cairo_pdf_surface_create_for_stream(
      Append, &contents, document.paper.width / kTwipsPerPoint, document.paper.height / kTwipsPerPoint));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, Readable(document.title).c_str());
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATOR, "Zendara");
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, document.created.c_str());
  {
    const std::unique_ptr<cairo_t, Release> cairo(cairo_create(surface.get()));
    for (const print::Page& page : document.pages) {
      for (const print::Mark& mark : page.marks) {
        std::visit([&](const auto& what) { Draw(*cairo, what, measure); }, mark);
      }
      cairo_show_page(cairo.get());
    }
    const cairo_status_t drawn = cairo_status(cairo.get());
    if (drawn != CAIRO_STATUS_SUCCESS) throw RuntimeError(kInternalError, {}, cairo_status_to_string(drawn));
  }
  cairo_surface_finish(surface.get());
  const cairo_status_t written = cairo_surface_status(surface.get());
  if (written == CAIRO_STATUS_NO_MEMORY) throw RuntimeError(kOutOfMemory);
  if (written != CAIRO_STATUS_SUCCESS) throw RuntimeError(kInternalError, {}, cairo_status_to_string(written));
  return contents;
}

int NumberOf(const std::error_code& error) {
  switch (error.value()) {
    case EEXIST:
      return kObjectExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case EACCES:
    case EPERM:
      return kPermissionDenied;
    case EROFS:
    case EISDIR:
    case ENOTEMPTY:
      return kPathFileAccess;
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      return kPathNotFound;
    default:
      return kDeviceIoError;
  }
}

}  // namespace

CairoWriter::CairoWriter() = default;
CairoWriter::~CairoWriter() = default;

const print::TextMeasure& CairoWriter::Measure() const {
  if (!measure_) measure_ = std::make_unique<PangoMeasure>();
  return *measure_;
}

std::string CairoWriter::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  localtime_r(&now, &local);
  std::string text(sizeof "yyyy-mm-ddThh:mm:ss", '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local));
  return text;
}

void CairoWriter::WritePdf(const print::Document& document, const std::string& path, Existing existing) const {
  Measure();
  const std::string contents = PdfOf(document, *measure_);
  const auto error = existing == Existing::kReplace ? ReplaceFile(path, contents) : WriteNewFile(path, contents);
  if (error) throw RuntimeError(NumberOf(error), {path}, path + ": " + error.message(), error.value());
}

}  // namespace zendara
