/// @file
/// The one simulated driver of a process: its opened pad, what tests asked of it, and what was asked of it.
#ifndef SIMULATOR_H
#define SIMULATOR_H

#include "session.h"
#include "settings.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace kvsim {

class Simulator
{
public:
    static Simulator &instance();

    // The operations. Each answers a KVSPDAPI_RETURN_ID; callbacks may call them all.
    int initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint);
    int unInitial();
    int openLcd(bool on);
    int clearContent();
    int plainCommand(const char *operation, bool on);
    int writeText(const char *operation, char *buffer, int size);
    int showPicture(const unsigned char *image, int length, int width, int height, const bool *abort);

    // The control face.
    int sendPackets(const Packet *packets, int count);
    int sendFingerprint(const unsigned char *data, int length, int score);
    int waitUntilPlayed(int timeoutMs);
    void setFirstPackets(const Packet *packets, int count);
    void setResult(const char *operation, int result);
    void setText(const char *operation, const char *text);
    void setScreenDelay(int milliseconds);
    std::string calls();
    void forgetCalls();
    int shownPictures();
    std::vector<unsigned char> lastPicture();
    bool isOpen();
    bool isScreenOn();
    void reset();

private:
    using SessionPtr = std::shared_ptr<Session>;

    /// What a test asked for; survives the pad's being closed.
    struct Wishes
    {
        std::map<std::string, int> results{};
        std::map<std::string, std::optional<std::string>> texts{};
        std::vector<Packet> firstPackets{};
        int screenDelayMs = -1;
        std::string calls{};
        int shownPictures = 0;
        std::vector<unsigned char> lastPicture{};
    };

    int noteCall(const char *operation, const std::string &arguments);
    SessionPtr openSession();
    int openPad(const PadModel &pad, const Receivers &receivers);
    std::string versionText(const PadModel &pad, const Settings &settings) const;
    std::string ownText(const std::string &operation) const;
    void releaseEndedSessions();
    bool transferPicture(const Session &session, int delayMs, const bool *abort) const;
    int keepPicture(const unsigned char *image, int length, int width, int height);

    std::mutex m_mutex; ///< guards all fields; never held while waiting, nor over a callback
    Wishes m_wishes;
    Settings m_settings;
    const PadModel *m_pad = nullptr;
    bool m_screenOn = false;
    SessionPtr m_session; ///< null: closed
    std::vector<SessionPtr> m_retired; ///< closed, but their threads may be in a last callback
};

} // namespace kvsim

#endif
