/// @file
/// The one recorder of a process: it forwards everything to the real driver and writes down what passes. A forked child
/// has its own recorder, which writes nothing of the parent's session.
#ifndef RECORDER_H
#define RECORDER_H

#include "realdriver.h"
#include "sessionfile.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

namespace kvrec {

class Recorder
{
public:
    static Recorder &instance();

    Recorder() = default;
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    int initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint);
    int unInitial();
    int openLcd(bool on) { return command("OpenDeviceLCD", &RealDriver::OpenDeviceLCD, on); }
    int clearContent();
    int showVersion(bool on) { return command("ShowVersionInfoOnDevice", &RealDriver::ShowVersionInfoOnDevice, on); }
    int setPenStyle(bool on) { return command("SetDevicePenStyle", &RealDriver::SetDevicePenStyle, on); }
    int showPicture(unsigned char *image, int length, int width, int height, bool *abort);

    using Query = int (*)(char *, int);
    int query(const char *name, const Query RealDriver::*operation, char *text, int size);

private:
    using FilePtr = std::shared_ptr<SessionFile>;
    using Command = int (*)(bool);

    static void receivePacket(int x, int y, int pressure, int status);
    static void receiveFingerprint(unsigned char *data, int length, int score);

    const RealDriver *driver();
    bool begin(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint);
    void end();
    FilePtr openFile(int deviceType) const;
    FilePtr file();
    int command(const char *name, const Command RealDriver::*operation, bool on);

    std::mutex m_mutex; ///< guards the pointers; not held during calls
    std::unique_ptr<RealDriver> m_driver;
    bool m_isOpen = false;
    FilePtr m_file; ///< null: nothing is recorded
    std::atomic<NOTIFY_HWSIGNDATA> m_penPacket{nullptr};
    std::atomic<NOTIFY_FPDATA> m_fingerprint{nullptr};
    std::atomic<SessionFile *> m_packetFile{nullptr}; ///< the file, for the reading thread
};

} // namespace kvrec

#endif
