// kvsign needs little memory even for a long record, and shows its progress on a terminal.
#include "kvsign.h"

#include <QRegularExpression>

namespace {

using namespace kvsign;

class KvsignBig : public Place
{
protected:
    void writeRecord(const QString &name, int count) const
    {
        Points points(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            points[static_cast<size_t>(i)] = {300 + i % 1900, 300 + i % 1100, 400 + i % 300, i % 997 == 996,
                static_cast<quint64>(5 * i), 1700000000 + i / 200};
        write(name, recordBytes(points).toBase64());
    }

    /// Runs kvsign and returns its peak memory in kilobytes. A process inherits the peak of the one that starts it, so
    /// a small one does: Python.
    long memoryOf(const QStringList &arguments) const
    {
        const char measure[] = "import os, subprocess, sys\n"
                               "os.chdir(sys.argv[1])\n"
                               "child = subprocess.Popen(sys.argv[2:], stdout=subprocess.DEVNULL)\n"
                               "_, status, usage = os.wait4(child.pid, 0)\n"
                               "print(usage.ru_maxrss)\n"
                               "sys.exit(os.waitstatus_to_exitcode(status))";
        return python(measure, QStringList{file("."), KV_KVSIGN} + arguments).toLong();
    }
};

// Sanitizers hold on to freed memory, so the numbers would mean nothing.
#ifndef KV_SANITIZED
TEST_F(KvsignBig, PassesThroughInLittleMemory)
{
    writeRecord("small.ink", 1000);
    writeRecord("big.ink", 1000000);
    const long least = memoryOf({"convert", "small.ink", "small.json"});
    const long pictureLeast = memoryOf({"convert", "small.ink", "small.svg"});
    constexpr long kMore = 4096; // kilobytes; the points themselves are 24000
    EXPECT_GT(least, 1000);
    EXPECT_LT(memoryOf({"inspect", "big.ink"}), least + kMore);
    const auto comesBackThrough = [&](const QString &ink, const QString &other) {
        EXPECT_LT(memoryOf({"convert", ink, other}), least + kMore) << other.toStdString();
        EXPECT_LT(memoryOf({"convert", other, "back.ink"}), least + kMore) << other.toStdString();
        EXPECT_TRUE(read("back.ink") == read(ink)) << other.toStdString();
    };
    comesBackThrough("big.ink", "big.csv");
    writeRecord("long.ink", 300000); // 7200 kilobytes of points
    comesBackThrough("long.ink", "long.json");
    comesBackThrough("long.ink", "long.inkml");
    EXPECT_LT(memoryOf({"convert", "long.ink", "long.svg"}), pictureLeast + kMore);
}
#endif

TEST_F(KvsignBig, ShowsATerminalABar)
{
    writeRecord("big.ink", 400000);
    const QString shown = python("import os, pty, sys; os.chdir(sys.argv[1]); sys.exit(pty.spawn(sys.argv[2:]))",
        {file("."), KV_KVSIGN, "convert", "big.ink", "big.svg"});
    EXPECT_TRUE(shown.contains(QRegularExpression("converting  \\[#+\\.+\\] +\\d+ %"))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith("\r\033[K")) << "the bar is left there";
    const CommandResult quiet = runWell({"convert", "big.ink", "big.csv"});
    EXPECT_EQ(quiet.output + quiet.errors, "");
}

} // namespace
