/// @file
/// The window in which a signature grows while it is written: the signing widget with a line above and below it.
#ifndef CAPTUREVIEW_H
#define CAPTUREVIEW_H

#include "pads.h"

#include <QWidget>

class QLabel;

class CaptureView : public QWidget
{
public:
    /// Sized for that pad's signing widget, which InitialDevice creates at signingPosition().
    explicit CaptureView(const PadFamily &pad, const QString &title);

    QPoint signingPosition() const;
    void setStatus(const QString &text);

    /// Whether the user has closed the window.
    bool isClosed() const { return m_closed; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QLabel *m_status;
    bool m_closed = false;
};

#endif
