/// @file
/// A pad between InitialDevice and UnInitialDevice, as the window uses it.
#ifndef PADSESSION_H
#define PADSESSION_H

#include "padfamilies.h"

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <atomic>

namespace signdesk {

struct Pen
{
    int width = 2; ///< 1 to 10
    QColor colour = Qt::black;
    bool followsPressure = true;
};

/// The library can have one pad open at a time, so only one session may be open.
class PadSession : public QObject
{
    Q_OBJECT
public:
    explicit PadSession(QObject *parent = nullptr);
    ~PadSession() override;

    /// Accepts drivers that others could have replaced.
    void acceptAnyDriver() { m_acceptsAnyDriver = true; }

    /// Opens the pad with the library's signing widget as a child of the parent. Throws a Trouble.
    void open(const PadFamily &model, QWidget *parent, const QRect &place);
    void close();
    bool isOpen() const { return m_model != nullptr; }

    /// Call these two only while the session is open.
    const PadFamily &model() const { return *m_model; }
    QWidget *signWidget() const { return m_widget; }

    void setPen(const Pen &pen);

    /// Empties pad, canvas and points. False when the pad did not obey.
    bool clear();

    /// Whether the pad answers when asked for its version text. Blocks as long as the driver waits for the pad.
    bool answers() const;

    /// Stored ink points; 0 without a pad.
    int points() const;

    /// Whether a finger was on the sensor and nothing is written. Costs a picture of the canvas.
    bool hasFingerprintAlone() const;

    /// The number of lines between the points: one from each point to the next of its stroke.
    int lines() const;

signals:
    /// A tap on the pad's confirm or cancel button, on the GUI thread; taps from before a clear are dropped.
    void tapped(bool isConfirm, int points);

private:
    static void receiveTap(int key);
    void passOn(int key);

    const PadFamily *m_model = nullptr;
    QPointer<QWidget> m_widget;
    bool m_acceptsAnyDriver = false;
    std::atomic<int> m_round{0}; ///< counts openings and clears
};

} // namespace signdesk

#endif
