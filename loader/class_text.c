#include "loader/class_text.h"

#include <string.h>

#include "loader/class_name.h"

static int Digit(char c, int base) {
  if (c >= '0' && c <= '9') return c - '0';
  if (base == 16 && c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (base == 16 && c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

static const char *TakeText(const char *value, char *place, size_t room, const char *too_long) {
  if (strlen(value) >= room) return too_long;
  strcpy(place, value);
  return NULL;
}

static const char *TakeName(const char *value, zendara_class_file *file) {
  if (!IsClassName(value)) return "its Name is no name of a class";
  return TakeText(value, file->name, sizeof file->name, "its Name is too long");
}

/* "{6C1B83D4-52E7-4F0A-9B3D-27E45A90C811}" */
static const char *TakeId(const char *value, zendara_class_file *file) {
  static const char form[] = "{00000000-0000-0000-0000-000000000000}";
  uint8_t bytes[16];
  size_t digits = 0;
  for (size_t i = 0; i < sizeof form; ++i) {
    const int digit = Digit(value[i], 16);
    if (form[i] == '0' ? digit < 0 : value[i] != form[i]) return "its Id is no identifier in braces";
    if (form[i] != '0') continue;
    bytes[digits / 2] = (uint8_t)(digits % 2 == 0 ? digit * 16 : bytes[digits / 2] + digit);
    ++digits;
  }
  file->id.a = (uint32_t)bytes[0] << 24 | (uint32_t)bytes[1] << 16 | (uint32_t)bytes[2] << 8 | bytes[3];
  file->id.b = (uint16_t)(bytes[4] << 8 | bytes[5]);
  file->id.c = (uint16_t)(bytes[6] << 8 | bytes[7]);
  memcpy(file->id.d, bytes + 8, sizeof file->id.d);
  return NULL;
}

static const char *TakeLibrary(const char *value, zendara_class_file *file) {
  if (value[0] != '/') return "its Library is no whole path";
  return TakeText(value, file->library, sizeof file->library, "its Library is too long");
}

static const char *TakeVersion(const char *value, zendara_class_file *file) {
  if (Digit(value[0], 10) < 0) return "its Version does not begin with a number";
  return TakeText(value, file->version, sizeof file->version, "its Version is too long");
}

/* Without the blanks around it. */
static char *Trimmed(char *text) {
  text += strspn(text, " \t\r");
  size_t length = strlen(text);
  while (length > 0 && strchr(" \t\r", text[length - 1])) --length;
  text[length] = '\0';
  return text;
}

static const char *TakeLine(char *line, unsigned *found, zendara_class_file *file) {
  static const struct {
    const char *key, *twice;
    const char *(*take)(const char *value, zendara_class_file *file);
  } keys[] = {
      {"Name", "it has two lines Name", TakeName},
      {"Id", "it has two lines Id", TakeId},
      {"Library", "it has two lines Library", TakeLibrary},
      {"Version", "it has two lines Version", TakeVersion},
  };
  char *equals = strchr(line, '=');
  if (!equals) return NULL;
  *equals = '\0';
  const char *key = Trimmed(line);
  for (size_t i = 0; i < sizeof keys / sizeof *keys; ++i) {
    if (strcmp(key, keys[i].key) != 0) continue;
    if (*found & 1U << i) return keys[i].twice;
    *found |= 1U << i;
    return keys[i].take(Trimmed(equals + 1), file);
  }
  return NULL;
}

const char *ReadClassText(char *text, size_t bytes, zendara_class_file *file) {
  if (memchr(text, '\0', bytes)) return "it is no text: it has zero bytes";
  if (!IsUtf8(text, bytes)) return "it is no text of UTF-8";
  int inside = 0, had_section = 0;
  unsigned found = 0;
  for (char *line = text, *next; line; line = next) {
    next = strchr(line, '\n');
    if (next) *next++ = '\0';
    line = Trimmed(line);
    if (line[0] == '#') continue;
    if (line[0] == '[') {
      inside = strcmp(line, "[Class]") == 0;
      had_section |= inside;
      continue;
    }
    const char *fault = inside ? TakeLine(line, &found, file) : NULL;
    if (fault) return fault;
  }
  if (!had_section) return "it has no line [Class]";
  if (!file->name[0]) return "it has no Name";
  if (!(found & 2)) return "it has no Id";
  if (!file->library[0]) return "it has no Library";
  return NULL;
}
