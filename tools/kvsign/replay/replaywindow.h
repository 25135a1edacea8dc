/// @file
/// The window that shows a signature being written.
#ifndef REPLAYWINDOW_H
#define REPLAYWINDOW_H

#include "../failure.h"
#include "../pictures/rasterpicture.h"
#include "replay.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>

class ReplayWindow : public QWidget
{
public:
    ReplayWindow(InkInput &input, const PictureSettings &settings, double speed, bool closesAtEnd);

    /// What ended the replay early; null when nothing did.
    const Failure *failure() const { return m_failure.get(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restart();
    void togglePause();
    template <class Step>
    void guarded(Step step);
    void step();
    void drawDue();
    void endWith(const Failure &failure);
    QString status() const;

    InkInput &m_input;
    PictureSettings m_settings;
    double m_speed;
    bool m_closesAtEnd;
    std::unique_ptr<RasterPicture> m_picture;
    std::unique_ptr<ReplayTimes> m_times;
    std::unique_ptr<Failure> m_failure;
    PointSource *m_points = nullptr;
    POINTDATA m_next = {}; ///< not drawn yet
    POINTDATA m_drawn = {};
    double m_nextDue = 0;
    bool m_atEnd = false;
    qint64 m_count = 0;
    QTimer m_timer; ///< runs while there is something to draw
    QTimer m_interruptions;
    QElapsedTimer m_running;
    double m_shownUntil = 0; ///< milliseconds of the replay before the last pause
};

#endif
