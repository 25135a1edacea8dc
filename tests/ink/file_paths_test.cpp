// Paths from callers: a valid one gives exactly that file, an invalid one gives none.
#include "inkpicture.h"
#include "savedfiles.h"

#include <clocale>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::pair<int, const char *> kTypes[] = {
    {ITI_BITMAP, ".bmp"}, {ITI_JPEG, ".jpg"}, {ITI_PNG, ".png"}, {ITI_PDF, ".pdf"}, {ITI_SVG, ".svg"}};

using Names = std::vector<std::string>;

class FilePaths : public testing::TestWithParam<PadCase>
{
protected:
    FilePaths()
        : pad(GetParam(), 100, 60)
    {
        pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.7, 0.8, 0.4}}));
    }

    int save(int type, std::wstring path) const
    {
        return pad->SaveDrawingImage(pad.type(), type, path.data(), IDLI_150DPI);
    }

    std::wstring wide(const QString &name) const { return files.path(name).toStdWString(); }

    // An SVG that cannot be written is not noticed.
    static int refusal(int type) { return type == ITI_SVG ? ARI_SUCCESS : ARI_INK_EMPTY; }

    // Whether there is a file of exactly these bytes as its name.
    bool exists(const std::string &name) const
    {
        struct stat found
        {
        };
        return ::stat((files.path("").toStdString() + name).c_str(), &found) == 0 && found.st_size > 0;
    }

    OpenPad pad;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, FilePaths, testing::ValuesIn(allPads()), padCaseName);

TEST_P(FilePaths, ThatAreNullOrEmptyAreRefused)
{
    const QStringList before = QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    for (const auto &[type, suffix] : kTypes) {
        EXPECT_EQ(pad->SaveDrawingImage(pad.type(), type, nullptr, IDLI_150DPI), refusal(type)) << suffix;
        EXPECT_EQ(save(type, L""), refusal(type)) << suffix;
    }
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::System), before);
}

