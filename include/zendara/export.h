/* What the libraries give out; everything else in them is hidden. */
#ifndef ZENDARA_EXPORT_H
#define ZENDARA_EXPORT_H

#define ZENDARA_EXPORT __attribute__((visibility("default")))

#endif
