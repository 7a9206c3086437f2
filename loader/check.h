/* What could be created without creating it. */
#ifndef ZENDARA_LOADER_CHECK_H
#define ZENDARA_LOADER_CHECK_H

#include "zendara/loader.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Whether the library is of this version and has the class: as zendara_loader_create, as far as the class factory. */
zendara_result CheckClass(const zendara_class_file *file, uint32_t version);

#ifdef __cplusplus
}
#endif

#endif
