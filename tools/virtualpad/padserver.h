/// @file
/// The window's end of the connection to the driver: sends what the pad does and receives the commands to the pad.
#ifndef PADSERVER_H
#define PADSERVER_H

#include "modelrows.h"
#include "padcommands.h"
#include "recordingevents.h"

#include <QImage>
#include <QLocalServer>
#include <QLocalSocket>

#include <chrono>
#include <map>
#include <string>

namespace virtualpad {

/// The troubles that are switched on.
struct Troubles
{
    bool isUnplugged = false;
    bool refuses = false; ///< commands fail
    bool isOtherModel = false; ///< its version text is another model's
    bool hasSlowScreen = false;
};

class PadServer : public QObject
{
    Q_OBJECT
public:
    explicit PadServer(const ModelRow &model, QObject *parent = nullptr);
    ~PadServer() override;

    /// Opens the socket. Throws std::runtime_error when another window has it, or when it cannot be made.
    void listen();

    const ModelRow &model() const { return *m_model; }
    bool isOpen() const { return m_program != nullptr; }

    /// The text that GetDevicePartsVersion gives.
    std::string versionText() const;

    /// Call it only while no program has the pad open.
    void setModel(const ModelRow &model);
    void setTroubles(const Troubles &troubles);

    void sendPacket(std::chrono::steady_clock::time_point time, const kvsim::Packet &packet);
    void sendFingerprint(const QString &file, int score);

signals:
    void opened(); ///< a program has opened the pad as model()
    void closed();
    void cleared();
    void screenSwitched(bool isOn);
    void versionShown(bool isOn);
    void pictureShown(const QImage &picture);

private:
    void takeConnection();
    void takeLines(QLocalSocket *program);
    void take(QLocalSocket *program, const PadCommand &command);
    void open(QLocalSocket *program, int deviceType);
    void close(QLocalSocket *program);
    std::string stateLines(std::chrono::steady_clock::time_point time);
    std::string lineAt(std::chrono::steady_clock::time_point time, kvsim::Event event);
    static bool write(QLocalSocket *program, const std::string &lines);
    void send(const kvsim::Event &event, std::chrono::steady_clock::time_point time);
    void sendNow(const kvsim::Event &event) { send(event, std::chrono::steady_clock::now()); }

    QLocalServer m_server;
    std::map<QLocalSocket *, CommandReader> m_readers; ///< of all connections
    QLocalSocket *m_program = nullptr; ///< that has the pad open
    const ModelRow *m_model;
    Troubles m_troubles;
    std::chrono::steady_clock::time_point m_begin{};
    std::int64_t m_lastUs = 0;
};

} // namespace virtualpad

#endif
