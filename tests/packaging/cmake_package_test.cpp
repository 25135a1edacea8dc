// What programs of others find the library by: find_package and pkg-config, in an installed tree that was moved, and in
// the build tree. README's program is built and run with each.
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString kBuildTree = KV_BUILD_DIRECTORY;

/// Installed once for all tests below one folder, and then moved to another.
class Found : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_root = new QTemporaryDir;
        const CommandResult result =
            runProgram({"cmake", "--install", kBuildTree, "--prefix", s_root->filePath("first")}, "/");
        ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        ASSERT_TRUE(QDir(s_root->path()).rename("first", "moved to here"));
    }

    static void TearDownTestSuite()
    {
        delete s_root;
        s_root = nullptr;
    }

    void SetUp() override
    {
        QFile source(m_place.filePath("capture.cpp"));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly));
        const QString readme = contentOf(KV_SOURCE_DIRECTORY "/README.md");
        source.write(fencedBlock(sectionOf(readme, "Program with it"), "cpp").toUtf8());
    }

    static QString moved(const QString &path) { return s_root->filePath("moved to here/" + path); }

    CommandResult run(const QString &commands, const QMap<QString, QString> &environment = {})
    {
        QMap<QString, QString> all = environment;
        all["KVSIM_SPEED"] = "20";
        return runProgram({"sh", "-ec", commands}, m_place.path(), all);
    }

    /// CMake's way: the project finds the package, and the program runs with the simulator that the package names.
    void buildsWithCMake(const QString &packageFolder)
    {
        QFile project(m_place.filePath("CMakeLists.txt"));
        ASSERT_TRUE(project.open(QIODevice::WriteOnly));
        project.write(
            "cmake_minimum_required(VERSION 3.16)\n"
            "project(capture LANGUAGES CXX)\n"
            "find_package(Threads REQUIRED)\n"
            "find_package(KvSignpad 1.0 REQUIRED)\n"
            "add_executable(capture capture.cpp)\n"
            "target_link_libraries(capture KvSignpad::sdk Threads::Threads)\n"
            "target_compile_features(capture PRIVATE cxx_std_17)\n"
            "file(COPY ${KvSignpad_SIMULATOR_DIR}/libkvsignpaddrv.so DESTINATION ${CMAKE_CURRENT_SOURCE_DIR})\n");
        project.close();
        isCaptured(run("cmake -G Ninja -B build -DKvSignpad_DIR=\"$PACKAGE\" && cmake --build build && build/capture",
            {{"PACKAGE", packageFolder}}));
    }

    void buildsWithPkgConfig(const QString &folder, const QString &libraries)
    {
        isCaptured(
            run("eval g++ -std=c++17 capture.cpp $(pkg-config --cflags --libs kvsignpadsdk) -o capture\n"
                "cp \"$(pkg-config --variable=simulatordir kvsignpadsdk | sed 's/\\\\//g')/libkvsignpaddrv.so\" .\n"
                "LD_LIBRARY_PATH=\"$LIBRARIES\" ./capture",
                {{"PKG_CONFIG_PATH", folder}, {"LIBRARIES", libraries}}));
    }

    void isCaptured(const CommandResult &result)
    {
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        EXPECT_EQ(QImage(m_place.filePath("signature.png")).size(), QSize(800, 452));
    }

    QTemporaryDir m_place;

private:
    static inline QTemporaryDir *s_root = nullptr;
};

TEST_F(Found, ByCMakeInATreeThatWasMoved)
{
    buildsWithCMake(moved(KV_LIBDIR "/cmake/KvSignpad"));
}

TEST_F(Found, ByCMakeInTheBuildTree)
{
    buildsWithCMake(kBuildTree + "/packaging");
}

TEST_F(Found, ByPkgConfigInATreeThatWasMoved)
{
    buildsWithPkgConfig(moved(KV_LIBDIR "/pkgconfig"), moved(KV_LIBDIR));
}

TEST_F(Found, ByPkgConfigInTheBuildTree)
{
    buildsWithPkgConfig(kBuildTree + "/packaging", kBuildTree + "/kvsignpadsdk");
}

TEST_F(Found, ByCMakeInNoVersionThatIsNotCompatible)
{
    QFile project(m_place.filePath("CMakeLists.txt"));
    ASSERT_TRUE(project.open(QIODevice::WriteOnly));
    project.write("cmake_minimum_required(VERSION 3.16)\nproject(none LANGUAGES NONE)\n"
                  "find_package(KvSignpad ${WANTED} REQUIRED)\n");
    project.close();
    const QString package = "-DKvSignpad_DIR=" + moved(KV_LIBDIR "/cmake/KvSignpad");
    for (const char *wanted : {"1.0", "1.0.5", "1"})
        EXPECT_EQ(
            runProgram({"cmake", "-B", wanted, package, QString("-DWANTED=") + wanted}, m_place.path()).exitCode, 0)
            << wanted;
    for (const char *wanted : {"1.1", "2.0", "0.9"})
        EXPECT_NE(
            runProgram({"cmake", "-B", wanted, package, QString("-DWANTED=") + wanted}, m_place.path()).exitCode, 0)
            << wanted;
}

/// What the library is made of, for whoever links all of it into something else.
TEST_F(Found, WithTheLibrariesThatItNeeds)
{
    const CommandResult result = run("pkg-config --print-requires-private kvsignpadsdk | sort | tr '\\n' ' '",
        {{"PKG_CONFIG_PATH", moved(KV_LIBDIR "/pkgconfig")}});
    EXPECT_EQ(result.output, "Qt5Core Qt5Gui Qt5Svg Qt5Widgets libjpeg zlib ");
}

} // namespace
