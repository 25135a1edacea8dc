/// @file
/// The virtual pad's window: the pad's face, the status of its connection, and menus for what can go wrong.
#ifndef PADWINDOW_H
#define PADWINDOW_H

#include "padserver.h"

#include <QLabel>
#include <QMainWindow>

class QActionGroup;

namespace virtualpad {

class FingerPanel;
class PadFace;
struct PenPoint;

class PadWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// Throws std::runtime_error when the pad's socket cannot be opened.
    explicit PadWindow(const ModelRow &model, QWidget *parent = nullptr);

    PadFace *face() const { return m_face; }

private:
    void makeMenus();
    QAction *addTrouble(QMenu *menu, const QString &text, const QString &tip);
    void connectServer();
    void showModel();
    void showOpened();
    void showClosed();
    void showStatus();
    void chooseModel(const QAction *action);
    void applyTroubles();
    void sendPacket(std::chrono::steady_clock::time_point time, const PenPoint &point, int status);
    kvsim::Packet packetOf(const PenPoint &point, int status);

    PadServer m_server;
    PadFace *m_face;
    FingerPanel *m_fingers;
    QLabel *m_status;
    QActionGroup *m_models = nullptr;
    QAction *m_unplug = nullptr;
    QAction *m_refuse = nullptr;
    QAction *m_otherModel = nullptr;
    QAction *m_invalidPressures = nullptr;
    QAction *m_slowScreen = nullptr;
    int m_packets = 0;
    kvsim::Packet m_last{};
};

} // namespace virtualpad

#endif
