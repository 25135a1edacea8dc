// The signature as the Base64 text of an SVG file, and the file that this leaves in /tmp.
#include "logmessages.h"
#include "returnedtext.h"
#include "svgfiles.h"

#include <QFile>
#include <QRegularExpression>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr char kFile[] = "/tmp/KVeSign.svg";
constexpr int kWidth = 240;
constexpr int kHeight = 130;

QByteArray contents(const char *path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

mode_t modeOf(const char *path)
{
    struct stat status
    {
    };
    EXPECT_EQ(::lstat(path, &status), 0) << path;
    return status.st_mode & 07777;
}

class SvgText : public testing::TestWithParam<PadCase>
{
protected:
    SvgText()
    {
        fs::remove_all(kFile);
        before.insert("KVeSign.svg");
        pad.driver.send(packets);
    }
    ~SvgText() override { fs::remove_all(kFile); }

    std::set<std::string> before = svgFiles(); ///< of a process that was killed, and the file itself
    OpenPad pad{GetParam(), kWidth, kHeight};
    std::vector<KVSIM_PACKET> packets = twoStrokes(pad.type());
};

class OthersSvgFile : public SvgText
{
};

// Only the superuser can give a file away.
std::vector<PadCase> padsOfTheSuperuser()
{
    return ::geteuid() == 0 ? allPads() : std::vector<PadCase>();
}

// A plain file of the test's own, as somebody's property that nothing may happen to.
class Treasure
{
public:
    Treasure()
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("treasure");
    }
    ~Treasure() { fs::remove(path); }
    void expectUnharmed() const { EXPECT_EQ(contents(path), "treasure"); }

    static constexpr const char *path = "/tmp/kv-svg-text-test-treasure";
};

} // namespace

TEST_P(SvgText, IsTheFilesBytes)
{
    const Text text = svgTextOf(pad);
    ASSERT_FALSE(text.isNull());
    EXPECT_GT(text.text().size(), 0);
    EXPECT_EQ(text.text().size() % 4, 0);
    EXPECT_EQ(text.bytes(), contents(kFile));
    EXPECT_EQ(svgFiles(), before);
}

TEST_P(SvgText, HasTheCanvasesSizeAndALineForEachMove)
{
    const QString svg = QString::fromUtf8(svgTextOf(pad).bytes());
    EXPECT_TRUE(svg.contains(QString("viewBox=\"0 0 %1 %2\"").arg(kWidth).arg(kHeight))) << svg.toStdString();
    // 150 dots per inch: 240 pixels are 40.64 mm.
    EXPECT_TRUE(svg.contains("width=\"40.64mm\"")) << svg.toStdString();
    EXPECT_EQ(svg.count("<polyline") + svg.count("<path"), 5);
}

TEST_P(SvgText, IsShiftedAndSizedByTheClipRectangle)
{
    const QString unclipped = QString::fromUtf8(svgTextOf(pad).bytes());
    pad->SetSaveClipImageMargin(pad.type(), true, 4, 6);
    const QString svg = QString::fromUtf8(svgTextOf(pad).bytes());
    const QImage bitmap = QImage::fromData(textOf(pad, 1).bytes(), "BMP");
    ASSERT_LT(bitmap.width(), kWidth);
    const QRegularExpression viewBox("viewBox=\"0 0 (\\d+) (\\d+)\"");
    const auto match = viewBox.match(svg);
    EXPECT_EQ(match.captured(1).toInt(), bitmap.width());
    EXPECT_EQ(match.captured(2).toInt(), bitmap.height());
    const QRegularExpression point("points=\"([-0-9.]+),([-0-9.]+)");
    const auto whole = point.match(unclipped);
    const auto shifted = point.match(svg);
    ASSERT_TRUE(whole.hasMatch() && shifted.hasMatch());
    EXPECT_LT(shifted.captured(1).toDouble(), whole.captured(1).toDouble());
    EXPECT_GE(shifted.captured(1).toDouble(), 0);
    EXPECT_LT(shifted.captured(2).toDouble(), whole.captured(2).toDouble());
}

TEST_P(SvgText, FileIsWrittenAnewEachTimeAndReadableByItsOwnerAlone)
{
    const mode_t umaskBefore = ::umask(0);
    const QByteArray first = svgTextOf(pad).bytes();
    EXPECT_EQ(modeOf(kFile), 0600u);
    ::chmod(kFile, 0644);
    pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    const QByteArray second = svgTextOf(pad).bytes();
    EXPECT_EQ(modeOf(kFile), 0600u);
    ::umask(umaskBefore);
    EXPECT_NE(first, second);
    EXPECT_EQ(contents(kFile), second);
}

