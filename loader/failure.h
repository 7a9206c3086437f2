/* What failed last in each thread, as one line. */
#ifndef ZENDARA_LOADER_FAILURE_H
#define ZENDARA_LOADER_FAILURE_H

#include "zendara/loader.h"

/* Keeps the words, as printf has them, for zendara_loader_error and gives the result. */
zendara_result LoaderFails(zendara_result result, const char *format, ...) __attribute__((format(printf, 2, 3)));

#endif
