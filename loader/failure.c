#include "loader/failure.h"

#include <stdarg.h>
#include <stdio.h>
#include <string.h>

/* Room for the class file, the library and the system's words, which name it again. */
static __thread char line[3 * ZENDARA_PATH_LENGTH + 512];

/* Ends the text before the character that the room has only a part of. */
static void CutToCharacters(char *text, size_t length) {
  while (length > 0 && ((unsigned char)text[length - 1] & 0xC0) == 0x80) --length;
  if (length > 0) text[length - 1] = '\0';
}

zendara_result LoaderFails(zendara_result result, const char *format, ...) {
  va_list words;
  va_start(words, format);
  const int length = vsnprintf(line, sizeof line, format, words);
  va_end(words);
  if (length < 0) line[0] = '\0';
  if (length >= (int)sizeof line) CutToCharacters(line, sizeof line - 1);
  for (char *c = line; *c; ++c) {
    if ((unsigned char)*c < ' ' || *c == 0x7F) *c = ' ';
  }
  return result;
}

const char *zendara_loader_error(void) { return line; }
