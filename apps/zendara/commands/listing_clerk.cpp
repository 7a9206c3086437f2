#include "apps/zendara/commands/listing_clerk.hpp"

#include <algorithm>
#include <utility>

#include "adapters/hosting/current_session.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "runtime/text.hpp"

namespace zendara {

class ListingClerk::Viewer : public ListingViewer {
 public:
  explicit Viewer(StagedListing& staged) : staged_(staged) {}

  void Visualiza(ListingDescription& descripcion) override {
    staged_.listing = print::ReadDescription(descripcion);
    staged_.head = HeadOfComponent();
    staged_.rows =
        print::StagedRows(EngineOfComponent(), file_, table_, staged_.listing.columns.size(), YearsOfComponent());
  }
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { table_ = tabla; }
  void FormularioPadre(Form* /*formulario*/) override {}

 private:
  StagedListing& staged_;
  std::string file_;
  std::string table_;
};

ListingClerk::ListingClerk(std::vector<ScreenOrder> orders) : orders_(std::move(orders)) {
  components_.Register(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
  components_.Register(kListingViewerClass,
                       [this]() -> std::unique_ptr<ListingViewer> { return std::make_unique<Viewer>(staged_); });
}

void ListingClerk::ShowModal(Form& form) {
  const auto order = std::ranges::find(orders_, form.Name(), &ScreenOrder::screen);
  if (order != orders_.end() && refused_.empty()) Do(form, *order);
  form.Unload();
}

// A box about a field that keeps its text was a note: the listing has that limit all the same.
void ListingClerk::Do(Form& form, const ScreenOrder& order) {
  for (const std::string& option : order.options) form.Click(*form.Find(option));
  const TextBox* left = nullptr;
  for (const auto& [id, text] : order.fields) {
    auto& field = dynamic_cast<TextBox&>(*form.Find(id));
    form.Run([&] { form.SetFocus(field); });
    if (left && !left->Text().empty()) refused_.clear();
    if (!refused_.empty()) return;
    left = &field;
    if (text.empty()) continue;
    form.Press({.code = key::kHome, .shift = 0, .text = {}});
    for (std::size_t i = Len(field.Text()); i > 0; --i) form.Press({.code = key::kDelete, .shift = 0, .text = {}});
    form.Paste(text);
  }
  form.Click(*form.Find(order.button));
}

// The first one says what was wrong: what comes after it comes of it.
BoxAnswer ListingClerk::Show(const Box& box) {
  if (refused_.empty()) refused_ = Trim(box.text);
  return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kNo;
}

StagedListing ListingClerk::Take() {
  if (staged_.rows) return std::move(staged_);
  throw CommandError(refused_.empty() ? "there is nothing to list" : refused_);
}

}  // namespace zendara
