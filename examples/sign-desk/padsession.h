/// @file
/// A pad between InitialDevice and UnInitialDevice, as the window uses it.
#ifndef PADSESSION_H
#define PADSESSION_H

#include "padfamilies.h"

#include <documents/ink.h>

#include <QColor>
#include <QImage>
#include <QObject>
#include <QWidget>

#include <atomic>
#include <memory>
#include <vector>

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

    /// The width of the library's canvas in pixels: where its pens write like a ballpoint, whatever the screen.
    static constexpr int kCanvasWidth = 800;

    /// Opens the pad. Throws a Trouble.
    void open(const PadFamily &model);
    void close();
    bool isOpen() const { return m_model != nullptr; }

    /// Call these only while the session is open. The library's widget lies in one that no screen shows: the desk
    /// draws the ink itself, as lines.
    const PadFamily &model() const { return *m_model; }
    QSize canvas() const;

    /// For what is written from now on. The colour should not change while there is ink, which has only one.
    void setPen(const Pen &pen);

    /// Adds the lines that were written since `ink` was last brought up to date, an empty one at first. False when
    /// something was taken away since; it then has all lines anew.
    bool update(documents::Ink &ink);

    /// Empties pad, canvas and points. False when the pad did not obey.
    bool clear();

    /// Whether the pad answers when asked for its version text. Blocks as long as the driver waits for the pad.
    bool answers() const;

    /// Stored ink points; 0 without a pad.
    int points() const;

    /// The fingerprint: dark ridges on transparent paper, for whatever lies below. Null without one.
    QImage fingerprint() const;

    /// The same as a PNG file; empty without one.
    QByteArray fingerprintFile() const;

    /// Whether a finger was on the sensor and nothing is written. Costs a picture of it.
    bool hasFingerprintAlone() const;

    /// The number of lines between the points: one from each point to the next of its stroke.
    int lines() const;

signals:
    /// A tap on the pad's confirm or cancel button, on the GUI thread; taps from before a clear are dropped.
    void tapped(bool isConfirm, int points);

private:
    static void receiveTap(int key);
    void passOn(int key);

    /// The pen from a point on.
    struct PenSince
    {
        int point;
        Pen pen;
    };

    void placeFingerprint();
    QByteArray fingerprintAs(int type) const;
    bool take(int index, documents::Ink &ink);
    double widthOf(const INKPOINTDATA &point, int index) const;

    const PadFamily *m_model = nullptr;
    std::unique_ptr<QWidget> m_host;
    std::unique_ptr<QWidget> m_printHost; ///< never shown either: the fingerprint is drawn on the page
    std::vector<PenSince> m_pens;
    int m_taken = 0; ///< points that update() has seen
    int m_takenRound = 0;
    bool m_isInStroke = false;
    QPointF m_last;
    bool m_acceptsAnyDriver = false;
    std::atomic<int> m_round{0}; ///< counts openings and clears
};

/// Makes white transparent, and lighter shades of a colour that colour with less opacity.
QImage withoutPaper(const QImage &image);

} // namespace signdesk

#endif
