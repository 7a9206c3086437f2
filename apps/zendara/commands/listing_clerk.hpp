// Somebody at the screens who asks for one listing: opens them, fills in the range, presses Impresora and leaves. Any
// box is an answer that ends the work.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "print/listing.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"

namespace zendara {

// What is done on a screen, in this order.
struct ScreenOrder {
  std::string screen;
  // Options to choose, and fields with what is typed over them. An empty text leaves the field as it is.
  std::vector<std::string> options;
  std::vector<std::pair<std::string, std::string>> fields;
  std::string button;  // at the end
};

struct StagedListing {
  print::Listing listing;
  print::ListingHead head;
  std::unique_ptr<print::ListingRows> rows;
};

class ListingClerk : public FormHost, public Dialogs {
 public:
  explicit ListingClerk(std::vector<ScreenOrder> orders);

  // Surroundings of the screens.
  const Components& Neighbours() const { return components_; }
  void ShowModal(Form& form) override;
  void DoEvents() override {}
  void ShowHelp(const std::string& /*file*/, int /*context*/, const HelpPlace& /*place*/) override {}
  BoxAnswer Show(const Box& box) override;
  void Beep() override {}

  // The listing that came, with its rows as they were then. CommandError with the words of the box that came instead,
  // or when none came.
  StagedListing Take();

 private:
  class Viewer;

  void Do(Form& form, const ScreenOrder& order);

  std::vector<ScreenOrder> orders_;
  Components components_;
  std::string refused_;
  StagedListing staged_;
};

}  // namespace zendara
