// Digital signatures: other programs find them valid, one after the other, and one changed byte is found.
#include "signeddocuments.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace {

using namespace signeddocuments;

class DocumentSignature : public Documents
{
protected:
    /// The four numbers of the last signature's ranges, read by the test itself.
    QList<int> ranges(const QString &name) const
    {
        const QByteArray content = read(name);
        const int begin = content.lastIndexOf("/ByteRange [") + 12;
        QList<int> numbers;
        for (const QByteArray &number : content.mid(begin, content.indexOf(']', begin) - begin).simplified().split(' '))
            numbers += number.toInt();
        return numbers;
    }
};

TEST_F(DocumentSignature, IsValidToOthers)
{
    const QJsonObject result = signAs(People::get().anna(), given("pdftex.pdf"), "signed.pdf",
        {"--reason", "goods received", "--location", "Hamburg"});
    EXPECT_EQ(result["signer"].toString(), "Anna Example");
    EXPECT_TRUE(read("signed.pdf").startsWith(contentOf(given("pdftex.pdf"))));
    needSound("signed.pdf");
    const QString seen = runProgram({"pdfsig", "-nocert", "signed.pdf"}, file(".")).output;
    EXPECT_TRUE(seen.contains("Signature is Valid")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("ETSI.CAdES.detached")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("Total document signed")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("SHA-256")) << seen.toStdString();
    const QJsonObject found = row(trusted("signed.pdf", 0));
    EXPECT_EQ(found["reason"].toString(), "goods received");
    EXPECT_EQ(found["location"].toString(), "Hamburg");
    EXPECT_EQ(found["statedName"].toString(), "Anna Example");
    EXPECT_TRUE(found["coversWholeFile"].toBool());
}

TEST_F(DocumentSignature, IsAMessageOfCades)
{
    signAs(People::get().ben(), given("chromium.pdf"), "signed.pdf");
    const QByteArray content = read("signed.pdf");
    const QList<int> range = ranges("signed.pdf");
    ASSERT_EQ(range.size(), 4);
    EXPECT_EQ(range[0], 0);
    EXPECT_EQ(range[2] + range[3], content.size());
    EXPECT_EQ(content[range[1]], '<');
    EXPECT_EQ(content[range[2] - 1], '>');
    write("covered", content.left(range[1]) + content.mid(range[2]));
    write("message", QByteArray::fromHex(content.mid(range[1] + 1, range[2] - range[1] - 2)));
    const QStringList command{"openssl", "cms", "-verify", "-cades", "-binary", "-inform", "DER", "-in", "message",
        "-content", "covered", "-CAfile", People::get().authority(), "-purpose", "any", "-out", "/dev/null"};
    says(command);
    const QString text = says({"openssl", "cms", "-cmsout", "-print", "-noout", "-inform", "DER", "-in", "message"});
    EXPECT_TRUE(text.contains("signingCertificateV2")) << text.toStdString();
    EXPECT_FALSE(text.contains("signingTime")) << text.toStdString();
    write("covered", content.left(range[1]) + content.mid(range[2]) + "x");
    EXPECT_NE(runProgram(command, file(".")).exitCode, 0);
}

TEST_F(DocumentSignature, OfSeveralPeopleAreAllValid)
{
    signAs(People::get().anna(), given("libreoffice.pdf"), "one.pdf", {"--field", "20,50,60x30"});
    signAs(People::get().ben(), "one.pdf", "two.pdf", {"--field", "100,50,60x30"});
    signAs(People::get().anna(), "two.pdf", "three.pdf", {"--field", "20,100,60x30"});
    EXPECT_TRUE(read("three.pdf").startsWith(read("two.pdf")));
    needSound("three.pdf");
    const QString seen = runProgram({"pdfsig", "-nocert", "three.pdf"}, file(".")).output;
    EXPECT_EQ(seen.count("Signature is Valid"), 3) << seen.toStdString();
    const QJsonArray rows = trusted("three.pdf", 0)["signatures"].toArray();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[1].toObject()["signer"].toString(), "Ben Example");
    EXPECT_FALSE(rows[1].toObject()["coversWholeFile"].toBool());
    EXPECT_EQ(rows[0].toObject()["addedAfter"],
        QJsonValue(QJsonArray{"a signature in the field \"Signature2\" (page 1, 60 by 30 mm)",
            "a signature in the field \"Signature3\" (page 1, 60 by 30 mm)", "tags that are read aloud"}));
    EXPECT_EQ(rows[0].toObject()["changedAfter"], QJsonValue(QJsonArray()));
}

