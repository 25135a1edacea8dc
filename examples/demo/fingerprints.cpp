#include "fingerprints.h"

#include "capture.h"
#include "captureview.h"
#include "failure.h"
#include "modelrows.h"
#include "report.h"

#include <functional>

namespace {

constexpr int kMergeTime = 10000; ///< milliseconds that the fingerprint may take to appear, on a busy machine

const QRect kFullSize(16, 21, kFingerprintWidth, kFingerprintHeight); ///< not scaled, on a canvas of its own
const QRect kBeside(645, 220, 130, 180); ///< in the signing widget, in the proportions of the sensor

bool hasFingerprint(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.red() > 200 && colour.green() < 60 && colour.blue() < 60)
                return true;
        }
    }
    return false;
}

Failure noFingerprint()
{
    return {"The S310X showed no fingerprint.",
        "Play a recording that has one: unset KVSIM_RECORDING, or set it to signature-finger."};
}

Failure notPlaced(const char *place)
{
    return {QString("The S310X refused to place the fingerprint %1.").arg(place),
        "This is a fault of the library; run ./check."};
}

/// Opens an S310X in a window, lets `place` say where the fingerprint goes, and keeps a picture of `shown`.
void captureWidget(OutputDirectory &output, const char *name, const QString &title, QWidget *separate,
    const std::function<void(CaptureView &)> &place)
{
    CaptureView view(kS310XPad, title);
    view.show();
    const OpenedPad pad(kS310XPad, &view, view.signingPosition());
    place(view);
    view.setStatus(captureText(waitForConfirm(pad)));
    QWidget *shown = separate == nullptr ? &view : separate;
    waitFor([&] { return hasFingerprint(shown->grab().toImage()); }, kMergeTime, noFingerprint());
    pause(200);
    output.saveImage(name, shown->grab().toImage());
}

void placeAt(QWidget *parent, const QRect &place, const char *where)
{
    if (KVS310X_SetDisplayedFPImageAt(
            kS310XPad.type, parent, 0, 0, place.left(), place.top(), place.width(), place.height())
        != ARI_SUCCESS)
        throw notPlaced(where);
}

void captureCanvas(OutputDirectory &output)
{
    const OpenedPad pad(kS310XPad, nullptr);
    const QSize canvas(240, 330);
    if (KVS310X_SetDisplayedFPImageAt(pad->type, nullptr, canvas.width(), canvas.height(), kFullSize.left(),
            kFullSize.top(), kFullSize.width(), kFullSize.height())
        != ARI_SUCCESS)
        throw notPlaced("on a canvas");
    waitForConfirm(pad);
    char *text = KVS310X_GetFPImageBase64Data(pad->type, EBITI_PNG, false);
    if (text == nullptr)
        throw noFingerprint();
    output.saveText("s310x-finger-canvas.png", text, 0);
    KVS310X_FreeFPImageBase64Data(pad->type, text);
}

} // namespace

void showFingerprints(SimulatorSettings &settings, OutputDirectory &output)
{
    settings.playQuickly("signature-finger");
    captureWidget(output, "s310x-finger-centre.png", "the fingerprint at the centre of the signature", nullptr,
        [](CaptureView &) {});
    captureWidget(output, "s310x-finger-rectangle.png", "the fingerprint in a rectangle of its own", nullptr,
        [](CaptureView &view) { placeAt(&view, kBeside, "in a rectangle"); });

    QWidget separate;
    separate.setWindowTitle("S310X - the fingerprint in another window");
    separate.setFixedSize(240, 330);
    separate.show();
    captureWidget(output, "s310x-finger-window.png", "the fingerprint in another window", &separate,
        [&](CaptureView &) { placeAt(&separate, kFullSize, "in another window"); });

    captureCanvas(output);
}
