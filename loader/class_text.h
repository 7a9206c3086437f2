/* The text of a class file. */
#ifndef ZENDARA_LOADER_CLASS_TEXT_H
#define ZENDARA_LOADER_CLASS_TEXT_H

#include "zendara/loader.h"

/* Takes name, identifier, library and version from the text, which is cut into pieces. NULL when all is well, otherwise
 * what is wrong with it. */
const char *ReadClassText(char *text, size_t bytes, zendara_class_file *file);

#endif
