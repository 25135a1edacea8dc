#include "extras.h"

#include "capture.h"
#include "failure.h"

void showOfficeCanvas(SimulatorSettings &settings, OutputDirectory &output)
{
    settings.playQuickly("signature");
    const OpenedPad pad(kS210Pad, nullptr);
    const bool created = KVS210_InitialWPSSignCanvas(pad->type, 360, 120);
    const int points = waitForConfirm(pad).points;
    char *text = created ? KVS210_WPSBase64Encode(pad->type, EBITI_PNG) : nullptr;
    if (text == nullptr)
        throw Failure{"The S210 gave no office canvas.", "This is a fault of the library; run ./check."};
    output.saveText("s210-office-canvas.png", text, points);
    KVS210_WPSBase64EncodeFree(pad->type, text);
}
