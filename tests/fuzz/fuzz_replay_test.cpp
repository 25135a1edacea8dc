// Every input that a fuzz target starts from, and every one that once broke something, goes through without harm.
#include "target.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

extern "C" {
using Target = int(const uint8_t *data, size_t size);
Target imagetext_fuzzer, inktext_fuzzer, inkrecord_fuzzer, inkcsv_fuzzer, inkjson_fuzzer, inkml_fuzzer,
    recording_fuzzer, padwindow_fuzzer, padcommands_fuzzer, pad_fuzzer, append_fuzzer, verify_fuzzer, bridgehead_fuzzer,
    bridgemessage_fuzzer;
}

namespace {

struct Row
{
    const char *name;
    Target *target;
};

std::string nameOf(const testing::TestParamInfo<Row> &target)
{
    return target.param.name;
}

constexpr Row kTargets[] = {{"imagetext", imagetext_fuzzer}, {"inktext", inktext_fuzzer},
    {"inkrecord", inkrecord_fuzzer}, {"inkcsv", inkcsv_fuzzer}, {"inkjson", inkjson_fuzzer}, {"inkml", inkml_fuzzer},
    {"recording", recording_fuzzer}, {"padwindow", padwindow_fuzzer}, {"padcommands", padcommands_fuzzer},
    {"pad", pad_fuzzer}, {"append", append_fuzzer}, {"verify", verify_fuzzer}, {"bridgehead", bridgehead_fuzzer},
    {"bridgemessage", bridgemessage_fuzzer}};

char replayed[512] = ""; ///< for the message of a crash

void nameInput(int signal)
{
    constexpr char kWords[] = "\nthe input that did it: ";
    (void)!write(STDERR_FILENO, kWords, sizeof kWords - 1);
    (void)!write(STDERR_FILENO, replayed, std::strlen(replayed));
    (void)!write(STDERR_FILENO, "\n", 1);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void replay(Target *target, const QString &path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    qstrncpy(replayed, path.toUtf8().constData(), sizeof replayed);
    // Of the size exactly, so that a sanitizer sees a byte too much.
    const QByteArray bytes = file.readAll();
    const std::vector<uint8_t> exact(bytes.begin(), bytes.end());
    EXPECT_EQ(target(exact.data(), exact.size()), 0);
}

class FuzzReplay : public testing::TestWithParam<Row>
{
protected:
    FuzzReplay()
    {
        for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS})
            std::signal(signal, nameInput);
    }
    ~FuzzReplay() override
    {
        for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS})
            std::signal(signal, SIG_DFL);
    }

    int replayAll(const char *kind)
    {
        int inputs = 0;
        QDirIterator files(QString("%1/%2/%3").arg(KV_FUZZ_DIRECTORY, kind, GetParam().name), QDir::Files);
        for (; files.hasNext(); ++inputs)
            replay(GetParam().target, files.next());
        return inputs;
    }
};

} // namespace

TEST_P(FuzzReplay, TakesEverySeed)
{
    EXPECT_GE(replayAll("seeds"), 3);
}

TEST_P(FuzzReplay, TakesWhatOnceBrokeSomething)
{
    replayAll("regress");
}

TEST_P(FuzzReplay, TakesNothingAtAll)
{
    qstrncpy(replayed, "nothing", sizeof replayed);
    EXPECT_EQ(GetParam().target(reinterpret_cast<const uint8_t *>(""), 0), 0);
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay, testing::ValuesIn(kTargets), nameOf);

TEST(FuzzReplayOfAllTargets, LeavesNoneOut)
{
    std::vector<std::string> expected;
    for (const Row &row : kTargets)
        expected.push_back(std::string(row.name) + "_fuzzer.cpp");
    std::vector<std::string> found;
    for (const QString &name : QDir(KV_FUZZ_DIRECTORY).entryList({"*_fuzzer.cpp"}))
        found.push_back(name.toStdString());
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected);
}
