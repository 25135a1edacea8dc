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
    OpenedPad(const Pad &pad, QWidget *parent, QPoint position = {});
    ~OpenedPad();
    OpenedPad(const OpenedPad &) = delete;
    OpenedPad &operator=(const OpenedPad &) = delete;

    const Pad *operator->() const { return &m_pad; }
    QSize size() const { return {m_pad.width, m_pad.height}; }

    /// Whether the signer has tapped confirm since the pad was opened. Throws a Failure when it was cancel.
    bool isConfirmed() const;

    /// Whether the pad tells its version text, as one that was unplugged does not.
    bool answers() const;

private:
    const Pad &m_pad;
};

#endif
