/// @file
/// A pad between InitialDevice and UnInitialDevice, without a window.
#ifndef HEADLESSPAD_H
#define HEADLESSPAD_H

#include "commandline.h"
#include "padfamilies.h"

#include <QSize>

inline constexpr Option kDriverOption{"driver d", "DIRECTORY",
    "Where the pad driver libkvsignpaddrv.so is. Default: the working directory.", nullptr, kDirectories};

inline constexpr Option kUnsafeDriverOption{"unsafe-driver", nullptr,
    "Use the driver although others may change its file or a folder on the way to it.", nullptr, nullptr};

/// Goes to the driver's directory, where the library looks for it. File names must be absolute by then.
void enterDriverDirectory(const Arguments &arguments);

/// Throws when somebody else could put another driver there, unless the arguments allow it. To be called in the
/// driver's directory, before anything loads the driver.
void refuseUnsafeDriver(const Arguments &arguments);

class HeadlessPad
{
public:
    /// "auto" takes the first model that answers. An empty size means the usual canvas. Throws when there is no pad.
    HeadlessPad(const QString &model, QSize canvas);
    ~HeadlessPad();
    HeadlessPad(const HeadlessPad &) = delete;
    HeadlessPad &operator=(const HeadlessPad &) = delete;

    const PadFamily *operator->() const { return m_family; }

    /// Says what the device answers to a query for a text; empty for none.
    QString text(decltype(PadFamily::GetHWPadID) query) const;

private:
    const PadFamily *m_family = nullptr;
};

#endif
