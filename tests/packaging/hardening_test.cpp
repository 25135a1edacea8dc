// What is shipped is hardened: each library and program of a release build, as readelf and nm see it.
#include "outsidecommand.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

class Shipped : public testing::TestWithParam<const char *>
{
protected:
    static QString file() { return QString(KV_BUILD_DIRECTORY "/") + GetParam(); }
    static bool isProgram() { return !file().endsWith(".so"); }

    static QString said(const QStringList &command)
    {
        const CommandResult result = runProgram(command + QStringList(file()), "/");
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        return result.output;
    }
};

TEST_P(Shipped, LocksItsTablesBeforeItBegins)
{
    EXPECT_TRUE(said({"readelf", "-W", "--program-headers"}).contains("GNU_RELRO"));
    EXPECT_TRUE(said({"readelf", "-W", "--dynamic"}).contains("BIND_NOW"));
}

TEST_P(Shipped, HasAStackThatIsNotExecuted)
{
    const QRegularExpression stack("GNU_STACK\\s+\\S+ \\S+ \\S+ \\S+ \\S+ RW ");
    EXPECT_TRUE(stack.match(said({"readelf", "-W", "--program-headers"})).hasMatch());
}

TEST_P(Shipped, GuardsItsStack)
{
    EXPECT_TRUE(said({"nm", "-D", "--undefined-only"}).contains("__stack_chk_fail"));
}

// What is shipped is built by GCC. Clang has no checked copies of functions like fprintf.
#ifndef __clang__
TEST_P(Shipped, ChecksItsCopies)
{
    const QRegularExpression checked("__(mem|str|printf|fprintf|dprintf|[vn]*snprintf|read|fread|fgets)\\w*_chk");
    EXPECT_TRUE(checked.match(said({"nm", "-D", "--undefined-only"})).hasMatch());
}
#endif

TEST_P(Shipped, LiesAtAnyAddress)
{
    EXPECT_TRUE(said({"readelf", "-W", "--file-header"}).contains("DYN "));
    if (isProgram()) {
        EXPECT_TRUE(said({"readelf", "-W", "--dynamic"}).contains(QRegularExpression("Flags: .*PIE")));
    }
}

/// Neither the debug information nor the texts of assertions name the folder in which it was built.
TEST_P(Shipped, NamesNoFolderOfThisMachine)
{
    const QString texts = said({"strings", "-a"});
    EXPECT_FALSE(texts.contains(KV_SOURCE_DIRECTORY "/"));
}

INSTANTIATE_TEST_SUITE_P(Files, Shipped,
    testing::Values("kvsignpadsdk/libkvsignpadsdk.so", "simulator/libkvsignpaddrv.so",
        "simulator/recorder/libkvsignpaddrv.so", "tools/bin/kvsign", "tools/kv-virtualpad",
        "examples/sign-desk/kv-sign-desk", "bridge/kv-sign-bridge", "simulator/tools/kv-make-recording",
        "simulator/tools/kv-import-handwriting", "simulator/tools/kv-scramble-recording"),
    [](const auto &row) { return QString(row.param).replace(QRegularExpression("\\W"), "_").toStdString(); });

} // namespace
