#include "adapters/entry/user.hpp"

#include <string>
#include <vector>

#include "adapters/entry/other_object.hpp"
#include "adapters/entry/ports.hpp"
#include "adapters/entry/screen_handle.hpp"
#include "adapters/entry/shown_objects.hpp"
#include "adapters/entry/variant.hpp"
#include "adapters/plain_c/list_handle.hpp"
#include "adapters/plain_c/outside_call.hpp"
#include "adapters/plain_c/plain_listing.hpp"

namespace zendara {
namespace {

// The screens that are shown, one within the other: a listing is asked for by the last one.
class ShownScreens {
 public:
  class Entry {
   public:
    Entry(ShownScreens& screens, std::string name) : screens_(screens) { screens_.names_.push_back(std::move(name)); }
    ~Entry() { screens_.names_.pop_back(); }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

   private:
    ShownScreens& screens_;
  };

  std::string Last() const { return names_.empty() ? std::string() : names_.back(); }

 private:
  std::vector<std::string> names_;
};

class TableUser final : public ScreenUser {
 public:
  explicit TableUser(const zendara_user& table) : table_(table) {}

  void OnScreen(ShownScreen& screen) override {
    const ShownScreens::Entry entry(screens_, screen.Name());
    zendara_screen handle{screen};
    CallOutside("user: Screen", table_.Screen, table_.self, &handle);
  }
  BoxAnswer OnBox(const Box& box) override {
    if (!table_.Box) return ScreenUser::OnBox(box);
    const PlainBox plain(box);
    auto answer = static_cast<std::uint32_t>(DefaultAnswer(box));
    CallOutside("user: Box", table_.Box, table_.self, plain.Get(), &answer);
    return AnswerTo(box, answer);
  }
  std::optional<std::size_t> OnList(const std::string& title, ShownRows& rows) override {
    if (!table_.List) return std::nullopt;
    zendara_list list{title, rows};
    std::uint64_t row = 0;
    if (CallOutside("user: List", table_.List, table_.self, &list, &row) != ZENDARA_OK) return std::nullopt;
    return row;
  }
  void OnListing(const ListingDescription& description, const std::string& file, const std::string& table) override {
    if (!table_.Listing) return;
    const std::string form = screens_.Last();
    const PlainListing listing(description, file, table, form);
    CallOutside("user: Listing", table_.Listing, table_.self, listing.Get());
  }

 private:
  zendara_user table_;
  ShownScreens screens_;
};

// The arguments of a call by name.
template <std::size_t N>
struct CallArguments {
  zendara_variant items[N] = {};
  CallArguments() = default;
  CallArguments(const CallArguments&) = delete;
  CallArguments& operator=(const CallArguments&) = delete;
  ~CallArguments() {
    for (zendara_variant& item : items) zendara_variant_clear(&item);
  }
};

class NamedUser final : public ScreenUser {
 public:
  explicit NamedUser(zendara_unknown& object) : object_(object) {}

  void OnScreen(ShownScreen& screen) override {
    const ShownScreens::Entry entry(screens_, screen.Name());
    const auto shown = Make<ScreenObject>(screen);
    const Revocation<ScreenObject> end(*shown);
    CallArguments<1> given;
    zendara_variant_set_object(&given.items[0], shown.get());
    Variant nothing;
    if (!object_.Call("OnScreen", ZENDARA_METHOD, given.items, 1, nothing)) ThrowNotServed("user: OnScreen");
  }
  BoxAnswer OnBox(const Box& box) override {
    CallArguments<5> given;
    Put(given.items[0], box.text);
    PutLong(given.items[1], static_cast<std::int32_t>(box.buttons));
    PutLong(given.items[2], static_cast<std::int32_t>(box.icon));
    PutLong(given.items[3], box.default_button);
    Put(given.items[4], box.title);
    Variant answer;
    const bool called = object_.Call("OnBox", ZENDARA_METHOD, given.items, 5, answer);
    if (!called || IsNothing(answer)) return ScreenUser::OnBox(box);
    return AnswerTo(box, ToLong(answer));
  }
  std::optional<std::size_t> OnList(const std::string& title, ShownRows& rows) override {
    const auto shown = Make<ListObject>(title, rows);
    const Revocation<ListObject> end(*shown);
    CallArguments<1> given;
    zendara_variant_set_object(&given.items[0], shown.get());
    Variant row;
    const bool called = object_.Call("OnList", ZENDARA_METHOD, given.items, 1, row);
    if (!called || IsNothing(row)) return std::nullopt;
    const std::int32_t number = ToLong(row);
    if (number < 0) return std::nullopt;
    return static_cast<std::size_t>(number);
  }
  void OnListing(const ListingDescription& description, const std::string& file, const std::string& table) override {
    const std::string form = screens_.Last();
    const PlainListing listing(description, file, table, form);
    CallArguments<4> given;
    Put(given.items[0], listing.Get()->title);
    Put(given.items[1], file);
    Put(given.items[2], table);
    Put(given.items[3], form);
    Variant nothing;
    object_.Call("OnListing", ZENDARA_METHOD, given.items, 4, nothing);
  }

 private:
  OtherObject object_;
  ShownScreens screens_;
};

}  // namespace

std::unique_ptr<ScreenUser> UserOf(const zendara_user& table) { return std::make_unique<TableUser>(table); }
std::unique_ptr<ScreenUser> UserOf(zendara_unknown& object) { return std::make_unique<NamedUser>(object); }

}  // namespace zendara
