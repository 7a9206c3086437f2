// The functions of zendara/zendara.h for a screen that is shown and for a list to pick from.
#include <string>

#include "adapters/entry/failure.hpp"
#include "adapters/entry/screen_handle.hpp"
#include "adapters/entry/text.hpp"
#include "adapters/plain_c/list_handle.hpp"

namespace zendara {
namespace {

ShownScreen& Screen(zendara_screen* screen) { return Needed(screen, "a screen is null").screen; }

zendara_result Truth(bool value) { return value ? ZENDARA_OK : ZENDARA_FALSE; }

// A text of the screen's.
zendara_result Give(zendara_screen* screen, char** text, std::string (ShownScreen::*read)() const) {
  return AnswerInThread([&] {
    Needed(text) = nullptr;
    GiveText(text, (Screen(screen).*read)());
  });
}

template <typename Body>
zendara_result Act(zendara_screen* screen, Body act) {
  return AnswerInThread([&] { act(Screen(screen)); });
}

// Borrowed until the next call on the same list.
const char* Lend(zendara_list& list, std::string text) {
  list.text = std::move(text);
  return list.text.c_str();
}

}  // namespace
}  // namespace zendara

using namespace zendara;

extern "C" {

zendara_result zendara_screen_shown(zendara_screen* screen) {
  return AnswerInThread([&] { return Truth(Screen(screen).Shown()); });
}
zendara_result zendara_screen_name(zendara_screen* screen, char** text) {
  return Give(screen, text, &ShownScreen::Name);
}
zendara_result zendara_screen_title(zendara_screen* screen, char** text) {
  return Give(screen, text, &ShownScreen::Title);
}
zendara_result zendara_screen_subject(zendara_screen* screen, char** text) {
  return Give(screen, text, &ShownScreen::Subject);
}
zendara_result zendara_screen_status(zendara_screen* screen, char** text) {
  return Give(screen, text, &ShownScreen::Status);
}
zendara_result zendara_screen_focused(zendara_screen* screen, char** control) {
  return Give(screen, control, &ShownScreen::Focused);
}
zendara_result zendara_screen_read(zendara_screen* screen, const char* control, char** text) {
  return AnswerInThread([&] {
    Needed(text) = nullptr;
    GiveText(text, Screen(screen).Read(TakeText(control)));
  });
}
zendara_result zendara_screen_caption(zendara_screen* screen, const char* control, char** text) {
  return AnswerInThread([&] {
    Needed(text) = nullptr;
    GiveText(text, Screen(screen).Facts(TakeText(control)).caption);
  });
}
zendara_result zendara_screen_control(zendara_screen* screen, uint32_t number, char** control) {
  return AnswerInThread([&] {
    Needed(control) = nullptr;
    const auto controls = Screen(screen).Controls();
    if (number >= controls.size()) return ZENDARA_FALSE;
    GiveText(control, controls[number]);
    return ZENDARA_OK;
  });
}
zendara_result zendara_screen_usable(zendara_screen* screen, const char* control) {
  return AnswerInThread([&] {
    const ControlFacts facts = Screen(screen).Facts(TakeText(control));
    return Truth(facts.visible && facts.enabled);
  });
}
zendara_result zendara_screen_unsaved(zendara_screen* screen) {
  return AnswerInThread([&] { return Truth(Screen(screen).Unsaved()); });
}

zendara_result zendara_screen_focus(zendara_screen* screen, const char* control) {
  return Act(screen, [&](ShownScreen& shown) { shown.Focus(TakeText(control)); });
}
zendara_result zendara_screen_type(zendara_screen* screen, const char* text) {
  return Act(screen, [&](ShownScreen& shown) { shown.Type(TakeText(text)); });
}
zendara_result zendara_screen_press(zendara_screen* screen, int32_t code, int32_t shift, const char* text) {
  return Act(screen, [&](ShownScreen& shown) { shown.Press({code, shift, TakeTextOrEmpty(text)}); });
}
zendara_result zendara_screen_paste(zendara_screen* screen, const char* text) {
  return Act(screen, [&](ShownScreen& shown) { shown.Paste(TakeText(text)); });
}
zendara_result zendara_screen_click(zendara_screen* screen, const char* control) {
  return Act(screen, [&](ShownScreen& shown) { shown.Click(TakeText(control)); });
}
zendara_result zendara_screen_choose(zendara_screen* screen, const char* list, const char* text) {
  return Act(screen, [&](ShownScreen& shown) { shown.Choose(TakeText(list), TakeText(text)); });
}
zendara_result zendara_screen_choose_item(zendara_screen* screen, const char* list, uint32_t item) {
  return Act(screen, [&](ShownScreen& shown) { shown.Choose(TakeText(list), item); });
}
zendara_result zendara_screen_point(zendara_screen* screen, const char* grid, int32_t row, int32_t column) {
  return Act(screen, [&](ShownScreen& shown) { shown.Point(TakeText(grid), row, column); });
}
zendara_result zendara_screen_turn(zendara_screen* screen, const char* tabs, int32_t page) {
  return Act(screen, [&](ShownScreen& shown) { shown.Turn(TakeText(tabs), page); });
}
zendara_result zendara_screen_close(zendara_screen* screen) {
  return Act(screen, [](ShownScreen& shown) { shown.Close(); });
}

zendara_result zendara_list_title(zendara_list* list, const char** title) {
  return AnswerInThread([&] { Needed(title) = Needed(list).title.c_str(); });
}
zendara_result zendara_list_columns(zendara_list* list, uint32_t* count) {
  return AnswerInThread([&] { Needed(count) = static_cast<uint32_t>(Needed(list).rows.Columns()); });
}
zendara_result zendara_list_heading(zendara_list* list, uint32_t column, const char** text) {
  return AnswerInThread([&] {
    Needed(text) = nullptr;
    *text = Lend(*list, Needed(list).rows.Heading(column));
  });
}
zendara_result zendara_list_count(zendara_list* list, uint64_t* rows) {
  return AnswerInThread([&] { Needed(rows) = Needed(list).rows.Total(); });
}
zendara_result zendara_list_cell(zendara_list* list, uint64_t row, uint32_t column, const char** text) {
  return AnswerInThread([&] {
    Needed(text) = nullptr;
    if (!Needed(list).rows.Has(row)) return ZENDARA_FALSE;
    *text = Lend(*list, list->rows.Cell(row, column));
    return ZENDARA_OK;
  });
}
}
