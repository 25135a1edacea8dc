/// @file
/// What was recorded and is played again is the same signature: the same ink but for its times, the same picture.
#include "fingerprints.h"
#include "greyimage.h"
#include "openpad.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <dlfcn.h>
#include <fstream>

namespace {

/// The simulator that the library, or the recorder that it loaded, has in use; never a handle that outlasts the pad.
class SimulatorInUse
{
public:
    explicit SimulatorInUse(const QString &path)
        : m_library(dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_NOLOAD))
    {
    }
    ~SimulatorInUse()
    {
        if (m_library != nullptr)
            dlclose(m_library);
    }
    SimulatorInUse(const SimulatorInUse &) = delete;
    SimulatorInUse &operator=(const SimulatorInUse &) = delete;

    bool isThere() const { return m_library != nullptr; }

    template <class... Arguments>
    int call(const char *name, Arguments... arguments) const
    {
        return reinterpret_cast<int (*)(Arguments...)>(dlsym(m_library, name))(arguments...);
    }

private:
    void *m_library;
};

/// What is kept of a signature.
struct Signature
{
    std::vector<QByteArray> points; ///< x, y, pressure, stroke end
    QByteArray canvas; ///< a BMP as Base64

    friend bool operator==(const Signature &a, const Signature &b)
    {
        return a.points == b.points && a.canvas == b.canvas;
    }
};

QImage pictureOf(const Signature &signature)
{
    return QImage::fromData(QByteArray::fromBase64(signature.canvas)).convertToFormat(QImage::Format_ARGB32);
}

/// The last of the three in the recording, which has the best score.
Grey bestFinger()
{
    std::ifstream file(KV_RECORDINGS "/finger-clear.pgm", std::ios::binary);
    return kvsim::readPgm(file, "finger-clear.pgm").pixels;
}

class RecorderReplay : public testing::TestWithParam<PadCase>
{
protected:
    RecorderReplay()
        : m_simulator(QDir::currentPath())
    {
        m_window.resize(620, 320);
        m_window.show();
        setenv("KVSIM_SPEED", "20", 1);
        setenv("KVSIM_DELAY_MS", "3600000", 1);
        setenv("KVSIM_SCREEN_MS", "0", 1);
        setenv("KVREC_DRIVER", qPrintable(m_simulator + "/libkvsignpaddrv.so"), 1);
        setenv("KVREC_TRUST", "1", 1); // whoever may write where this is built
    }
    ~RecorderReplay() override { QDir::setCurrent(m_simulator); }

    /// Opens the pad with the driver of that directory, lets it play the recording to its end and takes what is there.
    Signature sign(const QString &driverDirectory, const QString &recording, bool hasFinger)
    {
        EXPECT_TRUE(QDir::setCurrent(driverDirectory));
        setenv("KVSIM_RECORDING", qPrintable(recording), 1);
        QWidget *const parent = GetParam().headless ? nullptr : &m_window;
        EXPECT_TRUE(family().InitialDevice(type(), parent, 10, 10, 600, 300));
        settle(); // a widget learns its size
        Signature signature;
        if (const SimulatorInUse simulator(m_simulator + "/libkvsignpaddrv.so"); simulator.isThere()) {
            simulator.call("KVSIM_EndDelay");
            EXPECT_EQ(simulator.call("KVSIM_WaitUntilPlayed", 60000), 1);
            signature = takeSignature(hasFinger && type() == KVS310X_DEVICE);
        } else {
            ADD_FAILURE() << "the simulator is not in use";
        }
        family().UnInitialDevice(type());
        settle();
        return signature;
    }

    const QString m_simulator;
    QTemporaryDir m_directory;

private:
    const Family &family() const { return *GetParam().family; }
    int type() const { return family().type; }

    /// The S310X merges its finger a moment after the pad has shown it, with whatever pace the machine allows.
    Signature takeSignature(bool showsFinger)
    {
        Signature signature = current();
        if (showsFinger) {
            EXPECT_TRUE(becomes([&] {
                signature = current();
                return showsBestFinger(signature);
            }));
        }
        return signature;
    }

