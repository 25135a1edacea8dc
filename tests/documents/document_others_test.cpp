// Documents that other programs signed: verify reads them right, and what is appended leaves them valid to others.
#include "signeddocuments.h"

#include <QJsonArray>

namespace {

using namespace signeddocuments;

class DocumentOthers : public Documents
{
protected:
    QJsonObject read(const QString &name, int exitCode) const
    {
        return row(verified(name, exitCode, {"--trust", given("others-authority.pem")}));
    }
};

struct Row
{
    const char *name;
    const char *algorithm;
    const char *reason;
    bool isValid; ///< MuPDF signs with SHA-1
};

const Row kRows[] = {{"signed-libreoffice.pdf", "RSA 2048, SHA-256", "", true},
    {"signed-podofo.pdf", "RSA 2048, SHA-256", "goods received", true},
    {"signed-poppler.pdf", "RSA 2048, SHA-256", "goods received", true},
    {"signed-mupdf.pdf", "RSA 2048, SHA-1", "", false}};

TEST_F(DocumentOthers, AreReadAsTheyWereSigned)
{
    for (const Row &entry : kRows) {
        SCOPED_TRACE(entry.name);
        const QJsonObject found = read(given(entry.name), entry.isValid ? 0 : 1);
        EXPECT_EQ(found["signer"].toString(), "Carla Example");
        EXPECT_EQ(found["issuer"].toString(), "Authority of the Kept Signatures");
        EXPECT_EQ(found["algorithm"].toString(), entry.algorithm);
        EXPECT_EQ(found["reason"].toString(), entry.reason);
        EXPECT_EQ(found["trust"].toString(), "trusted");
        EXPECT_TRUE(found["intact"].toBool()) << found["problem"].toString().toStdString();
        EXPECT_TRUE(found["coversWholeFile"].toBool());
        EXPECT_EQ(found["weakAlgorithm"].toBool(), !entry.isValid);
        EXPECT_EQ(found["changedAfter"], QJsonValue(QJsonArray()));
    }
}

TEST_F(DocumentOthers, StayValidWhenSomebodyElseSigns)
{
    for (const Row &entry : kRows) {
        SCOPED_TRACE(entry.name);
        signAs(People::get().anna(), given(entry.name), "more.pdf", {"--page", "1", "--field", "10,10,40x20"});
        EXPECT_TRUE(Documents::read("more.pdf").startsWith(contentOf(given(entry.name))));
        needSound("more.pdf");
        const QString seen = runProgram({"pdfsig", "-nocert", "more.pdf"}, file(".")).output;
        EXPECT_EQ(seen.count("Signature is Valid"), 2) << seen.toStdString();
        EXPECT_TRUE(seen.contains("ETSI.CAdES.detached") && seen.contains("Total document signed"));
        const QJsonArray rows = verified("more.pdf", entry.isValid ? 0 : 1,
            {"--trust", given("others-authority.pem"), "--trust", People::get().authority()})["signatures"]
                                    .toArray();
        ASSERT_EQ(rows.size(), 2);
        EXPECT_EQ(rows[0].toObject()["valid"].toBool(), entry.isValid);
        EXPECT_EQ(rows[0].toObject()["addedAfter"].toArray().size(), 1);
        EXPECT_EQ(rows[1].toObject()["signer"].toString(), "Anna Example");
        EXPECT_TRUE(rows[1].toObject()["valid"].toBool());
    }
}

// The drawing of the page is what everything else here must leave alone.
TEST_F(DocumentOthers, AreFoundChangedWhenInkIsDrawnOnThem)
{
    for (const Row &entry : kRows) {
        SCOPED_TRACE(entry.name);
        signPage(given(entry.name), "drawn.pdf", {"--page", "1", "--field", "10,10,40x20"});
        EXPECT_EQ(read("drawn.pdf", 1)["changedAfter"].toArray(), QJsonArray{"page 1"});
    }
}

} // namespace
