/* Names of classes, "Library.Class": parts of letters, digits, "_" and "-" with dots between them, of any script. */
#ifndef ZENDARA_LOADER_CLASS_NAME_H
#define ZENDARA_LOADER_CLASS_NAME_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

#define CLASS_FILE_ENDING ".class"
/* What the name of a file has room for before the ending. */
#define CLASS_NAME_MOST 249

int IsUtf8(const char *text, size_t bytes);
/* A name that a class file can have: it leads to no other folder. */
int IsClassName(const char *name);
/* In small letters of ASCII: "zendara.clszendara.class". REQUIRES: a class name. */
void ClassFileName(const char *name, char file_name[CLASS_NAME_MOST + sizeof CLASS_FILE_ENDING]);

#ifdef __cplusplus
}
#endif

#endif
