// The GenICam reference layout: one header for all.
#ifndef GENICAM_GENICAM_H
#define GENICAM_GENICAM_H

#include <GenApi/GenApi.h>

#endif
