// A full disk: a device that is always full, and a limit on the size of files.
#include "logfile.h"
#include "returnedtext.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

class FullDisk : public testing::TestWithParam<PadCase>
{
protected:
    FullDisk()
        : pad(GetParam(), 80, 50)
    {
        pad.driver.send(twoStrokes(type));
    }

    int save(int fileType, const char *name)
    {
        std::wstring path = directory.filePath(name).toStdWString();
        return pad->SaveDrawingImage(type, fileType, path.data(), IDLI_150DPI);
    }

    int decode(int textType, const QByteArray &text, const char *name)
    {
        std::wstring path = directory.filePath(name).toStdWString();
        return pad->Base64Decode(type, textType, text.constData(), path.data());
    }

    const int type = GetParam().family->type;
    QTemporaryDir directory;
    OpenPad pad;
};

constexpr struct
{
    int file;
    int text;
    const char *name;
    int expected; ///< when the file can be opened and not be written
} kFiles[] = {
    {ITI_BITMAP, EBITI_BITMAP, "a.bmp", ARI_INK_EMPTY},
    {ITI_JPEG, EBITI_JPEG, "a.jpg", ARI_INK_EMPTY},
    {ITI_PNG, EBITI_PNG, "a.png", ARI_INK_EMPTY},
    {ITI_PDF, 0, "a.pdf", ARI_SUCCESS},
    {ITI_SVG, 0, "a.svg", ARI_SUCCESS},
};

} // namespace

TEST_P(FullDisk, FilesOnAFullDevice)
{
    for (const auto &file : kFiles) {
        ASSERT_TRUE(QFile::link("/dev/full", directory.filePath(file.name)));
        EXPECT_EQ(save(file.file, file.name), file.expected) << file.name;
        if (file.text != 0) {
            EXPECT_EQ(decode(file.text, textOf(pad, file.text).text(), file.name), ARI_INK_EMPTY) << file.name;
        }
        EXPECT_TRUE(QFileInfo(directory.filePath(file.name)).isSymLink()) << "what was there stays";
    }
}

TEST_P(FullDisk, FilesThatStopHalfWay)
{
    const SmallDisk disk(100);
    for (const auto &file : kFiles) {
        EXPECT_EQ(save(file.file, file.name), file.expected) << file.name;
        EXPECT_FALSE(QFileInfo::exists(directory.filePath(file.name))) << "half a file stays behind";
    }
    for (const auto &file : kFiles) {
        if (file.text != 0) {
            EXPECT_EQ(decode(file.text, textOf(pad, file.text).text(), file.name), ARI_INK_EMPTY) << file.name;
        }
    }
}

// Whatever the answer, which for two of them tells nothing of the disk.
TEST_P(FullDisk, AnEarlierFileStaysAsItWas)
{
    const QByteArray earlier(200000, 'e');
    for (const auto &file : kFiles) {
        QFile written(directory.filePath(file.name));
        ASSERT_TRUE(written.open(QIODevice::WriteOnly) && written.write(earlier) == earlier.size());
        written.close();
        ASSERT_TRUE(written.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        const QByteArray text = file.text == 0 ? QByteArray() : textOf(pad, file.text).text();
        const SmallDisk disk(100);
        EXPECT_EQ(save(file.file, file.name), file.expected) << file.name;
        if (file.text != 0) {
            EXPECT_EQ(decode(file.text, text, file.name), ARI_INK_EMPTY) << file.name;
        }
        ASSERT_TRUE(written.open(QIODevice::ReadOnly));
        EXPECT_TRUE(written.readAll() == earlier) << file.name;
        written.close();
    }
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 5);
    for (const auto &file : kFiles) {
        EXPECT_EQ(save(file.file, file.name), ARI_SUCCESS) << file.name;
        EXPECT_LT(QFileInfo(directory.filePath(file.name)).size(), earlier.size());
        const auto readWriteOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        EXPECT_EQ(QFileInfo(directory.filePath(file.name)).permissions(), readWriteOwner);
    }
}

TEST_P(FullDisk, TextsThatNeedNoFile)
{
    const SmallDisk disk(0);
    for (const int text : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK})
        EXPECT_FALSE(textOf(pad, text).bytes().isEmpty()) << text;
}

// A short drawing that is held back until the file is closed, and a long one that is written piece by piece.
TEST_P(FullDisk, AnSvgTextIsEmptyThen)
{
    for (const int strokes : {1, 100}) {
        for (int i = 0; i < strokes; ++i)
            pad.driver.send(twoStrokes(type));
        const SmallDisk disk(100);
        const Text svg = svgTextOf(pad);
        EXPECT_FALSE(svg.isNull());
        EXPECT_EQ(svg.text(), "") << strokes;
    }
    EXPECT_TRUE(svgTextOf(pad).bytes().trimmed().endsWith("</svg>")) << "with room again";
}

TEST_P(FullDisk, TheLogIsPassedOver)
{
    const SmallDisk disk(0);
    const LogOn log;
    const LogTail tail;
    pad.driver.send(twoStrokes(type));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(type), 18);
    EXPECT_EQ(save(ITI_PNG, "b.png"), ARI_INK_EMPTY);
    EXPECT_TRUE(tail.lines().empty());
}

INSTANTIATE_TEST_SUITE_P(AllPads, FullDisk, testing::ValuesIn(allPads()), padCaseName);
