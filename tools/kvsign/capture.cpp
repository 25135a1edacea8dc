// kvsign capture: waits for a signature, and writes it to any number of files.
#include "captured.h"
#include "captureoutputs.h"
#include "failure.h"
#include "headlesspad.h"
#include "interruption.h"
#include "padpresence.h"
#include "pictureoptions.h"
#include "progress.h"
#include "subcommands.h"
#include "terminal.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QThread>

#include <optional>

namespace {

constexpr int kLook = 20; // milliseconds between two looks at the pad's key and points
constexpr int kConfirmed = 1;

constexpr Option kSizeOption{
    "size", "WIDTHxHEIGHT", "The canvas in pixels. Without it 800 wide, as the writing area is.", nullptr, nullptr};
constexpr Option kCaptureDpiOption{"dpi", "DPI", "Dots per inch of the pictures, 150 or 300.", "300", "150 300"};
constexpr Option kUnconfirmedOption{"unconfirmed", "FILE",
    "Write the ink here when the pad is unplugged, or the time is over, before it is confirmed.", nullptr, nullptr};
constexpr Option kCaptureOptions[] = {kModelOption, kTimeoutOption, kUnconfirmedOption, kSizeOption, kPenWidthOption,
    kNoPressureOption, kColourOption, kClipOption, kCaptureDpiOption, kDriverOption, kUnsafeDriverOption, kJsonOption};
constexpr Positional kCapturePositionals[] = {{"OUTPUT",
    "Files to write, each in the format that its suffix says: bmp, jpg, png, pdf, svg, ink, csv, json, inkml.", 1,
    1000}};

QSize canvasSize(const Arguments &arguments)
{
    if (!arguments.isSet(kSizeOption))
        return {};
    const QStringList parts = arguments.value(kSizeOption).split('x');
    const QSize size(parts.first().toInt(), parts.last().toInt());
    constexpr int kMost = 20000;
    if (parts.size() != 2 || size.isEmpty() || size.width() > kMost || size.height() > kMost)
        throw misused(QString("--size takes two numbers of pixels up to %1 such as 800x452, not \"%2\"")
                          .arg(kMost)
                          .arg(arguments.value(kSizeOption)));
    return size;
}

struct CaptureState
{
    int points = 0;
    int strokes = 0;
    double seconds = 0; ///< since the first point
};

/// Counts strokes, looking at each stored point once.
class Watch
{
public:
    explicit Watch(const HeadlessPad &pad)
        : m_pad(pad)
    {
    }

    const CaptureState &look()
    {
        const int points = m_pad->GetTotalInkPointsNumber(m_pad->type);
        for (; m_state.points < points; ++m_state.points) {
            INKPOINTDATA point = {};
            point.nIndex = m_state.points;
            m_pad->GetInkPointData(m_pad->type, point);
            m_state.strokes += point.bStrokeEnd ? 1 : 0;
        }
        if (m_state.points > 0 && !m_writing.isValid())
            m_writing.start();
        m_state.seconds = m_writing.isValid() ? static_cast<double>(m_writing.elapsed()) / 1000 : 0;
        return m_state;
    }

private:
    const HeadlessPad &m_pad;
    CaptureState m_state;
    QElapsedTimer m_writing;
};

/// Notices an unplugged pad by asking for its version text now and then; drivers do not report that by themselves.
class Presence
{
public:
    explicit Presence(const HeadlessPad &pad)
        : m_pad(pad)
        , m_answersAtAll(answers())
        , m_presence([this] { return answers(); })
    {
        m_sinceLook.start();
    }

    bool isLost(int points)
    {
        if (!m_answersAtAll || !m_sinceLook.hasExpired(m_presence.pause().count()))
            return false;
        m_presence.look(points);
        m_sinceLook.start();
        return m_presence.isAway();
    }

private:
    bool answers() const { return !m_pad.text(m_pad->GetHWVersion).isEmpty(); }

    const HeadlessPad &m_pad;
    const bool m_answersAtAll;
    PadPresence m_presence;
    QElapsedTimer m_sinceLook;
};

void setPen(const Arguments &arguments, const HeadlessPad &pad)
{
    const QColor ink = colour(arguments, kColourOption);
    pad->SetPenColor(pad->type, ink.red(), ink.green(), ink.blue());
    pad->SetPenWidth(pad->type, penWidth(arguments, pad->row));
    if (arguments.isSet(kNoPressureOption) && pad->SetPenStyle(pad->type, false) != ARI_SUCCESS)
        throw failed(QString("the %1 does not take another pen style").arg(pad->model));
}

/// A failure before confirmation, with the number of points and strokes so far.
Failure unconfirmed(ExitCode code, const QString &message, const CaptureState &state)
{
    return {code, message, {{"points", state.points}, {"strokes", state.strokes}}};
}

/// Returns when the signer confirms, and throws otherwise.
CaptureState waitForConfirm(const HeadlessPad &pad, int seconds)
{
    Watch watch(pad);
    Presence presence(pad);
    Progress progress;
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        const int key = pad->GetDeviceConfirmOrCancelKeyStatus(pad->type);
        const CaptureState &state = watch.look();
        if (key == kConfirmed)
            return state;
        if (key >= 0)
            throw Failure{kCancelled, QString("the signer cancelled on the %1").arg(pad->model)};
        throwIfInterrupted();
        if (seconds > 0 && waiting.hasExpired(seconds * 1000LL))
            throw unconfirmed(
                kTimedOut, QString("nobody confirmed on the %1 within %2 s").arg(pad->model).arg(seconds), state);
        if (presence.isLost(state.points))
            throw unconfirmed(
                kUnplugged, QString("the %1 was unplugged before it was confirmed").arg(pad->model), state);
        progress.show(QString("%1  sign and confirm   %2 points  %3 strokes  %4 s")
                          .arg(pad->model, -5)
                          .arg(state.points, 5)
                          .arg(state.strokes, 3)
                          .arg(state.seconds, 5, 'f', 1));
        QThread::msleep(kLook);
    }
}

