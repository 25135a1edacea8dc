// Random sessions give the same outputs with the faster ways as with Qt's calls only. Two programs of the same sources
// run them, one linked with a library whose faster ways are switched off.
//
// KV_SCENARIOS says how many sessions, KV_SCENARIOS_SEED the first one's seed.
#include <QProcess>

#include <gtest/gtest.h>

namespace {

constexpr int kSessions = 25;

QList<QByteArray> linesOf(const QString &program, int seed, int count)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {QString::number(seed), QString::number(count)});
    EXPECT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    return process.readAllStandardOutput().split('\n');
}

int setting(const char *variable, int otherwise)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? value : otherwise;
}

} // namespace

TEST(PlainWays, BringOutTheSame)
{
    const int count = setting("KV_SCENARIOS", kSessions), seed = setting("KV_SCENARIOS_SEED", 1);
    const QList<QByteArray> fast = linesOf(KV_SCENARIOS_FAST, seed, count);
    const QList<QByteArray> plain = linesOf(KV_SCENARIOS_PLAIN, seed, count);
    EXPECT_GT(fast.size(), count * 10);
    for (int i = 0; i < std::max(fast.size(), plain.size()); ++i) {
        ASSERT_EQ(fast.value(i).toStdString(), plain.value(i).toStdString())
            << "session " << fast.value(i).split(' ').value(0).toStdString()
            << " differs; to run it alone: KV_SCENARIOS=1 KV_SCENARIOS_SEED="
            << fast.value(i).split(' ').value(0).toStdString();
    }
    std::cout << count << " sessions from seed " << seed << ", " << fast.size() << " outputs\n";
}
