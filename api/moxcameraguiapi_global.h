/**
 * @file
 * Linkage of the library's public functions and classes.
 */
#ifndef MOXCAMERAGUIAPI_GLOBAL_H
#define MOXCAMERAGUIAPI_GLOBAL_H

#include <QtCore/qglobal.h>

/** Marks what the library exports. Building and using it take the same mark: it is a shared object, never a DLL. */
#define MOXGUI_EXPORT Q_DECL_EXPORT

#endif
