/// @file
/// Programs that end while their pad still sends to a receiver. None of them may hang or crash.
#include "patience.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <vector>

namespace {

struct Outcome
{
    int exitCode = -1; ///< -1: it hung or crashed
    std::string errors;
};

class ProgramEnds : public testing::Test
{
protected:
    /// Sets up a pad whose confirm button is tapped again as soon as the receiver returns.
    ProgramEnds()
    {
        std::ofstream(recording()) << "version: 1\nmodel: S300\n0 300 1600 100 4\n1 300 1600 100 4\n";
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("KVSIM_SPEED", "max");
        environment.insert("KVSIM_REPEAT", "0");
        environment.insert("KVSIM_DELAY_MS", "0");
        environment.insert("KVSIM_RECORDING", QString::fromStdString(recording()));
        m_environment = environment;
    }

    std::string recording() const { return m_directory.filePath("taps.kvrec").toStdString(); }

    Outcome run(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(program, arguments);
        if (!process.waitForFinished(static_cast<int>(std::chrono::milliseconds(kPatience).count()))) {
            process.kill();
            process.waitForFinished();
            return {-1, "hangs"};
        }
        const std::string errors = process.readAllStandardError().toStdString();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, errors};
    }

    QProcessEnvironment m_environment;
    QTemporaryDir m_directory;
};

TEST_F(ProgramEnds, APythonProgramEndsWithItsPadOpen)
{
    for (int i = 0; i < 8; ++i) {
        const Outcome outcome = run("python3", {KV_ENDING_PROGRAM, KV_LIBRARY});
        ASSERT_EQ(outcome.exitCode, 0) << outcome.errors;
    }
}

} // namespace
