/// @file
/// What the KVSIM_ environment variables ask of the simulator. README.md lists them.
#ifndef SETTINGS_H
#define SETTINGS_H

#include <string>

namespace kvsim {

struct Settings
{
    std::string recording = "signature"; ///< bundled name or path; "none": the pad stays silent
    double speed = 1; ///< 0: as fast as it goes
    int delayMs = 250; ///< from the first ClearDeviceContent to the first packet, and between repetitions
    int repeat = 1; ///< 0: for ever
    int screenMs = 200;
    std::string version; ///< empty: the model's own text
    std::string pictures; ///< directory; empty: pictures are not stored
};

/// Throws std::runtime_error that names the variable and the reason.
Settings readSettings();

} // namespace kvsim

#endif
