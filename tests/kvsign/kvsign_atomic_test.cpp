// kvsign writes either all of its files, each of them whole, or none. However it ends, it leaves no temporary files.
#include "kvsign.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace kvsign;

class KvsignAtomic : public Place
{
protected:
    void SetUp() override { QDir(file(".")).mkdir("temporary"); }

    QStringList temporary() const
    {
        return QDir(file("temporary")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot | QDir::System);
    }

    /// Runs kvsign through a shell, with temporary files in a folder of the test's own.
    CommandResult runInShell(const QString &command) const
    {
        return runProgram({"bash", "-c", command, KV_KVSIGN}, file("."),
            {{"TMPDIR", file("temporary")}, {"KVSIM_SPEED", "max"}, {"KVSIM_DELAY_MS", "100"}});
    }
};

// The library reports success even if the disk was too small for a PDF or an SVG, and the cut file would still fit at
// its destination. So kvsign has to notice. A limit on file sizes stands in for the small disk.
TEST_F(KvsignAtomic, WritesNoCutPicture)
{
    for (const char *name : {"a.pdf", "a.svg", "a.png", "a.jpg", "a.bmp"}) {
        write(name, "as it was");
        const CommandResult result =
            runInShell(QString("trap '' XFSZ; ulimit -f 4; \"$0\" capture -m S300 --size 300x200 %1").arg(name));
        EXPECT_EQ(result.exitCode, 1) << name << '\n' << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("could not be made whole")) << testing::PrintToString(result);
        EXPECT_EQ(read(name), "as it was") << name;
        EXPECT_EQ(temporary(), QStringList()) << name;
        QFile::remove(file(name));
    }
    EXPECT_EQ(files(), QStringList("temporary"));
}

/// As root it put them into the root of the file system.
TEST_F(KvsignAtomic, SaysThatThereIsNoFolderForTemporaryFiles)
{
    const auto inRoot = [] { return QDir("/").entryList({"kvsign*"}, QDir::AllEntries | QDir::Hidden); };
    const QStringList before = inRoot();
    for (const char *command : {"capture -m S300 --size 300x200 a.png", "capture -m S300 --size 300x200 a.ink",
             "convert /dev/stdin - --to csv </dev/null"}) {
        const CommandResult result = runInShell(QString("TMPDIR='%1' \"$0\" %2").arg(file("missing"), command));
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("TMPDIR=" + file("missing") + ": there is no such folder"))
            << testing::PrintToString(result);
    }
    EXPECT_EQ(inRoot(), before);
    EXPECT_EQ(files(), QStringList("temporary"));
}

TEST_F(KvsignAtomic, LeavesNothingWhenNobodyReadsItsOutput)
{
    const QString program =
        "import os, subprocess, sys\n"
        "os.chdir(sys.argv[1]); os.environ['TMPDIR'] = 'temporary'; os.environ['KVSIM_SPEED'] = 'max'\n"
        "reader, writer = os.pipe(); os.close(reader)\n"
        "child = subprocess.run(sys.argv[2:], stdout=writer, stderr=subprocess.PIPE)\n"
        "print(child.returncode, child.stderr.decode().strip())";
    const QString answer = python(program, {file("."), KV_KVSIGN, "capture", "-m", "S300", "a.png"});
    EXPECT_EQ(answer.trimmed().toStdString(), "1 kvsign: standard output: Broken pipe");
    EXPECT_EQ(temporary(), QStringList());
    EXPECT_EQ(files(), QStringList("temporary"));
    write("a.ink", record({{300, 300, 9, false, 0, 0}, {400, 400, 9, true, 5, 0}}));
    const QString piped = python(program, {file("."), KV_KVSIGN, "convert", "a.ink", "-", "--to", "csv"});
    EXPECT_EQ(piped.trimmed().toStdString(), "1 kvsign: standard output: Broken pipe");
    EXPECT_EQ(temporary(), QStringList());
}

TEST_F(KvsignAtomic, LeavesNothingAfterAnySignal)
{
    for (const int signal :
        {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU, SIGVTALRM, SIGRTMIN, SIGRTMAX}) {
        QProcess process;
        start(process, {"capture", "-m", "S300", "-t", "0", "x.ink", "x.png"},
            {{"KVSIM_RECORDING", "none"}, {"TMPDIR", file("temporary")}});
        waitForDriver(process);
        EXPECT_NE(temporary(), QStringList()) << "the test looks in the wrong place";
        kill(static_cast<pid_t>(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(60000));
        const bool isNoticed = signal == SIGINT || signal == SIGTERM || signal == SIGHUP;
        EXPECT_EQ(process.exitStatus(), isNoticed ? QProcess::NormalExit : QProcess::CrashExit) << signal;
        EXPECT_EQ(process.exitCode(), isNoticed ? 3 : signal) << signal;
        EXPECT_EQ(temporary(), QStringList()) << signal;
        EXPECT_EQ(files(), QStringList("temporary")) << signal;
    }
}

// kvsign has to write a file with two names in place. The signal comes after that, while kvsign still waits for a
// reader of the pipe.
TEST_F(KvsignAtomic, PutsBackContentAfterAnySignal)
{
    write("x.ink", "earlier");
    ASSERT_EQ(link(file("x.ink").toLocal8Bit().constData(), file("second.ink").toLocal8Bit().constData()), 0);
    ASSERT_EQ(mkfifo(file("pipe.png").toLocal8Bit().constData(), 0600), 0);
    for (const int signal : {SIGTERM, SIGQUIT, SIGUSR1, SIGRTMIN}) {
        QProcess process;
        start(process, {"capture", "-m", "S300", "x.ink", "pipe.png"},
            {{"KVSIM_SPEED", "max"}, {"TMPDIR", file("temporary")}});
        QElapsedTimer waiting;
        waiting.start();
        while (read("second.ink").size() < 100 && waiting.elapsed() < 60000)
            process.waitForFinished(5);
        EXPECT_NE(read("second.ink"), "earlier") << signal;
        kill(static_cast<pid_t>(process.processId()), signal);
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(read("second.ink"), "earlier") << signal;
        EXPECT_EQ(read("x.ink"), "earlier") << signal;
        EXPECT_EQ(temporary(), QStringList()) << signal;
        EXPECT_EQ(files(), QStringList({"second.ink", "temporary", "x.ink"})) << signal;
    }
}

TEST_F(KvsignAtomic, GoesOnWhenItIsToIgnoreASignal)
{
    const CommandResult result = runInShell(
        "trap '' HUP; KVSIM_DELAY_MS=1000 \"$0\" capture -m S300 x.ink & child=$!; "
        "while kill -0 $child && ! grep -q libkvsignpaddrv /proc/$child/maps; do sleep 0.02; done; kill -HUP $child; wait $child");
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(exists("x.ink"));
}

} // namespace