TEST_P(SvgText, LongerFileThatIsInPlaceLeavesNoTail)
{
    {
        QFile file(kFile);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(1 << 20, 'x'));
    }
    const QByteArray bytes = svgTextOf(pad).bytes();
    EXPECT_GT(bytes.size(), 0);
    EXPECT_FALSE(bytes.contains("xxx"));
    EXPECT_EQ(contents(kFile), bytes);
}

TEST_P(SvgText, SymbolicLinkIsNeitherFollowedNorReplaced)
{
    const Treasure treasure;
    for (const char *target : {Treasure::path, "/tmp/kv-svg-text-test-nothing-there", "/tmp"}) {
        fs::remove_all(kFile);
        fs::create_symlink(target, kFile);
        const Text text = svgTextOf(pad);
        ASSERT_FALSE(text.isNull()) << target;
        EXPECT_EQ(text.text(), "") << target;
        EXPECT_TRUE(fs::is_symlink(kFile)) << target;
        EXPECT_EQ(fs::read_symlink(kFile), target);
        EXPECT_EQ(svgFiles(), before) << target;
        treasure.expectUnharmed();
    }
    EXPECT_FALSE(fs::exists("/tmp/kv-svg-text-test-nothing-there"));
}

TEST_P(SvgText, DirectoryOrPipeStays)
{
    fs::create_directory(kFile);
    EXPECT_EQ(svgTextOf(pad).text(), "");
    EXPECT_TRUE(fs::is_directory(kFile));
    EXPECT_TRUE(fs::is_empty(kFile));
    fs::remove_all(kFile);
    ASSERT_EQ(::mkfifo(kFile, 0666), 0);
    EXPECT_EQ(svgTextOf(pad).text(), "");
    EXPECT_TRUE(fs::is_fifo(kFile));
    EXPECT_EQ(svgFiles(), before);
}

TEST_P(SvgText, MapsItsPointsAlsoWhereItsFileCannotBeHad)
{
    const std::string key = GetParam().className() + std::string("::ConvertSignRawDataToSignWndData()");
    const auto mapped = [&] {
        const LogTail log;
        {
            const LogOn logOn;
            svgTextOf(pad);
        }
        return messagesOf(log, key);
    };
    const Lines written = mapped();
    EXPECT_EQ(written.empty(), key != "CS310XSignWidget::ConvertSignRawDataToSignWndData()");
    fs::remove_all(kFile);
    fs::create_directory(kFile);
    EXPECT_EQ(mapped(), written);
}

TEST_P(SvgText, HardLinksOtherNameKeepsItsContents)
{
    const Treasure treasure;
    fs::create_hard_link(Treasure::path, kFile);
    const QByteArray bytes = svgTextOf(pad).bytes();
    treasure.expectUnharmed();
    EXPECT_EQ(fs::hard_link_count(Treasure::path), 1u);
    EXPECT_GT(bytes.size(), 0);
    EXPECT_EQ(contents(kFile), bytes);
}

TEST_P(SvgText, FileThatCannotBeWrittenWholeGivesAnEmptyText)
{
    const QByteArray written = svgTextOf(pad).bytes();
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{200, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);
    const Text text = svgTextOf(pad);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(text.isNull());
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(contents(kFile), written);
    EXPECT_EQ(svgFiles(), before);
}

TEST_P(OthersSvgFile, IsNeitherTrustedNorReplaced)
{
    {
        QFile file(kFile);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("planted");
    }
    ASSERT_EQ(::chown(kFile, 65534, 65534), 0);
    const Text text = svgTextOf(pad);
    ASSERT_FALSE(text.isNull());
    EXPECT_EQ(text.text(), "");
    EXPECT_EQ(contents(kFile), "planted");
    EXPECT_EQ(svgFiles(), before);
}

INSTANTIATE_TEST_SUITE_P(AllPads, SvgText, testing::ValuesIn(allPads()), padCaseName);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(OthersSvgFile);
INSTANTIATE_TEST_SUITE_P(AllPads, OthersSvgFile, testing::ValuesIn(padsOfTheSuperuser()), padCaseName);
