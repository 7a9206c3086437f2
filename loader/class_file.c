#define _GNU_SOURCE
#include "loader/class_file.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "loader/class_name.h"
#include "loader/class_text.h"
#include "loader/failure.h"

/* Far more than four lines with their remarks need. */
#define MOST_BYTES 16384

int HasClassFile(const char *folder, const char *file_name) {
  char path[ZENDARA_PATH_LENGTH];
  const int length = snprintf(path, sizeof path, "%s/%s", folder, file_name);
  struct stat state;
  return length > 0 && length < (int)sizeof path && lstat(path, &state) == 0;
}

/* Bytes read, MOST_BYTES + 1 when there are more; below 0 with errno. */
static ssize_t ReadAll(const char *path, char text[MOST_BYTES + 1]) {
  /* What is no file must not keep anybody waiting. */
  const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return -1;
  struct stat state;
  size_t bytes = 0;
  ssize_t got = fstat(file, &state);
  if (got == 0 && !S_ISREG(state.st_mode)) {
    errno = S_ISDIR(state.st_mode) ? EISDIR : EINVAL;
    got = -1;
  }
  while (got >= 0 && bytes < MOST_BYTES + 1) {
    got = read(file, text + bytes, MOST_BYTES + 1 - bytes);
    if (got < 0 && errno == EINTR)
      got = 0;
    else if (got == 0)
      break;
    if (got > 0) bytes += (size_t)got;
  }
  const int error = errno;
  close(file);
  errno = error;
  return got < 0 ? -1 : (ssize_t)bytes;
}

static zendara_result Bad(zendara_class_file *file, const char *fault) {
  const zendara_class_file bad = {.size = file->size};
  char path[ZENDARA_PATH_LENGTH];
  memcpy(path, file->file, sizeof path);
  *file = bad;
  memcpy(file->file, path, sizeof path);
  return LoaderFails(ZENDARA_BAD_CLASS_FILE, "%s: %s", path, fault);
}

zendara_result ReadClassFile(const char *folder, const char *file_name, zendara_class_file *file) {
  static const zendara_class_file nothing;
  const uint32_t size = file->size;
  *file = nothing;
  file->size = size;
  snprintf(file->file, sizeof file->file, "%s/%s", folder, file_name);
  char text[MOST_BYTES + 2];
  const ssize_t bytes = ReadAll(file->file, text);
  if (bytes < 0) return Bad(file, strerrordesc_np(errno));
  if (bytes > MOST_BYTES) return Bad(file, "it is no class file: it has more than 16384 bytes");
  text[bytes] = '\0';
  const char *fault = ReadClassText(text, (size_t)bytes, file);
  if (fault) return Bad(file, fault);
  char found_by[CLASS_NAME_MOST + sizeof CLASS_FILE_ENDING];
  ClassFileName(file->name, found_by);
  if (strcmp(found_by, file_name) != 0) return Bad(file, "it is not called as its Name in small letters");
  return ZENDARA_OK;
}
