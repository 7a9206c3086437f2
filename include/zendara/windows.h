/* The windows in plain C: in libzendara-windows.so.1. See zendara/zendara.h for what holds for all of it. */
#ifndef ZENDARA_WINDOWS_H
#define ZENDARA_WINDOWS_H

#include "zendara/zendara.h"

#ifdef __cplusplus
extern "C" {
#endif

enum { ZENDARA_LOOK_HOST = 0, ZENDARA_LOOK_ZENDARA = 1 };

/* A front end with windows, for zendara_platform. If the process has no application object of the toolkit one is made
 * here, which lives to the end of the process. ZENDARA_LOOK_HOST leaves the look of the application as it is.
 * ZENDARA_FAILED when there is no display, ZENDARA_WRONG_VERSION when libzendara.so.1 is of another version. */
ZENDARA_EXPORT zendara_result zendara_windows(uint32_t look, zendara_screens **screens);

#ifdef __cplusplus
}
#endif

#endif
