// The guide to the first signature, done from the build tree as a reader does it with the installed packages: its
// commands and its listings, in their order.
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class FirstSignature : public testing::Test
{
protected:
    FirstSignature()
        : m_guide(contentOf(KV_SOURCE_DIRECTORY "/docs/first-signature.md"))
    {
    }

    void SetUp() override { follow(section("Where the driver is")); }

    QString section(const QString &heading) const { return sectionOf(m_guide, heading); }
    QString file(const QString &name) const { return m_place.filePath(name); }

    void save(const QString &name, const QString &listing) const
    {
        QFile source(file(name));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly));
        source.write(listing.toUtf8());
    }

    CommandResult run(const QString &commands, const QString &recording = "signature") const
    {
        return runProgram({"sh", "-ec", commands}, m_place.path(),
            {{"KVSIM_SPEED", "20"}, {"KVSIM_RECORDING", recording}, {"QT_QPA_PLATFORM", "offscreen"},
                {"PKG_CONFIG_PATH", KV_BUILD_DIRECTORY "/packaging"},
                {"CMAKE_PREFIX_PATH", KV_BUILD_DIRECTORY "/packaging"},
                {"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"},
                {"KVSIGNPAD_LIBRARY", KV_BUILD_DIRECTORY "/kvsignpadsdk/libkvsignpadsdk.so.1"},
                {"PYTHONPATH", KV_SOURCE_DIRECTORY "/bindings/python"}, {"PYTHONDONTWRITEBYTECODE", "1"}});
    }

    /// The commands of a section, which write the signature.
    void follow(const QString &text) const
    {
        const CommandResult result = run(indentedBlock(text).join('\n'));
        ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    }

    void isSigned() const
    {
        EXPECT_EQ(QImage(file("signature.png")).size(), QSize(800, 452));
        EXPECT_TRUE(QFile::remove(file("signature.png")));
    }

    const QString m_guide;
    const QTemporaryDir m_place;
};

TEST_F(FirstSignature, TakesTheSimulatorsDriver)
{
    EXPECT_TRUE(QFile::exists(file("libkvsignpaddrv.so")));
}

TEST_F(FirstSignature, IsWrittenByTheProgramInCppByPkgConfigAndByCMake)
{
    save("signature.cpp", fencedBlock(section("C++"), "cpp"));
    follow(section("C++"));
    isSigned();
    const CommandResult cancelled = run("./signature", "tick-and-cross");
    EXPECT_EQ(cancelled.exitCode, 1) << testing::PrintToString(cancelled);
    EXPECT_FALSE(QFile::exists(file("signature.png")));

    save("CMakeLists.txt", fencedBlock(section("C++"), "cmake"));
    const QString commands = section("C++").section("```cmake", 1).section("```", 1);
    follow(commands);
    isSigned();
}

TEST_F(FirstSignature, GrowsInAQtWidget)
{
    save("window.cpp", fencedBlock(section("A Qt widget"), "cpp"));
    follow(section("A Qt widget"));
    isSigned();
}

TEST_F(FirstSignature, IsWrittenByTheProgramInC)
{
    save("signature.c", fencedBlock(section("C"), "c"));
    follow(section("C"));
    isSigned();
    EXPECT_EQ(run("./signature", "tick-and-cross").exitCode, 1);
    EXPECT_FALSE(QFile::exists(file("signature.png")));
    QFile::remove(file("libkvsignpaddrv.so"));
    const CommandResult without = run("./signature");
    EXPECT_EQ(without.exitCode, 1);
    EXPECT_TRUE(without.errors.contains("No S300 pad")) << testing::PrintToString(without);
}

TEST_F(FirstSignature, IsWrittenByTheProgramInPython)
{
    save("signature.py", fencedBlock(section("Python"), "python"));
    follow(section("Python"));
    isSigned();
}

} // namespace
