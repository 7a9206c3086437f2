/* One class file of a class folder. */
#ifndef ZENDARA_LOADER_CLASS_FILE_H
#define ZENDARA_LOADER_CLASS_FILE_H

#include "zendara/loader.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Whether a file of that name is in the folder, readable or not. */
int HasClassFile(const char *folder, const char *file_name);

/* Reads it. ZENDARA_BAD_CLASS_FILE leaves all but `size` and `file` empty. */
zendara_result ReadClassFile(const char *folder, const char *file_name, zendara_class_file *file);

#ifdef __cplusplus
}
#endif

#endif
