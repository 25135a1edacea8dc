/// @file
/// Access to fields by their purpose, where their names differ between the classes or only some classes have them.
#ifndef PADPARTS_H
#define PADPARTS_H

#include "padmodels.h"

#include <QImage>

namespace padparts {

/// The mark that the pad has cleared its own screen at a tap.
template <class Pad>
bool &tapMark(Pad &pad)
{
    if constexpr (Pad::row.tapMark == TapMark::ConfirmOrCancel)
        return pad.m_bPenDownOnDeviceConfirmOrCancelArea;
    else
        return pad.m_bPenDownOnCancelButton;
}

/// The canvas that strokes are drawn on. On fingerprint pads that is not the shown one, but the ink layer.
template <class Pad>
QImage &inkCanvas(Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return pad.m_SignCanvas;
    else
        return pad.m_canvas;
}

template <class Pad>
bool hasDisplayThread(const Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return pad.m_pShowFPImageOnDeviceThread != nullptr;
    else
        return false;
}

} // namespace padparts

#endif
