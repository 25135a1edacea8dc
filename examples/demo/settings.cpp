#include "settings.h"

#include <QByteArray>

SimulatorSettings::SimulatorSettings()
    : m_usersRecording(!qEnvironmentVariableIsEmpty("KVSIM_RECORDING"))
    , m_usersSpeed(!qEnvironmentVariableIsEmpty("KVSIM_SPEED"))
{
}

void SimulatorSettings::playLive(const char *recording)
{
    set(recording, "1", "200");
}

void SimulatorSettings::playQuickly(const char *recording)
{
    set(recording, "20", "1");
}

void SimulatorSettings::set(const char *recording, const char *speed, const char *screenMilliseconds)
{
    if (!m_usersRecording)
        qputenv("KVSIM_RECORDING", recording);
    if (!m_usersSpeed)
        qputenv("KVSIM_SPEED", speed);
    qputenv("KVSIM_SCREEN_MS", screenMilliseconds);
}
