// Linkage of the GenApi runtime and of the open SDK.
#ifndef GENICAM_GCLINKAGE_H
#define GENICAM_GCLINKAGE_H

// Interfaces are visible everywhere, so that casts and exceptions cross library borders by one type each.
#define MOXSDK_INTERFACE __attribute__((visibility("default")))
#define MOXSDK_EXPORT __attribute__((visibility("default")))

#endif
