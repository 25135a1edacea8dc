// kvsign sign --capture: somebody signs on a pad, and what was signed is never lost.
#include "signeddocuments.h"

#include <QFileInfo>

namespace {

using namespace signeddocuments;

const QMap<QString, QString> kSigner{{"KVSIM_RECORDING", "signature"}};

class DocumentCapture : public Documents
{
protected:
    DocumentCapture() { capture("signature", "S300", {"a.ink"}); }

    /// A page on which the recorded signer's ink stands, as kvsign signs it from a file.
    QImage expected() const
    {
        signPage(given("cairo.pdf"), "expected.pdf", {"--model", "S300"});
        return drawn("poppler", "expected.pdf", 100);
    }

    static QString listedWithoutTimes(const QByteArray &record)
    {
        kvsign::Points points = kvsign::pointsOf(record);
        for (kvsign::Point &point : points)
            point.tick = 0, point.time = 0;
        return kvsign::listed(points);
    }
};

TEST_F(DocumentCapture, PutsTheInkOnThePage)
{
    runWell({"sign", "--capture", "S300", given("cairo.pdf"), "signed.pdf"}, kSigner);
    EXPECT_EQ(drawn("poppler", "signed.pdf", 100), expected());
    EXPECT_FALSE(exists("signed.pdf.ink"));
}

TEST_F(DocumentCapture, KeepsTheInkWhenAStepFails)
{
    write("signed.pdf", "as it was");
    const QStringList command{"sign", "--capture", "S300", "--certificate", People::get().anna(), "--password-file",
        People::get().password(), "--timestamp", "http://127.0.0.1:1/stamp", given("cairo.pdf"), "signed.pdf"};
    for (const char *kept : {"signed.pdf.ink", "signed.pdf-2.ink"}) {
        const CommandResult result = run(command, kSigner);
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(file(kept))) << testing::PrintToString(result);
        EXPECT_EQ(read("signed.pdf"), "as it was");
        EXPECT_EQ(listedWithoutTimes(read(kept)), listedWithoutTimes(read("a.ink")));
        EXPECT_EQ(QFileInfo(file(kept)).permissions() & ~QFile::ReadUser & ~QFile::WriteUser,
            QFile::ReadOwner | QFile::WriteOwner);
    }
    runWell({"sign", "--ink", "signed.pdf.ink", "--model", "S300", given("cairo.pdf"), "again.pdf"});
    EXPECT_EQ(drawn("poppler", "again.pdf", 100), expected());
}

} // namespace
