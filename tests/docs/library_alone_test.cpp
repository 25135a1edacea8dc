// The library without the programs around it: what a system needs to configure it.
#include "outsidecommand.h"

#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(LibraryAlone, NeedsQtZlibAndLibjpegAlone)
{
    const QTemporaryDir directory;
    const CommandResult result =
        runProgram({"cmake", "-G", "Ninja", "-S", KV_SOURCE_DIRECTORY, "-B", directory.path(), "-DKV_BUILD_TESTS=OFF",
                       "-DKV_BUILD_BENCH=OFF", "-DKV_BUILD_TOOLS=OFF", "-DKV_BUILD_EXAMPLES=OFF"},
            "/");
    ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);

    // What was found is written down as <package>_DIR, as <library>_INCLUDE_DIR, or as a library's path.
    static const QRegularExpression found(
        "^(\\w+?)(?:_INCLUDE)?_DIR:PATH=|^\\w+:FILEPATH=.*/lib(\\w+)\\.(?:a|so)$", QRegularExpression::MultilineOption);
    QSet<QString> packages;
    auto matches = found.globalMatch(contentOf(directory.filePath("CMakeCache.txt")));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        packages += match.captured(1) + match.captured(2);
    }
    EXPECT_EQ(
        packages, (QSet<QString>{"Qt5", "Qt5Core", "Qt5Gui", "Qt5Widgets", "Qt5Svg", "JPEG", "jpeg", "ZLIB", "z"}))
        << QStringList(packages.values()).join(' ').toStdString();
}

} // namespace
