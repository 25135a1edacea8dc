/// @file
/// What the simulated pad is to play next.
#ifndef SETTINGS_H
#define SETTINGS_H

/// Sets the simulator's environment, which it reads whenever a pad is opened. What the user has set comes first.
class SimulatorSettings
{
public:
    SimulatorSettings();

    /// A bundled recording as a person would write it.
    void playLive(const char *recording);

    /// The same as quickly as the pad can take it.
    void playQuickly(const char *recording);

private:
    void set(const char *recording, const char *speed, const char *screenMilliseconds);

    bool m_usersRecording;
    bool m_usersSpeed;
};

#endif
