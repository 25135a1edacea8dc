// Sealed pen data: the same record comes back for who has the key, and for nobody else.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentSeal : public Documents
{
protected:
    DocumentSeal()
    {
        // The expert's key, and others: of RSA, and of an elliptic curve.
        EXPECT_FALSE(People::get().expert().isEmpty());
        const std::pair<const char *, const char *> rows[] = {{"expert.key", "expert.key"},
            {"expert.pem", "expert.pem"}, {"expert.p12", "expert.p12"}, {"other.key", "other.key"},
            {"anna.key", "ec.key"}, {"anna.pem", "ec.pem"}};
        for (const auto &row : rows)
            EXPECT_TRUE(QFile::copy(People::get().folder + "/" + row.first, file(row.second)));
        capture("signature", "S300", {"b.ink"});
    }

    void sealPage(const QString &from, const QString &to, const QString &certificate) const
    {
        runWell({"sign", "--ink", "b.ink", "--seal", certificate, from, to});
    }
};

TEST_F(DocumentSeal, GivesTheSameRecordBack)
{
    sealPage(given("pdftex.pdf"), "sealed.pdf", "expert.pem");
    needSound("sealed.pdf");
    EXPECT_FALSE(read("sealed.pdf").contains("<ink"));
    EXPECT_EQ(
        runWell({"unseal", "sealed.pdf", "--key", "expert.key"}).output.toUtf8().trimmed(), read("b.ink").trimmed());
    runWell({"unseal", "sealed.pdf", "again.csv", "--key", "expert.p12", "--password-file", People::get().password()});
    runWell({"convert", "b.ink", "b.csv"});
    EXPECT_EQ(read("again.csv"), read("b.csv"));
    sealPage(given("pdftex.pdf"), "ec.pdf", "ec.pem");
    EXPECT_EQ(runWell({"unseal", "ec.pdf", "--key", "ec.key"}).output.toUtf8().trimmed(), read("b.ink").trimmed());
}

TEST_F(DocumentSeal, OpensForNobodyElse)
{
    sealPage(given("pdftex.pdf"), "sealed.pdf", "expert.pem");
    for (const char *key : {"other.key", "ec.key", "expert.pem", "b.ink", "none"}) {
        const CommandResult result = run({"unseal", "sealed.pdf", "x.ink", "--key", key});
        EXPECT_EQ(result.exitCode, 1) << key << testing::PrintToString(result);
        EXPECT_EQ(result.errors.count('\n'), 1) << testing::PrintToString(result);
        EXPECT_FALSE(exists("x.ink"));
    }
    const CommandResult none = run({"unseal", given("pdftex.pdf"), "--key", "expert.key"});
    EXPECT_TRUE(none.errors.contains("no sealed pen data")) << testing::PrintToString(none);
    const CommandResult noCertificate =
        run({"sign", "--ink", "b.ink", "--seal", "expert.key", given("pdftex.pdf"), "x.pdf"});
    EXPECT_TRUE(noCertificate.errors.contains("no certificate")) << testing::PrintToString(noCertificate);
    EXPECT_FALSE(exists("x.pdf"));
}

TEST_F(DocumentSeal, IsKeptForEachSignature)
{
    runWell({"sign", "--ink", "b.ink", "--seal", "expert.pem", "--certificate", People::get().anna(), "--password-file",
        People::get().password(), given("pdftex.pdf"), "one.pdf"});
    runWell({"sign", "--ink", "a.ink", "--seal", "expert.pem", "--certificate", People::get().ben(), "--password-file",
        People::get().password(), "--field", "10,10,50x30", "one.pdf", "two.pdf"});
    trusted("two.pdf", 0);
    EXPECT_EQ(run({"unseal", "two.pdf", "--key", "expert.key"}).exitCode, 2);
    const auto unsealed = [&](const char *number) {
        return runWell({"unseal", "two.pdf", "--key", "expert.key", "--number", number}).output.toUtf8().trimmed();
    };
    EXPECT_EQ(unsealed("1"), read("b.ink").trimmed());
    EXPECT_EQ(unsealed("2"), read("a.ink").trimmed());
}

} // namespace
