#include "loader/class_name.h"

#include <string.h>

static char Small(char c) { return c >= 'A' && c <= 'Z' ? (char)(c - 'A' + 'a') : c; }

/* Bytes that follow the first one; the code that the sequence has to reach at least. -1 for a byte that begins none. */
static int Following(unsigned char first, unsigned *code, unsigned *least) {
  static const struct {
    unsigned char mask, lead;
    unsigned least;
  } kinds[] = {{0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
  for (int following = 0; following < 4; ++following) {
    if ((first & kinds[following].mask) != kinds[following].lead) continue;
    *code = first & (unsigned char)~kinds[following].mask;
    *least = kinds[following].least;
    return following;
  }
  return -1;
}

int IsUtf8(const char *text, size_t bytes) {
  for (size_t i = 0; i < bytes;) {
    unsigned code = 0, least = 0;
    int following = Following((unsigned char)text[i++], &code, &least);
    if (following < 0 || bytes - i < (size_t)following) return 0;
    for (; following > 0; --following, ++i) {
      const unsigned char next = (unsigned char)text[i];
      if ((next & 0xC0) != 0x80) return 0;
      code = code << 6 | (next & 0x3F);
    }
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return 0;
  }
  return 1;
}

int IsClassName(const char *name) {
  const size_t length = strlen(name);
  if (length == 0 || length > CLASS_NAME_MOST || !IsUtf8(name, length)) return 0;
  char before = '.';
  for (const char *c = name; *c; before = *c++) {
    const char small = Small(*c);
    const int letter = (small >= 'a' && small <= 'z') || (*c >= '0' && *c <= '9') || *c == '_' || *c == '-' ||
                       ((unsigned char)*c & 0x80) != 0;
    if (!letter && (*c != '.' || before == '.')) return 0;
  }
  return before != '.';
}

void ClassFileName(const char *name, char file_name[CLASS_NAME_MOST + sizeof CLASS_FILE_ENDING]) {
  while (*name) *file_name++ = Small(*name++);
  memcpy(file_name, CLASS_FILE_ENDING, sizeof CLASS_FILE_ENDING);
}
