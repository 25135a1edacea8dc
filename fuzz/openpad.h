/// @file
/// A pad of the exported functions on the simulated driver of the working directory, for targets.
#ifndef FUZZ_OPENPAD_H
#define FUZZ_OPENPAD_H

#include "families.h"
#include "simulatorcontrol.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace fuzz {

/// The driver's control functions. The driver stays loaded.
class Driver
{
public:
    static const Driver &instance();

    decltype(&KVSIM_SendPackets) sendPackets;
    decltype(&KVSIM_SendFingerprint) sendFingerprint;
    decltype(&KVSIM_SetReadingThreadPackets) setReadingThreadPackets;
    decltype(&KVSIM_SetResult) setResult;
    decltype(&KVSIM_SetText) setText;
    decltype(&KVSIM_SetScreenDelay) setScreenDelay;
    decltype(&KVSIM_ShownPictures) shownPictures;
    decltype(&KVSIM_Reset) reset;

private:
    Driver();
};

/// Opens the pad in the constructor and closes it in the destructor. The caller must ask whether it could be opened.
class FuzzedPad
{
public:
    FuzzedPad(const Family &family, bool headless, int width, int height);
    ~FuzzedPad();
    FuzzedPad(const FuzzedPad &) = delete;
    FuzzedPad &operator=(const FuzzedPad &) = delete;

    const Family *operator->() const { return &m_family; }
    int type() const { return m_family.type; }
    bool isOpen() const { return m_open; }
    bool isHeadless() const { return m_window == nullptr; }

    /// The parent window and the signing widget in it; null for headless pads.
    QWidget *window() const { return m_window.get(); }
    QWidget *widget() const;

private:
    const Family &m_family;
    std::unique_ptr<QWidget> m_window;
    bool m_open = false;
};

/// A headless S300 that stays open from one input to the next, for targets that do not change it.
FuzzedPad &keptPad();

/// Call it before another pad is opened: a program can have one open at a time.
void closeKeptPad();

/// Processes posted events, paints and deferred deletes.
void settle();

} // namespace fuzz

#endif