    /// Whether all of the best finger's red is there. The others lack some of it.
    bool showsBestFinger(const Signature &signature) const
    {
        const QImage canvas = pictureOf(signature);
        if (canvas.isNull())
            return false;
        const QImage print = printed(layerOf(m_bestFinger, canvas.size()), middleOf(canvas.size()), canvas.size());
        return anded(canvas, print) == canvas;
    }

    Signature current() const
    {
        Signature signature;
        constexpr int kPointSize = 24, kWithoutTimes = 7;
        char *text = family().Base64Encode(type(), EBITI_INK);
        const QByteArray record = QByteArray::fromBase64(text);
        family().Base64EncodeFree(type(), text);
        for (int at = 0; at + kPointSize <= record.size(); at += kPointSize)
            signature.points.push_back(record.mid(at, kWithoutTimes));
        text = family().Base64EncodeEx(type(), EBITI_BITMAP, false);
        signature.canvas = text;
        family().Base64EncodeExFree(type(), text);
        return signature;
    }

    const Grey m_bestFinger = bestFinger();
    QWidget m_window;
};

bool hasRed(const Signature &signature)
{
    const QImage image = pictureOf(signature);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == qRgb(255, 0, 0))
                return true;
    return false;
}

TEST_P(RecorderReplay, GivesTheSameSignature)
{
    const QString file = m_directory.filePath("session.kvrec");
    setenv("KVREC_FILE", qPrintable(file), 1);
    const Signature written = sign(m_simulator + "/recorder", "signature-finger", true);
    ASSERT_GT(written.points.size(), 100u);
    EXPECT_EQ(hasRed(written), GetParam().family->type == KVS310X_DEVICE);
    EXPECT_EQ(QFile::exists(m_directory.filePath("session-finger-1.pgm")), GetParam().family->type == KVS310X_DEVICE);

    const Signature replayed = sign(m_simulator, file, true);
    EXPECT_TRUE(replayed.points == written.points);
    EXPECT_TRUE(replayed.canvas == written.canvas);
}

/// Scrambled it is another signature of the same length, with the same pressures and strokes.
TEST_P(RecorderReplay, ScrambledKeepsPressuresAndStrokesOnly)
{
    const QString file = m_directory.filePath("scrambled.kvrec");
    setenv("KVREC_FILE", qPrintable(file), 1);
    setenv("KVREC_SCRAMBLE", "1", 1);
    const Signature written = sign(m_simulator + "/recorder", "initials", false);
    unsetenv("KVREC_SCRAMBLE");
    const Signature replayed = sign(m_simulator, file, false);
    ASSERT_EQ(replayed.points.size(), written.points.size());
    std::size_t samePlaces = 0;
    for (std::size_t i = 0; i < written.points.size(); ++i) {
        EXPECT_EQ(replayed.points[i].mid(4), written.points[i].mid(4)) << i;
        samePlaces += replayed.points[i].left(4) == written.points[i].left(4);
    }
    EXPECT_LT(samePlaces, 3u);
    EXPECT_FALSE(replayed.canvas == written.canvas);
}

INSTANTIATE_TEST_SUITE_P(Pads, RecorderReplay, testing::ValuesIn(allPads()), padCaseName);

/// A pad with half the pressure levels is one in its replay, too.
class OlderPadReplay : public RecorderReplay
{
};

TEST_P(OlderPadReplay, GivesTheSameSignature)
{
    const QString file = m_directory.filePath("session.kvrec");
    setenv("KVREC_FILE", qPrintable(file), 1);
    setenv("KVSIM_VERSION", "KVT120 1.0", 1);
    const Signature written = sign(m_simulator + "/recorder", "initials", false);
    unsetenv("KVSIM_VERSION");
    const Signature replayed = sign(m_simulator, file, false);
    ASSERT_GT(written.points.size(), 100u);
    EXPECT_TRUE(replayed.points == written.points);
    EXPECT_TRUE(replayed.canvas == written.canvas);
}

INSTANTIATE_TEST_SUITE_P(
    Pads, OlderPadReplay, testing::Values(PadCase{&kS210Family, false}, PadCase{&kS210Family, true}), padCaseName);

} // namespace
