// Everything of the GenApi interfaces.
#ifndef GENAPI_GENAPI_H
#define GENAPI_GENAPI_H

#include <GenApi/INodeMap.h>
#include <GenApi/NodeCallback.h>
#include <GenApi/Pointer.h>
#include <GenApi/Types.h>
#include <GenApi/Values.h>

#endif
