/// @file
/// The headers that the declarations of the instance classes need.
#ifndef PADDECLARED_H
#define PADDECLARED_H

#include "LogFileUtil.h"
#include "driverinterface.h"
#include "internals.h"
#include "padmodels.h"
#include "signmapping.h"

#include <QColor>
#include <QImage>
#include <QMutex>
#include <QRect>
#include <QString>
#include <QWidget>

#include <vector>

class QLibrary;

#endif
