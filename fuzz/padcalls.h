/// @file
/// Turns a stream of bytes into what happens to an open pad: packets and fingerprints from the driver, calls of the
/// exported functions, events of the widget.
#ifndef FUZZ_PADCALLS_H
#define FUZZ_PADCALLS_H

#include "openpad.h"
#include "target.h"

#include <QTemporaryDir>

namespace fuzz {

class PadCalls
{
public:
    PadCalls(FuzzedPad &pad, Bytes bytes);

    /// Does what the bytes say to their end, or up to a number of steps that shows everything.
    void run();

private:
    void step(int what);
    void packet();
    void stroke();
    void fingerprint();
    void driverAnswers();
    void deviceCalls();
    void penCalls();
    void receivers();
    void pointCalls();
    void save();
    void textCall();
    void svgText();
    void inkRecord();
    void clip();
    void modelCalls();
    void livePush();
    void place();
    void fingerprintText();
    void hostEvent();

    void send(const KVSIM_PACKET &packet);
    void checkText(char *text, void (*release)(int, char *));

    FuzzedPad &m_pad;
    const int m_type;
    Bytes m_bytes;
};

} // namespace fuzz

#endif
