/// @file
/// A pad between InitialDevice and UnInitialDevice, without a window.
#ifndef HEADLESSPAD_H
#define HEADLESSPAD_H

#include "commandline.h"
#include "padfamilies.h"

#include <QSize>

inline constexpr Option kDriverOption{"driver d", "DIRECTORY",
    "Where the pad driver libkvsignpaddrv.so is; \"simulator\" means the installed pad simulator. Default: the working "
    "directory.",
    nullptr, kDirectories};

inline constexpr Option kUnsafeDriverOption{"unsafe-driver", nullptr,
    "Use the driver although others may change its file or a folder on the way to it.", nullptr, nullptr};

/// Makes the driver's directory the working directory, because the library looks for the driver there. Make relative
/// file names absolute before. Throws when there is no such directory, or when the simulator is asked for and is not
/// installed.
void enterDriverDirectory(const Arguments &arguments);

/// Throws when others could replace the driver, unless the arguments allow that. Call it in the driver's directory,
/// before the driver is loaded.
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

    /// The text that the pad answers to this query; empty when it has none.
    QString text(decltype(PadFamily::GetHWPadID) query) const;

private:
    const PadFamily *m_family = nullptr;
};

#endif