QJsonObject summary(const HeadlessPad &pad, const CaptureState &state, const CaptureOutputs &outputs)
{
    QJsonArray files;
    for (const CapturedFile &file : outputs.files())
        files.append(QJsonObject{{"file", file.name}, {"format", file.format->name}, {"bytes", file.bytes}});
    return {{"result", "confirmed"}, {"model", pad->model}, {"padId", pad.text(pad->GetHWPadID)},
        {"version", pad.text(pad->GetHWVersion)}, {"points", state.points}, {"strokes", state.strokes},
        {"seconds", state.seconds}, {"files", files}};
}

void tell(const HeadlessPad &pad, const CaptureState &state, const CaptureOutputs &outputs, bool asJson)
{
    if (asJson) {
        sayJson(summary(pad, state, outputs));
        return;
    }
    say(QString("%1: %2 points, %3 strokes, %4 s")
            .arg(pad->model)
            .arg(state.points)
            .arg(state.strokes)
            .arg(state.seconds, 0, 'f', 1));
    for (const CapturedFile &file : outputs.files())
        say(QString("%1  %2 bytes").arg(file.name, grouped(file.bytes)));
}

/// Writes unconfirmed ink to the file of --unconfirmed, never to the outputs, and says so in the failure.
void keepUnconfirmed(const HeadlessPad &pad, CaptureOutputs *unconfirmedInk, Failure &failure)
{
    const bool isMeant = failure.code == kUnplugged || failure.code == kTimedOut;
    if (unconfirmedInk == nullptr || !isMeant || pad->GetTotalInkPointsNumber(pad->type) <= 0)
        return;
    unconfirmedInk->write(pad, 300, [] {});
    const QString name = unconfirmedInk->files().front().name;
    failure.details["unconfirmed"] = name;
    failure.message += QString("; what was written is in %1").arg(name);
}

CaptureState confirmedState(const HeadlessPad &pad, int seconds, CaptureOutputs *unconfirmedInk)
{
    try {
        return waitForConfirm(pad, seconds);
    } catch (Failure &failure) {
        keepUnconfirmed(pad, unconfirmedInk, failure);
        throw;
    }
}

int runCapture(const Arguments &arguments)
{
    const int seconds = arguments.wholeNumber(kTimeoutOption, 0, 86400);
    const int dpi = arguments.choice(kCaptureDpiOption).toInt();
    const QSize size = canvasSize(arguments);
    const ClipMargin margin = clipMargin(arguments);
    colour(arguments, kColourOption);
    penWidth(arguments, *kModelRows[0]);
    CaptureOutputs::needDifferent(arguments.positionals() + arguments.values(kUnconfirmedOption));
    CaptureOutputs outputs(arguments.positionals());
    std::optional<CaptureOutputs> unconfirmedInk;
    if (arguments.isSet(kUnconfirmedOption))
        unconfirmedInk.emplace(QStringList(arguments.value(kUnconfirmedOption)));
    QString model = arguments.choice(kModelOption);
    try {
        enterDriverDirectory(arguments);
        refuseUnsafeDriver(arguments);
        const HeadlessPad pad(model, size);
        model = pad->model;
        setPen(arguments, pad);
        const CaptureState state = confirmedState(pad, seconds, unconfirmedInk ? &*unconfirmedInk : nullptr);
        if (margin.isSet)
            pad->SetSaveClipImageMargin(pad->type, true, margin.x, margin.y);
        outputs.write(pad, dpi, [&] { tell(pad, state, outputs, arguments.isSet(kJsonOption)); });
    } catch (Failure &failure) {
        failure.details["model"] = model;
        throw;
    }
    return kDone;
}

} // namespace

Captured captureRecord(const Arguments &arguments, const QString &model)
{
    const int seconds = arguments.wholeNumber(kTimeoutOption, 0, 86400);
    enterDriverDirectory(arguments);
    refuseUnsafeDriver(arguments);
    const HeadlessPad pad(model, {});
    setPen(arguments, pad);
    waitForConfirm(pad, seconds);
    Captured captured{pad->model, inkRecord(pad)};
    if (captured.record.isEmpty())
        throw failed(QString("nothing was written on the %1").arg(captured.model));
    return captured;
}

const Subcommand kCaptureSubcommand{"capture", "Wait for a signature on a pad and write it to files.", kCaptureOptions,
    kCapturePositionals, runCapture, nullptr};
