/// @file
/// The headers that the instance classes' members forward to.
#ifndef PADDEFINED_H
#define PADDEFINED_H

#include "canvashost.h"
#include "devicesettings.h"
#include "driverbinding.h"
#include "imagefiles.h"
#include "imagetexts.h"
#include "inkbounds.h"
#include "inkpoints.h"
#include "inkrecord.h"
#include "openinstance.h"
#include "penpackets.h"
#include "signmapping.h"
#include "strokes.h"

#endif
