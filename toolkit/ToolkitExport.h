// Marks what the toolkit's shared library exports.
#pragma once

#include <QtCore/qglobal.h>

#if defined(KXTOOLKIT_BUILD)
#define TOOLKIT_EXPORT Q_DECL_EXPORT
#else
#define TOOLKIT_EXPORT Q_DECL_IMPORT
#endif
