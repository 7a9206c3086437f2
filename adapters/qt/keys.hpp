// Keys of the toolkit as keys of the model, and back for scripts.
#pragma once

#include <QKeyEvent>
#include <vector>

#include "zendara/forms/control.hpp"

namespace zendara {

// What a key press types or means: none for modifiers alone and keys that the model does not know, several when a dead
// key that does not combine gives its sign and the next one.
std::vector<Key> KeysOf(const QKeyEvent& event);

struct QtKey {
  int key = Qt::Key_unknown;
  Qt::KeyboardModifiers modifiers;
  QString text;
};
QtKey QtKeyOf(const Key& key);

// Ctrl with plus, minus or 0: changes the text size. True if it was one of them.
bool HandleZoomKey(const QKeyEvent& event);
// Ctrl+P: what is shown is to be kept.
bool IsKeepKey(const QKeyEvent& event);

}  // namespace zendara
