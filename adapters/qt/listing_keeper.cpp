#include "adapters/qt/listing_keeper.hpp"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <algorithm>
#include <limits>
#include <optional>

#include "adapters/cairo/cairo_listing_writer.hpp"
#include "adapters/csv/csv_listing_writer.hpp"
#include "adapters/qt/own_window.hpp"
#include "adapters/qt/print_dialog.hpp"
#include "adapters/qt/text.hpp"
#include "adapters/xlsx/xlsx_listing_writer.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kPatience = 1000;  // milliseconds, after which somebody sees how far it is

// Shows how far a writer is, and lets the user stop it. Until it is to be seen keys wait.
class Wait {
 public:
  Wait(const QString& words, const print::PagedListing& listing, QWidget& over)
      : listing_(listing), dialog_(words, QStringLiteral("&Detener"), 0, 0, &over) {
    BeginOwnWindow(dialog_);
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setWindowTitle(over.windowTitle());
    dialog_.setMinimumDuration(kPatience);
    dialog_.setAutoReset(false);
    Show(0);
  }

  bool MayGoOn(std::size_t rows_done) {
    Show(rows_done);
    QApplication::processEvents(dialog_.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    return !dialog_.wasCanceled();
  }

 private:
  void Show(std::size_t rows_done) {
    // Until all is read nobody knows how much it is: the bar only moves.
    dialog_.setMaximum(listing_.Complete() ? ToInt(listing_.Rows()) : 0);
    dialog_.setValue(ToInt(rows_done));
  }
  static int ToInt(std::size_t number) {
    return static_cast<int>(std::min<std::size_t>(number, std::numeric_limits<int>::max()));
  }

  const print::PagedListing& listing_;
  QProgressDialog dialog_;
};

// Asking for printers may take as long as a network takes to answer.
class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

std::vector<ListingFile> ListingFiles(const PangoMeasure& measure, YearWindow years) {
  std::vector<ListingFile> files;
  files.push_back({{"Documento PDF", "pdf"}, std::make_unique<CairoListingWriter>(measure)});
  files.push_back({{"Hoja de cálculo XLSX", "xlsx"}, std::make_unique<XlsxListingWriter>(years)});
  files.push_back({{"Texto CSV", "csv"}, std::make_unique<CsvListingWriter>(CsvListingWriter::Kind::kPlain)});
  files.push_back({{"Texto CSV para hoja de cálculo", "csv"},
                   std::make_unique<CsvListingWriter>(CsvListingWriter::Kind::kSpreadsheet)});
  return files;
}

QString ListingKeeper::Save(print::PagedListing& listing, QWidget& over) {
  std::vector<FileFormat> kinds;
  for (const ListingFile& file : kinds_) kinds.push_back(file.kind);
  const auto write = [&](const std::string& path, std::size_t kind, print::DocumentWriter::Existing existing) {
    Wait wait(QStringLiteral("Se está guardando el listado…"), listing, over);
    const auto progress = [&](std::size_t rows_done) { return wait.MayGoOn(rows_done); };
    return kinds_[kind].writer->Write(listing, path, existing, progress) == print::Kept::kWritten;
  };
  return files_.Keep([&] { return listing.Description().title; }, kinds, write, over);
}

QString ListingKeeper::Print(print::PagedListing& listing, QWidget& over) {
  QString said;
  try {
    const std::vector<Printer> printers = (WaitCursor(), printers_.List());
    if (printers.empty()) return QStringLiteral("No hay ninguna impresora en este equipo.");
    PrintDialog dialog(printers, &over);
    if (dialog.exec() != QDialog::Accepted) return {};
    PrintJob job = dialog.Job();
    job.title = listing.Description().title;
    // The printer gets what the file would be.
    const QTemporaryDir folder;
    if (!folder.isValid()) throw RuntimeError(kPathFileAccess, {}, FromQt(folder.errorString()));
    const std::string path = QFile::encodeName(folder.filePath(QStringLiteral("listado.pdf"))).toStdString();
    {
      Wait wait(QStringLiteral("Se está preparando la impresión…"), listing, over);
      const auto progress = [&](std::size_t rows_done) { return wait.MayGoOn(rows_done); };
      if (kinds_.front().writer->Write(listing, path, print::DocumentWriter::Existing::kKeep, progress) ==
          print::Kept::kStopped) {
        return QStringLiteral("No se ha impreso.");
      }
    }
    const WaitCursor wait;
    printers_.Send(job, path);
    said = QStringLiteral("Enviado a la impresora ") + ToQt(job.printer);
  } catch (...) {
    files_.ShowFailure("No se ha podido imprimir:");
  }
  over.activateWindow();
  return said;
}

}  // namespace zendara
