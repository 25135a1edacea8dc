/// @file
/// A pad between InitialDevice and UnInitialDevice.
#ifndef OPENEDPAD_H
#define OPENEDPAD_H

#include "pads.h"

#include <QPoint>
#include <QSize>

class QWidget;

class OpenedPad
{
public:
    /// Headless without a parent. Throws a Failure.
    OpenedPad(const PadFamily &pad, QWidget *parent, QPoint position = {});
    ~OpenedPad();
    OpenedPad(const OpenedPad &) = delete;
    OpenedPad &operator=(const OpenedPad &) = delete;

    const PadFamily *operator->() const { return &m_pad; }
    QSize size() const { return {kCanvasWidth, canvasHeight(m_pad.row, kCanvasWidth)}; }

    /// Whether the signer has tapped confirm since the pad was opened. Throws a Failure when it was cancel.
    bool isConfirmed() const;

    /// Whether the pad answers when asked for its version text. An unplugged one does not.
    bool answers() const;

private:
    const PadFamily &m_pad;
};

#endif
