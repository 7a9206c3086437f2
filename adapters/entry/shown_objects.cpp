#include "adapters/entry/shown_objects.hpp"

#include <cstdint>
#include <vector>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// A number from 0.
std::size_t Index(const Arguments& given, std::uint32_t place) {
  const std::int32_t number = given.Long(place);
  if (number < 0) Refuse(ZENDARA_INVALID, "a number is negative");
  return static_cast<std::size_t>(number);
}

void PutTexts(zendara_variant& variant, const std::vector<std::string>& texts) {
  const zendara_array& array = PutArray(variant, 0, static_cast<std::uint32_t>(texts.size()));
  for (std::uint32_t i = 0; i < array.count; ++i) Put(array.items[i], texts[i]);
}

void Choose(ShownScreen& screen, const Arguments& given) {
  if (Meant(given[1]).type == ZENDARA_TEXT) return screen.Choose(given.Text(0), given.Text(1));
  screen.Choose(given.Text(0), Index(given, 1));
}

}  // namespace

ShownScreen& ScreenObject::Screen() const {
  if (!screen_) throw RuntimeError(kObjectClosed);
  return *screen_;
}

ShownRows& ListObject::Rows() const {
  if (!rows_) throw RuntimeError(kObjectClosed);
  return *rows_;
}

std::span<const Member<ScreenObject>> ScreenObject::Members() {
  static constexpr Member<ScreenObject> kMembers[] = {
      {"Shown", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { PutBoolean(result, self.Shown()); }},
      {"Name", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Screen().Name()); }},
      {"Title", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Screen().Title()); }},
      {"Subject", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Screen().Subject()); }},
      {"Status", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Screen().Status()); }},
      {"Unsaved", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutBoolean(result, self.Screen().Unsaved()); }},
      {"Focused", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Screen().Focused()); }},
      {"Controls", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutTexts(result, self.Screen().Controls()); }},
      {"Caption", ZENDARA_GET, 1, 1,
       [](auto& self, auto& given, auto& result) { Put(result, self.Screen().Facts(given.Text(0)).caption); }},
      {"Usable", ZENDARA_GET, 1, 1,
       [](auto& self, auto& given, auto& result) {
         const ControlFacts facts = self.Screen().Facts(given.Text(0));
         PutBoolean(result, facts.visible && facts.enabled);
       }},
      {"Read", ZENDARA_METHOD | ZENDARA_GET, 1, 1,
       [](auto& self, auto& given, auto& result) { Put(result, self.Screen().Read(given.Text(0))); }},
      {"Focus", ZENDARA_METHOD, 1, 1, [](auto& self, auto& given, auto&) { self.Screen().Focus(given.Text(0)); }},
      {"Type", ZENDARA_METHOD, 1, 1, [](auto& self, auto& given, auto&) { self.Screen().Type(given.Text(0)); }},
      {"Press", ZENDARA_METHOD, 1, 3,
       [](auto& self, auto& given, auto&) {
         self.Screen().Press(
             {given.Long(0), given.Lacks(1) ? 0 : given.Long(1), given.Lacks(2) ? std::string() : given.Text(2)});
       }},
      {"Paste", ZENDARA_METHOD, 1, 1, [](auto& self, auto& given, auto&) { self.Screen().Paste(given.Text(0)); }},
      {"Click", ZENDARA_METHOD, 1, 1, [](auto& self, auto& given, auto&) { self.Screen().Click(given.Text(0)); }},
      {"Choose", ZENDARA_METHOD, 2, 2, [](auto& self, auto& given, auto&) { Choose(self.Screen(), given); }},
      {"Point", ZENDARA_METHOD, 3, 3,
       [](auto& self, auto& given, auto&) { self.Screen().Point(given.Text(0), given.Long(1), given.Long(2)); }},
      {"Turn", ZENDARA_METHOD, 2, 2,
       [](auto& self, auto& given, auto&) { self.Screen().Turn(given.Text(0), given.Long(1)); }},
      {"Close", ZENDARA_METHOD, 0, 0, [](auto& self, auto&, auto&) { self.Screen().Close(); }},
  };
  return kMembers;
}

std::span<const Member<ListObject>> ListObject::Members() {
  static constexpr Member<ListObject> kMembers[] = {
      {"Title", ZENDARA_GET, 0, 0, [](auto& self, auto&, auto& result) { Put(result, self.Title()); }},
      {"Columns", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutLong(result, static_cast<std::int64_t>(self.Rows().Columns())); }},
      {"Count", ZENDARA_GET, 0, 0,
       [](auto& self, auto&, auto& result) { PutLong(result, static_cast<std::int64_t>(self.Rows().Total())); }},
      {"Heading", ZENDARA_GET, 1, 1,
       [](auto& self, auto& given, auto& result) { Put(result, self.Rows().Heading(Index(given, 0))); }},
      {"Cell", ZENDARA_GET, 2, 2,
       [](auto& self, auto& given, auto& result) { Put(result, self.Rows().Cell(Index(given, 0), Index(given, 1))); }},
  };
  return kMembers;
}

}  // namespace zendara
