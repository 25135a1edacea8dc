// Outputs when memory runs out: ARI_INK_EMPTY for a file, an empty text for an image, null for the ink record.
#include "failingmemory.h"
#include "fingerprints.h"
#include "openfiles.h"
#include "returnedtext.h"
#include "savedfiles.h"

#include <dlfcn.h>
#include <zlib.h>

namespace {

bool compressorsFindNone = false;
int refusedCompressors = 0;

} // namespace

// With which Qt begins each stream of a PDF file.
extern "C" int deflateInit_(z_streamp stream, int level, const char *version, int size)
{
    if (compressorsFindNone) {
        ++refusedCompressors;
        return Z_MEM_ERROR;
    }
    static const auto real = reinterpret_cast<decltype(&deflateInit_)>(dlsym(RTLD_NEXT, "deflateInit_"));
    return real(stream, level, version, size);
}

namespace {

/// For a scope, large allocations fail.
class LittleMemory
{
public:
    LittleMemory()
    {
        failingmemory::refuse([](std::size_t bytes) { return bytes > 60000; });
    }
    ~LittleMemory() { failingmemory::refuse(nullptr); }
    LittleMemory(const LittleMemory &) = delete;
    LittleMemory &operator=(const LittleMemory &) = delete;
};

class OutputsWithoutMemory : public testing::TestWithParam<PadCase>
{
protected:
    OutputsWithoutMemory()
        : pad(GetParam(), 900, 700)
    {
        std::vector<Share> shares;
        for (int i = 0; i < 5000; ++i)
            shares.push_back({0.1 + 0.0001 * i, 0.3 + 0.01 * (i % 40), 0.1});
        pad.driver.send(stroke(pad.type(), shares));
        for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG})
            EXPECT_NE(textOf(pad, type).text(), "") << "what is made once is made";
        EXPECT_NE(exTextOf(pad, EBITI_PNG, false).text(), "");
    }

    int save(int type, const char *name) const
    {
        std::wstring path = files.path(name).toStdWString();
        const LittleMemory little;
        return pad->SaveDrawingImage(pad.type(), type, path.data(), IDLI_150DPI);
    }

    OpenPad pad;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, OutputsWithoutMemory, testing::ValuesIn(allPads()), padCaseName);

constexpr std::pair<int, const char *> kFiles[] = {
    {ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"}, {ITI_PDF, "a.pdf"}, {ITI_SVG, "a.svg"}};

TEST_P(OutputsWithoutMemory, AreNoFiles)
{
    for (const bool clipped : {false, true}) {
        EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), clipped, 3, 3), 0);
        for (const auto &[type, name] : kFiles)
            EXPECT_EQ(save(type, name), ARI_INK_EMPTY) << name;
    }
    EXPECT_TRUE(files.names().empty());
    for (const auto &[type, name] : kFiles)
        EXPECT_EQ(files.save(pad, type, name), ARI_SUCCESS) << name << " with memory again";
}

TEST_P(OutputsWithoutMemory, AreEmptyTextsOfImages)
{
    const auto expectEmpty = [&](const auto &text, const char *what) {
        const Text made = [&] {
            const LittleMemory little;
            return text();
        }();
        EXPECT_FALSE(made.isNull()) << what;
        EXPECT_EQ(made.text(), "") << what;
    };
    for (const int type : {EBITI_BITMAP, EBITI_PNG}) {
        const bool bitmap = type == EBITI_BITMAP;
        expectEmpty([&] { return textOf(pad, type); }, bitmap ? "BMP" : "PNG");
        expectEmpty([&] { return exTextOf(pad, type, bitmap); }, bitmap ? "BMP, Ex" : "opaque PNG, Ex");
    }
    expectEmpty([&] { return svgTextOf(pad); }, "SVG");
    EXPECT_NE(svgTextOf(pad).text(), "") << "with memory again";
}

TEST_P(OutputsWithoutMemory, AreNoInkRecord)
{
    const LittleMemory little;
    EXPECT_TRUE(textOf(pad, EBITI_INK).isNull());
}

TEST_P(OutputsWithoutMemory, AreNothingDecoded)
{
    for (const auto &[type, name] : {std::pair(EBITI_BITMAP, "a.bmp"), std::pair(EBITI_INK, "")}) {
        const QByteArray text = textOf(pad, type).text();
        std::wstring path = files.path(name).toStdWString();
        const LittleMemory little;
        EXPECT_EQ(pad->Base64Decode(pad.type(), type, text.constData(), path.data()), ARI_INK_EMPTY) << type;
    }
    EXPECT_TRUE(files.names().empty());
    EXPECT_EQ(pad->GetTotalDecodeInkPointsNumber(pad.type()), ARI_INK_EMPTY);
}

// The painter asks for more than the canvas has bytes once it draws, and again at its end.
TEST_P(OutputsWithoutMemory, AreNoPdfFilesWhereMemoryEndsWhileTheyAreDrawn)
{
    static const std::size_t canvas = 900 * 700 * 4;
    EXPECT_EQ(files.save(pad, ITI_PDF, "a.pdf"), ARI_SUCCESS);
    EXPECT_TRUE(QFile::remove(files.path("a.pdf")));
    const std::vector<std::string> before = openFiles();
    const int refusalsBefore = failingmemory::refusals();
    failingmemory::refuse([](std::size_t bytes) { return bytes > canvas; });
    const int result = files.save(pad, ITI_PDF, "a.pdf");
    failingmemory::refuse(nullptr);
    EXPECT_EQ(result, ARI_INK_EMPTY);
    EXPECT_GT(failingmemory::refusals(), refusalsBefore);
    EXPECT_TRUE(files.names().empty());
    EXPECT_EQ(openFiles(), before);
    EXPECT_EQ(files.save(pad, ITI_PDF, "a.pdf"), ARI_SUCCESS) << "with memory again";
}

// Qt only warns of what it leaves out, and answers success.
TEST_P(OutputsWithoutMemory, AreNoPdfFilesThatLackAPart)
{
    refusedCompressors = 0;
    compressorsFindNone = true;
    EXPECT_EQ(files.save(pad, ITI_PDF, "a.pdf"), ARI_INK_EMPTY);
    compressorsFindNone = false;
    EXPECT_GT(refusedCompressors, 0);
    EXPECT_TRUE(files.names().empty());
    EXPECT_EQ(files.save(pad, ITI_PDF, "a.pdf"), ARI_SUCCESS) << "with memory again";
}

} // namespace
