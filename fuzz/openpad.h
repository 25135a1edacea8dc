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

/// The driver's control face. The driver stays loaded.
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

/// Opens in the constructor, closes in the destructor. Whether it could be opened is for the caller to look at.
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

/// A headless S300 that stays open from one input to the next, for what leaves nothing behind in it.
FuzzedPad &keptPad();

/// A program has one pad open at a time.
void closeKeptPad();

/// Processes posted events, paints and deferred deletes.
void settle();

} // namespace fuzz

#endif
