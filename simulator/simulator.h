/// @file
/// The one simulated driver of a process: its open pad, the answers that tests have set, and the journal of calls.
#ifndef SIMULATOR_H
#define SIMULATOR_H

#include "faults.h"
#include "session.h"
#include "settings.h"
#include "virtuallink.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace kvsim {

/// A forked child has a simulator of its own, whose pad is closed: the pad and its thread stay with the parent.
class Simulator
{
public:
    static Simulator &instance();
    Simulator() = default;
    ~Simulator();
    Simulator(const Simulator &) = delete;
    Simulator &operator=(const Simulator &) = delete;

    // The operations. Each answers a KVSPDAPI_RETURN_ID; callbacks may call them all.
    int initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint);
    int unInitial();
    int openLcd(bool on);
    int clearContent();
    int plainCommand(const char *operation, bool on);
    int writeText(const char *operation, char *buffer, int size);
    int showPicture(const unsigned char *image, int length, int width, int height, const bool *abort);

    // The control functions.
    int sendPackets(const Packet *packets, int count);
    int sendFingerprint(const unsigned char *data, int length, int score);
    int endDelay();
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

    /// What a test has set. It stays when the pad is closed.
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

    /// The opened pad, from Initial to UnInitial.
    struct OpenPad
    {
        const ModelRow *model = nullptr;
        Settings settings{};
        Faults faults{};
        std::string recordedVersion{}; ///< of the recorded pad; empty when that was another model
        std::shared_ptr<VirtualLink> link{}; ///< null unless a window plays the pad
        bool screenOn = false;
    };

    int noteCall(const char *operation, const std::string &arguments);
    SessionPtr openSession();
    SessionPtr readySession(int &result);
    int openPad(const ModelRow &pad, const Receivers &receivers);
    int startSession(OpenPad pad, const Receivers &receivers, std::optional<OpenedRecording> recording);
    int refusal(const OpenPad &pad) const;
    std::string versionText(const OpenPad &pad) const;
    std::string ownText(const std::string &query) const;
    const std::optional<std::string> *askedText(const OpenPad &pad, const std::string &query) const;
    void takeFaults(const std::vector<Event> &faults);
    void tellWindow(const std::string &line);
    void releaseEndedSessions();
    std::chrono::milliseconds wishedTime(int otherwiseMs);
    bool transferPicture(const Session &session, int delayMs, const bool *abort);
    int keepPicture(const unsigned char *image, int length, int width, int height);

    std::mutex m_mutex; ///< guards all fields; not held while waiting or during a callback
    Wishes m_wishes;
    OpenPad m_pad;
    bool m_unplugged = false; ///< by a recording; stays so after the session
    SessionPtr m_session; ///< null: closed
    std::vector<SessionPtr> m_retired; ///< closed; their threads may still be in a last callback
};

} // namespace kvsim

#endif
