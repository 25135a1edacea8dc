/// @file
/// What the simulated pad is to play next.
#ifndef SETTINGS_H
#define SETTINGS_H

/// Sets the environment that the simulator reads when a pad is opened. Variables that the user has set win.
class SimulatorSettings
{
public:
    SimulatorSettings();

    /// Plays a bundled recording at the speed of a person.
    void playLive(const char *recording);

    /// Plays it as fast as possible.
    void playQuickly(const char *recording);

private:
    void set(const char *recording, const char *speed, const char *screenMilliseconds);

    bool m_usersRecording;
    bool m_usersSpeed;
};

#endif
