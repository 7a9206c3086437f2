#include "adapters/qt/keys.hpp"

#include <algorithm>
#include <iterator>

#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

struct Pair {
  int qt;
  int model;
};
// The first of several keys with one code is the one that scripts press.
constexpr Pair kPairs[] = {
    {Qt::Key_Backspace, key::kBack}, {Qt::Key_Tab, key::kTab},           {Qt::Key_Backtab, key::kTab},
    {Qt::Key_Return, key::kEnter},   {Qt::Key_Enter, key::kEnter},       {Qt::Key_Escape, key::kEsc},
    {Qt::Key_PageUp, key::kPageUp},  {Qt::Key_PageDown, key::kPageDown}, {Qt::Key_End, key::kEnd},
    {Qt::Key_Home, key::kHome},      {Qt::Key_Left, key::kLeft},         {Qt::Key_Up, key::kUp},
    {Qt::Key_Right, key::kRight},    {Qt::Key_Down, key::kDown},         {Qt::Key_Insert, key::kInsert},
    {Qt::Key_Delete, key::kDelete},
};
constexpr int kFunctionKeys = 12;

bool IsPlain(int qt_key) {
  return (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) || (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) ||
         qt_key == Qt::Key_Space;
}

int ModelCode(int qt_key) {
  const auto* pair = std::ranges::find(kPairs, qt_key, &Pair::qt);
  if (pair != std::end(kPairs)) return pair->model;
  if (qt_key >= Qt::Key_F1 && qt_key < Qt::Key_F1 + kFunctionKeys) return key::kF1 + qt_key - Qt::Key_F1;
  return IsPlain(qt_key) ? qt_key : 0;
}

bool IsModifier(int qt_key) {
  return (qt_key >= Qt::Key_Shift && qt_key <= Qt::Key_ScrollLock) || qt_key == Qt::Key_AltGr ||
         (qt_key >= Qt::Key_Super_L && qt_key <= Qt::Key_Hyper_R);
}

}  // namespace

std::vector<Key> KeysOf(const QKeyEvent& event) {
  if (IsModifier(event.key())) return {};
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  int shift = (modifiers & Qt::ShiftModifier ? key::kShift : 0) |
              (modifiers & Qt::ControlModifier ? key::kControl : 0) | (modifiers & Qt::AltModifier ? key::kAlt : 0);
  const int code = ModelCode(event.key());
  std::vector<std::string> characters = TypedCharacters(event.text());
  // The third level of the keyboard comes as Ctrl and Alt on some systems.
  if ((shift & key::kControl) && (shift & key::kAlt) && !characters.empty()) shift &= key::kShift;
  if (characters.empty() && IsPlain(event.key()) && (shift & key::kAlt)) {
    characters = TypedCharacters(QString(QChar(event.key())).toLower());
  }
  const bool types_nothing = code != 0 && !IsPlain(event.key());
  if (types_nothing || characters.empty()) {
    if (code == 0) return {};
    return {{.code = code, .shift = shift, .text = {}}};
  }
  std::vector<Key> keys;
  for (const std::string& character : characters) {
    keys.push_back({.code = characters.size() == 1 ? code : 0, .shift = shift, .text = character});
  }
  return keys;
}

QtKey QtKeyOf(const Key& key) {
  QtKey result;
  result.modifiers.setFlag(Qt::ShiftModifier, key.shift & key::kShift);
  result.modifiers.setFlag(Qt::ControlModifier, key.shift & key::kControl);
  result.modifiers.setFlag(Qt::AltModifier, key.shift & key::kAlt);
  result.text = ToQt(key.text);
  const auto* pair = std::ranges::find(kPairs, key.code, &Pair::model);
  if (pair != std::end(kPairs)) {
    result.key = pair->qt == Qt::Key_Tab && (key.shift & key::kShift) ? int{Qt::Key_Backtab} : pair->qt;
  } else if (key.code >= key::kF1 && key.code < key::kF1 + kFunctionKeys) {
    result.key = Qt::Key_F1 + key.code - key::kF1;
  } else if (IsPlain(key.code)) {
    result.key = key.code;
  }
  return result;
}

bool HandleZoomKey(const QKeyEvent& event) {
  if (!(event.modifiers() & Qt::ControlModifier) || (event.modifiers() & Qt::AltModifier)) return false;
  switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // plus without Shift on some keyboards
      zoom::Larger();
      return true;
    case Qt::Key_Minus:
      zoom::Smaller();
      return true;
    case Qt::Key_0:
      zoom::Set(100);
      return true;
    default:
      return false;
  }
}

bool IsKeepKey(const QKeyEvent& event) { return event.matches(QKeySequence::Print); }

}  // namespace zendara
