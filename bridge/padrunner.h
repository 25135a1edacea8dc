/// @file
/// The open pad, on a thread of its own: however long the driver takes, the pages are answered.
#ifndef PADRUNNER_H
#define PADRUNNER_H

#include "padpictures.h"
#include "padpresence.h"

#include <signpad.hpp>

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>

namespace bridge {

/// What a client wants to open.
struct Opening
{
    kv::Model model = kv::Model::S300;
    kv::Size size{1, 1};
    std::optional<int> penWidth;
    std::optional<kv::Color> penColor;
    std::optional<bool> penPressure;
};

/// All but allowMore is called on the pad's thread. Signals carry the number of the opening that they belong to, so
/// that nothing of one client reaches the next.
class PadRunner : public QObject
{
    Q_OBJECT

public:
    /// @param driver its folder; empty: the working directory
    PadRunner(std::filesystem::path driver, bool allowsUnsafeDriver);
    ~PadRunner() override;

    Outcome open(int opening, const Opening &wanted);
    Outcome setPen(std::optional<int> width, std::optional<kv::Color> color, std::optional<bool> pressure);
    Outcome clear();
    Outcome picture(const PictureWish &wish);
    Outcome setLive(bool on, kv::ImageKind kind);
    Outcome placeFingerprint(kv::Rect place, kv::Size canvas);
    void close();

    /// The last points or picture have gone out: the next may be sent. Any thread.
    void allowMore() { m_maySend = true; }

signals:
    /// `text`: "[x,y,pressure,time,end],..." of `count` points, the first of which is number `first`.
    void points(int opening, int first, const QByteArray &text);
    void tapped(int opening, bool confirm);
    void live(int opening, const QByteArray &type, const QByteArray &picture);
    void lost(int opening);
    void found(int opening);

private:
    struct StoredTap
    {
        kv::Tap tap;
        int after; ///< how many points were stored then
    };
    struct LiveBox; ///< the newest live picture, between the driver's thread and this one

    const kv::detail::Family &family() const;
    Outcome openPad();
    void applyPen();
    QJsonObject area() const;
    void poll();
    void sendPoints();
    void sendTaps();
    void sendLive();
    void watch();
    void seek();
    QByteArray textOf(int index, qint64 now);

    const std::filesystem::path m_driver;
    const bool m_allowsUnsafeDriver;
    Opening m_wanted;
    int m_opening = 0;
    std::optional<kv::Pad> m_pad;
    std::unique_ptr<PadPresence> m_presence;
    std::shared_ptr<LiveBox> m_live;
    std::optional<kv::ImageKind> m_liveKind;
    std::deque<StoredTap> m_taps;
    QTimer m_timer;
    QElapsedTimer m_sincePoint;
    QElapsedTimer m_sinceLook;
    qint64 m_zero = 0; ///< the monotonic clock at the opening
    int m_taken = 0; ///< points of the library that have gone out
    int m_first = 0; ///< points of the opening before those of the library
    bool m_isLost = false;
    std::atomic<bool> m_maySend{true};
};

} // namespace bridge

#endif