// Another program signs later. Some do not write the catalogue again, and round the numbers that they do write again.
TEST_F(DocumentSignature, LeavesRoomForOtherPrograms)
{
    signAs(People::get().anna(), given("libreoffice.pdf"), "one.pdf", {"--field", "20,50,60x30"});
    const QByteArray bytes = read("one.pdf");
    const QString text = QString::fromLatin1(bytes.constData(), bytes.size());
    static const QRegularExpression form("/AcroForm \\d+ 0 R"), page("\n(\\d+) 0 obj\n(<< /Annots [^\n]*)\n");
    EXPECT_TRUE(form.match(text).hasMatch());
    QRegularExpressionMatch found = page.match(text);
    ASSERT_TRUE(found.hasMatch());
    const QByteArray before = found.captured(2).toLatin1();
    ASSERT_TRUE(before.contains("595.303937007874")) << before.toStdString();
    for (const char *width : {"595.3039370079", "595.31"}) {
        appendRevision(
            "one.pdf", "two.pdf", {{found.captured(1).toInt(), QByteArray(before).replace("595.303937007874", width)}});
        trusted("two.pdf", QByteArray(width) == "595.31" ? 1 : 0);
    }
}

TEST_F(DocumentSignature, FillsAFieldOfTheForm)
{
    const QJsonObject result =
        signAs(People::get().anna(), given("written-form.pdf"), "one.pdf", {"--form-field", "driver"});
    EXPECT_EQ(result["field"].toString(), "driver");
    EXPECT_EQ(signAs(People::get().ben(), "one.pdf", "two.pdf")["field"].toString(), "customer"); // the only one left
    const QString seen = runProgram({"pdfsig", "-nocert", "two.pdf"}, file(".")).output;
    EXPECT_EQ(seen.count("Signature is Valid"), 2) << seen.toStdString();
    trusted("two.pdf", 0);
    EXPECT_GT(
        kvsign::differingPixels(drawn("mutool", given("written-form.pdf"), 60), drawn("mutool", "two.pdf", 60)), 50);
    for (const char *name : {"driver", "remark", "nobody"}) {
        const CommandResult again = run({"sign", "--ink", "a.ink", "--certificate", People::get().anna(),
            "--password-file", People::get().password(), "--form-field", name, "one.pdf", "b.pdf"});
        EXPECT_EQ(again.exitCode, QString(name) == "driver" ? 1 : 2) << testing::PrintToString(again);
    }
    EXPECT_FALSE(exists("b.pdf"));
}

TEST_F(DocumentSignature, FindsEveryChangedByte)
{
    signAs(People::get().anna(), given("cairo.pdf"), "signed.pdf");
    const QByteArray content = read("signed.pdf");
    const QList<int> range = ranges("signed.pdf");
    ASSERT_EQ(range.size(), 4);
    const int size = content.size(), original = contentOf(given("cairo.pdf")).size();
    for (const int place : {12, original / 2, original + 20, range[1] - 30, range[2] + 2, size - 10, size - 30}) {
        QByteArray changed = content;
        changed[place] = static_cast<char>(changed[place] ^ 1);
        write("changed.pdf", changed);
        const CommandResult result = run({"verify", "--trust", People::get().authority(), "changed.pdf"});
        EXPECT_EQ(result.exitCode, 1) << place << testing::PrintToString(result);
    }
    QByteArray flipped = content;
    flipped[original / 2] = static_cast<char>(flipped[original / 2] ^ 4);
    write("changed.pdf", flipped);
    EXPECT_EQ(row(trusted("changed.pdf", 1))["problem"].toString(), "the signed bytes were changed");
}

TEST_F(DocumentSignature, NeedsTheRightPassword)
{
    write("wrong", "another\n");
    const CommandResult result = run({"sign", "--ink", "a.ink", "--certificate", People::get().anna(),
        "--password-file", "wrong", given("cairo.pdf"), "b.pdf"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("the password is another one")) << testing::PrintToString(result);
    EXPECT_FALSE(exists("b.pdf"));
}

TEST_F(DocumentSignature, IsRefusedWhereACertificationForbidsIt)
{
    const QByteArray form = contentOf(given("written-form.pdf"));
    for (const char level : {'1', '2', '3'}) {
        // An earlier signature's dictionary, of which only the permissions matter here.
        QByteArray certified = form;
        certified.replace("/Type /Catalog ",
            QByteArray("/Type /Catalog /Perms << /DocMDP << /Type /Sig /Reference [ << /TransformMethod /DocMDP "
                       "/TransformParams << /P ")
                + level + " >> >> ] >> >> ");
        write("broken.pdf", certified);
        runProgram({"qpdf", "broken.pdf", "certified.pdf"}, file("."));
        const QStringList command{"sign", "--ink", "a.ink", "certified.pdf", "b.pdf"};
        EXPECT_EQ(run(command).exitCode, 1) << level;
        const CommandResult result = run(
            command + QStringList{"--certificate", People::get().anna(), "--password-file", People::get().password()});
        EXPECT_EQ(result.exitCode, level == '1' ? 1 : 0) << level << testing::PrintToString(result);
        if (level == '1') {
            EXPECT_TRUE(result.errors.contains("forbids every change")) << testing::PrintToString(result);
        }
    }
}

} // namespace
