// Several output files replace what was there before all together. If one of them fails, everything stays as it was.
#include "kvsign.h"

#include "failure.h"
#include "outputfile.h"
#include "wholepicture.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace kvsign;

class KvsignOutputs : public Place
{
protected:
    void open(const QStringList &names)
    {
        for (const QString &name : names) {
            m_files.push_back(std::make_unique<OutputFile>(file(name)));
            m_files.back()->device().write("new " + name.toUtf8());
            m_pointers.push_back(m_files.back().get());
        }
    }

    QString failure()
    {
        try {
            OutputFile::commit(m_pointers, [] {});
        } catch (const Failure &failure) {
            return failure.message;
        }
        return {};
    }

    struct stat statusOf(const char *name) const
    {
        struct stat status = {};
        EXPECT_EQ(stat(file(name).toLocal8Bit().constData(), &status), 0) << name;
        return status;
    }

    std::vector<std::unique_ptr<OutputFile>> m_files;
    std::vector<OutputFile *> m_pointers;
};

TEST_F(KvsignOutputs, AreAllThere)
{
    write("a", "old a");
    chmod(file("a").toLocal8Bit().constData(), 0604);
    open({"a", "b"});
    EXPECT_EQ(files(), QStringList("a")) << "something has a name before it is in its place";
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(read("a"), "new a");
    EXPECT_EQ(read("b"), "new b");
    EXPECT_EQ(statusOf("a").st_mode & 07777, 0604U);
    EXPECT_EQ(
        statusOf("b").st_mode & 0777, 0666U & ~[] {
            const mode_t mask = umask(0);
            umask(mask);
            return mask;
        }());
    m_files.clear();
    EXPECT_EQ(files(), QStringList({"a", "b"}));
}

TEST_F(KvsignOutputs, AreAsTheyWereWhenOneCannotBePutInPlace)
{
    write("a", "old a");
    const ino_t before = statusOf("a").st_ino;
    open({"a", "b", "c"});
    QDir(file(".")).mkpath("c/full");
    EXPECT_TRUE(failure().endsWith("c: Is a directory"));
    EXPECT_EQ(read("a"), "old a");
    EXPECT_EQ(statusOf("a").st_ino, before);
    m_files.clear();
    EXPECT_EQ(files(), QStringList({"a", "c"}));
}

// If a new file took one of the names, the other name would still show the old content.
TEST_F(KvsignOutputs, KeepAllNamesOfAFile)
{
    write("a", QByteArray(100000, 'o'));
    ASSERT_EQ(link(file("a").toLocal8Bit().constData(), file("second").toLocal8Bit().constData()), 0);
    const ino_t before = statusOf("a").st_ino;
    open({"a", "b"});
    EXPECT_EQ(failure(), "");
    m_files.clear();
    EXPECT_EQ(read("second"), "new a");
    EXPECT_EQ(read("a"), "new a");
    EXPECT_EQ(statusOf("a").st_ino, before);
    EXPECT_EQ(files(), QStringList({"a", "b", "second"}));
}

TEST_F(KvsignOutputs, KeepOwnerAndGroup)
{
    if (geteuid() != 0)
        return; // only root can make files that belong to another user
    write("owned", "old");
    write("grouped", "old");
    ASSERT_EQ(chown(file("owned").toLocal8Bit().constData(), 1, 0), 0);
    ASSERT_EQ(chown(file("grouped").toLocal8Bit().constData(), 0, 1), 0);
    const ino_t before = statusOf("grouped").st_ino;
    open({"owned", "grouped"});
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(read("owned"), "new owned");
    EXPECT_EQ(read("grouped"), "new grouped");
    EXPECT_EQ(statusOf("owned").st_uid, 1U);
    EXPECT_EQ(statusOf("grouped").st_gid, 1U);
    EXPECT_NE(statusOf("grouped").st_ino, before) << "a new file can have the group";
}

TEST_F(KvsignOutputs, GetTheirContentBackInPlaceToo)
{
    const QByteArray earlier(100000, 'o');
    write("a", earlier);
    ASSERT_EQ(link(file("a").toLocal8Bit().constData(), file("second").toLocal8Bit().constData()), 0);
    open({"a", "c"});
    QDir(file(".")).mkpath("c/full");
    EXPECT_TRUE(failure().endsWith("c: Is a directory"));
    EXPECT_EQ(read("second"), earlier);
    EXPECT_EQ(read("a"), earlier);
}

TEST_F(KvsignOutputs, AreAsTheyWereWhenADeviceIsFull)
{
    write("a", "old a");
    m_files.push_back(std::make_unique<OutputFile>("/dev/full"));
    m_files.back()->device().write("more");
    m_pointers.push_back(m_files.back().get());
    open({"a", "b"});
    EXPECT_EQ(failure(), "/dev/full: No space left on device");
    EXPECT_EQ(read("a"), "old a");
    m_files.clear();
    EXPECT_EQ(files(), QStringList("a"));
}

TEST_F(KvsignOutputs, LeaveNothingWhenTheyAreGivenUp)
{
    write("a", "old a");
    open({"a", "b"});
    m_files.clear();
    EXPECT_EQ(read("a"), "old a");
    EXPECT_EQ(files(), QStringList("a"));
}

TEST_F(KvsignOutputs, GoWhereLinksLead)
{
    QDir(file(".")).mkdir("below");
    write("below/real", "old");
    QFile::link("below/real", file("link"));
    QFile::link("below/none", file("dangling"));
    open({"link", "dangling"});
    EXPECT_EQ(failure(), "");
    EXPECT_TRUE(QFileInfo(file("link")).isSymLink());
    EXPECT_EQ(read("below/real"), "new link");
    EXPECT_EQ(read("below/none"), "new dangling");
}

// Each picture is cut off after every possible length; a PDF and a PNG also lose one byte from the middle.
TEST_F(KvsignOutputs, KnowsACutPicture)
{
    struct Kind
    {
        int type;
        const char *format;
    };
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (const Kind &kind :
        {Kind{ITI_BITMAP, "bmp"}, Kind{ITI_JPEG, "jpg"}, Kind{ITI_PNG, "png"}, Kind{ITI_PDF, "pdf"}}) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (kind.type == ITI_PDF) {
            QPdfWriter writer(&buffer);
            QPainter(&writer).drawImage(0, 0, image);
        } else {
            ASSERT_TRUE(image.save(&buffer, kind.format));
        }
        const QByteArray content = buffer.data();
        EXPECT_TRUE(isWholePicture(kind.type, content)) << kind.format;
        for (int size = 0; size < content.size() - 1; ++size)
            ASSERT_FALSE(isWholePicture(kind.type, content.left(size))) << kind.format << ' ' << size;
        if (kind.type == ITI_PDF || kind.type == ITI_PNG) {
            EXPECT_FALSE(isWholePicture(kind.type, QByteArray(content).remove(content.size() / 2, 1))) << kind.format;
        }
    }
    EXPECT_TRUE(isWholePicture(ITI_SVG, "<svg><path d='M 1 2'/></svg>\n"));
    EXPECT_FALSE(isWholePicture(ITI_SVG, "<svg><path d='M 1 2'/></sv"));
    EXPECT_FALSE(isWholePicture(ITI_SVG, ""));
}

} // namespace
