// The windowed front end: shows forms, boxes, lists and help, starts programs.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/cairo/pango_text.hpp"
#include "adapters/cups/printers.hpp"
#include "adapters/qt/document_keeper.hpp"
#include "adapters/qt/file_keeper.hpp"
#include "adapters/qt/listing_keeper.hpp"
#include "adapters/qt/own_boxes.hpp"
#include "adapters/qt/window_places.hpp"
#include "common/row_list.hpp"
#include "print/document_writer.hpp"
#include "print/listing.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"

class QWidget;

namespace zendara {

class FormWindow;
class HelpWindow;

class QtHost : public FormHost, public Dialogs, public Shell {
 public:
  // `documents` writes what the user keeps, `drafts` keeps what was typed and not saved, nullptr: nobody does. Both
  // outlive the host. REQUIRES: a QApplication.
  explicit QtHost(const print::DocumentWriter& documents, DraftKeeper* drafts = nullptr);
  ~QtHost() override;
  QtHost(const QtHost&) = delete;
  QtHost& operator=(const QtHost&) = delete;

  // Offers pick list, banner and listing viewer of this front end, which live as long as it does.
  void OfferNeighbours(Components& components);
  const print::DocumentWriter& Documents() const { return documents_; }
  // In place of the dialog that asks where something is to be kept.
  void OnChooseFile(ChooseFile choose) { files_.OnChoose(std::move(choose)); }
  // In place of those of the machine; they outlive the host.
  void UsePrinters(const Printers& printers) { printers_ = &printers; }
  FormWindow* WindowOf(const Form& form) const;
  // Of the form that is shown on top; nullptr if none is.
  FormWindow* Top() const { return windows_.empty() ? nullptr : windows_.back(); }
  // Where the windows of forms and the help stood when they were closed, by the form's name.
  WindowPlaces& Places() { return places_; }
  HelpWindow& Help();
  // The pick list's window: the row that the user takes. Throws what reading the rows throws.
  std::optional<std::size_t> Choose(const std::string& title, RowList& rows);

  // The preview of a listing, over the window of that form if it has one, until it is closed. Throws what reading the
  // rows throws.
  void Preview(print::Listing listing, print::ListingHead head, std::unique_ptr<print::ListingRows> rows,
               const Form* form);

  void ShowModal(Form& form) override;
  void DoEvents() override;
  void ShowHelp(const std::string& file, int context, const HelpPlace& place) override;
  std::int32_t WindowHandle(Form& form) override;
  std::optional<ControlPlace> PlaceOf(const Control& control) override;
  DraftKeeper* Drafts() override { return drafts_; }
  void ShowDrafts(Form& form) override;

  BoxAnswer Show(const Box& box) override;
  void Beep() override;

  int FindWindow(std::string_view class_name, std::string_view title) override;
  int Start(std::string_view program) override;
  void Activate(int task) override;
  void Activate(std::string_view title) override;

 private:
  std::unique_ptr<FormWindow> MakeWindow(Form& form, QWidget* behind);
  void FlushAll();
  // Those that the platform had when the screen on top was made; these here while there is none.
  Dialogs& BoxesOfScreens();
  // The window that a new one stands before.
  QWidget* Behind() const;

  const print::DocumentWriter& documents_;
  OwnBoxes boxes_{[this]() -> Dialogs& { return BoxesOfScreens(); }, *this};
  FileKeeper files_{boxes_};
  DocumentKeeper keeper_{documents_, files_};
  CupsPrinters machine_printers_;
  const Printers* printers_ = &machine_printers_;
  std::unique_ptr<PangoMeasure> measure_;  // of listings, once there was one
  DraftKeeper* drafts_;
  std::vector<FormWindow*> windows_;                   // shown; the last is on top
  std::vector<std::unique_ptr<FormWindow>> awaiting_;  // asked for by forms that load, and shown next
  WindowPlaces places_;
  std::unique_ptr<HelpWindow> help_;
};

}  // namespace zendara