TEST_P(FilePaths, WithWhatIsNoCharacterAreRefused)
{
    for (const unsigned code : {0x110000u, 0xd800u, 0xdbffu, 0xdc00u, 0xdfffu, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        for (const auto &[type, suffix] : kTypes) {
            std::wstring path = wide("a");
            path += static_cast<wchar_t>(code);
            path += QString(suffix).toStdWString();
            EXPECT_EQ(save(type, path), refusal(type)) << std::hex << code << suffix;
        }
    }
    EXPECT_EQ(files.names(), Names{});
}

TEST_P(FilePaths, WithAnyCharacterAreWrittenAsUtf8WithoutALocale)
{
    ASSERT_STREQ(std::setlocale(LC_CTYPE, "C"), "C");
    const std::pair<const wchar_t *, const char *> kNames[] = {
        {L"gr\u00fc\u00df", "gr\xc3\xbc\xc3\x9f"},
        {L"\u7b7e\u540d", "\xe7\xad\xbe\xe5\x90\x8d"},
        {L"\U0001f58a", "\xf0\x9f\x96\x8a"},
        {L"\U0010fffd", "\xf4\x8f\xbf\xbd"},
        // A letter and its accent stay two characters.
        {L"e\u0301", "e\xcc\x81"},
        {L"with blank%41", "with blank%41"},
    };
    for (const auto &[name, bytes] : kNames) {
        for (const auto &[type, suffix] : kTypes) {
            EXPECT_EQ(save(type, wide("") + name + QString(suffix).toStdWString()), ARI_SUCCESS);
            EXPECT_TRUE(exists(bytes + std::string(suffix))) << bytes << suffix;
        }
    }
    EXPECT_EQ(files.names().size(), 6 * 5u);
}

// An 8-bit locale made for this test, in force while the object lives.
class WesternLocale
{
public:
    WesternLocale()
    {
        static const QTemporaryDir made;
        const std::string target = made.filePath("western").toStdString();
        if (!QFile::exists(QString::fromStdString(target))) {
            const std::string command = "localedef --no-archive -i de_DE -f ISO-8859-1 " + target + " 2>&1";
            EXPECT_EQ(std::system(command.c_str()), 0) << "localedef or its sources are missing; ./check installs them";
        }
        setenv("LOCPATH", made.path().toStdString().c_str(), 1);
        EXPECT_STREQ(std::setlocale(LC_CTYPE, "western"), "western");
    }
    ~WesternLocale()
    {
        std::setlocale(LC_CTYPE, "C");
        unsetenv("LOCPATH");
    }
};

TEST_P(FilePaths, ThatTheLocaleCannotExpressBecomeNoFileOfAnotherName)
{
    const WesternLocale locale;
    for (const auto &[type, suffix] : kTypes) {
        const std::wstring end = QString(suffix).toStdWString();
        EXPECT_EQ(save(type, wide("") + L"\u7b7e\u540d" + end), refusal(type)) << suffix;
        EXPECT_EQ(save(type, wide("") + L"a\U0001f58a" + end), refusal(type)) << suffix;
        EXPECT_EQ(files.names(), Names{});
        EXPECT_EQ(save(type, wide("") + L"gr\u00fc\u00df" + end), ARI_SUCCESS) << suffix;
        EXPECT_TRUE(exists("gr\xfc\xdf" + std::string(suffix))) << suffix;
        EXPECT_EQ(unlink((files.path("").toStdString() + "gr\xfc\xdf" + suffix).c_str()), 0);
    }
}

TEST_P(FilePaths, InAUtf8LocaleAreUtf8)
{
    ASSERT_STREQ(std::setlocale(LC_CTYPE, "C.UTF-8"), "C.UTF-8");
    EXPECT_EQ(save(ITI_PNG, wide("") + L"\u7b7e\U0001f58a.png"), ARI_SUCCESS);
    std::setlocale(LC_CTYPE, "C");
    EXPECT_TRUE(exists("\xe7\xad\xbe\xf0\x9f\x96\x8a.png"));
}

TEST_P(FilePaths, ThatCannotBeOpenedAreRefused)
{
    ASSERT_TRUE(QDir().mkpath(files.path("directory.png")));
    files.write("plain", "plain");
    const Names names = files.names();
    for (const auto &[type, suffix] : kTypes) {
        for (const QString &path : {files.path("directory.png"), files.path("missing/a") + suffix,
                 files.path("plain/a") + suffix, QString("/proc/a") + suffix, files.path(QString(300, 'n')) + suffix,
                 files.path(QString("a/./").repeated(2000)) + suffix})
            EXPECT_EQ(save(type, path.toStdWString()), refusal(type)) << path.left(80).toStdString();
    }
    EXPECT_EQ(files.names(), names);
    EXPECT_EQ(files.bytes("plain"), "plain");
}

TEST_P(FilePaths, OnAFullDiskFailAsAnImageAndAreNotNoticedElsewhere)
{
    for (const auto &[type, suffix] : kTypes) {
        const std::string link = files.path("full").toStdString() + suffix;
        ASSERT_EQ(symlink("/dev/full", link.c_str()), 0);
        const bool noticed = type != ITI_PDF && type != ITI_SVG;
        EXPECT_EQ(save(type, QString::fromStdString(link).toStdWString()), noticed ? ARI_INK_EMPTY : ARI_SUCCESS)
            << suffix;
        struct stat found
        {
        };
        EXPECT_EQ(::lstat(link.c_str(), &found), 0) << "the link is still there";
    }
}

TEST_P(FilePaths, OfExistingFilesAreOverwrittenAsAWhole)
{
    for (const auto &[type, suffix] : kTypes) {
        const QString name = QString("old") + suffix;
        files.write(name, QByteArray(2'000'000, 'x'));
        EXPECT_EQ(save(type, wide(name)), ARI_SUCCESS);
        EXPECT_LT(files.bytes(name).size(), 200'000) << suffix;
        EXPECT_FALSE(files.bytes(name).contains("xxxxxxxxxxxxxxxx")) << suffix;
    }
}

TEST_P(FilePaths, OfExistingFilesKeepTheirContentWhenTheSaveIsRefused)
{
    files.write("keep.txt", "kept");
    for (const int type : {ITI_BITMAP, ITI_JPEG, ITI_PNG}) {
        EXPECT_EQ(save(type, wide("keep.txt")), ARI_INK_EMPTY);
        EXPECT_EQ(files.bytes("keep.txt"), "kept");
    }
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    pad.driver.send(stroke(pad.type(), {{0.5, 0.5, 0.5}}));
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 1, 1), 0);
    files.write("keep.png", "kept");
    EXPECT_EQ(save(ITI_PNG, wide("keep.png")), ARI_INK_EMPTY) << "nothing is inside the clip rectangle";
    EXPECT_EQ(files.bytes("keep.png"), "kept");
}

TEST_P(FilePaths, ThatAreRelativeCountFromTheWorkingDirectory)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(files.path("")));
    EXPECT_EQ(save(ITI_BITMAP, L"here.bmp"), ARI_SUCCESS);
    EXPECT_EQ(save(ITI_PDF, L"./there.pdf"), ARI_SUCCESS);
    // A name that Qt would take for a resource is a name as any other.
    EXPECT_EQ(save(ITI_PNG, L":here.png"), ARI_SUCCESS);
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(files.names(), (Names{":here.png", "here.bmp", "there.pdf"}));
}

} // namespace
