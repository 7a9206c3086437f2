/* The version of these headers: MAJOR.MINOR.PATCH. Libraries of one major number are exchanged without building the
 * host again. The build reads it here. */
#ifndef ZENDARA_VERSION_H
#define ZENDARA_VERSION_H

#define ZENDARA_VERSION_MAJOR 1
#define ZENDARA_VERSION_MINOR 0
#define ZENDARA_VERSION_PATCH 0
#define ZENDARA_VERSION "1.0.0"

#endif
