// Certificates that their issuer took back: by the lists that openssl makes, and that are given or in the document.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

const char *const kMakeLists = R"(set -e
printf '[ca]\ndefault_ca = one\n[one]\ndatabase = ./index.txt\ncrlnumber = ./number\ndefault_md = sha256\n' > ca.cnf
: > index.txt
echo 01 > number
ca() { openssl ca -config ca.cnf -cert "$1.pem" -keyfile "$1.key" "${@:2}" 2> /dev/null; }
ca "$1/authority" -gencrl -crldays 30 -out none.crl
ca "$1/authority" -gencrl -crl_lastupdate 20240101000000Z -crl_nextupdate 20240201000000Z -out old.crl
ca "$1/authority" -revoke "$1/ben.pem"
ca "$1/authority" -gencrl -crldays 30 -out ben.crl
openssl crl -in ben.crl -outform DER -out ben.der
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout false.key \
    -out false.pem -days 30 -subj '/CN=Test Authority' 2> /dev/null
ca false -gencrl -crldays 30 -out false.crl)";

class DocumentRevocation : public Documents
{
protected:
    DocumentRevocation()
    {
        const CommandResult made = runProgram({"bash", "-c", kMakeLists, "bash", People::get().folder}, file("."));
        EXPECT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    }

    QJsonObject listed(const QString &name, int exitCode, const QString &list) const
    {
        return row(verified(name, exitCode, {"--trust", People::get().authority(), "--crl", list}));
    }
};

TEST_F(DocumentRevocation, IsToldByAListOfTheIssuer)
{
    signAs(People::get().anna(), given("cairo.pdf"), "anna.pdf");
    signAs(People::get().ben(), given("cairo.pdf"), "ben.pdf");
    for (const char *list : {"ben.crl", "ben.der"}) {
        EXPECT_TRUE(listed("anna.pdf", 0, list)["revocationChecked"].toBool()) << list;
        const QJsonObject revoked = listed("ben.pdf", 1, list);
        EXPECT_EQ(revoked["trust"].toString(), "revoked") << list;
        EXPECT_TRUE(revoked["trustReason"].toString().contains("Ben Example was revoked on ")) << list;
        EXPECT_TRUE(revoked["intact"].toBool());
    }
    EXPECT_TRUE(listed("ben.pdf", 0, "none.crl")["revocationChecked"].toBool());
}

// A list that has a newer one, and one of somebody who only has the issuer's name.
TEST_F(DocumentRevocation, IsNotCheckedByOtherLists)
{
    signAs(People::get().ben(), given("cairo.pdf"), "ben.pdf");
    for (const char *list : {"old.crl", "false.crl"})
        EXPECT_FALSE(listed("ben.pdf", 0, list)["revocationChecked"].toBool()) << list;
    const CommandResult words = run({"verify", "ben.pdf", "--trust", People::get().authority()});
    EXPECT_TRUE(words.output.contains("  revocation     not checked")) << words.output.toStdString();
    const CommandResult none = run({"verify", "ben.pdf", "--crl", "a.ink"});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_TRUE(none.errors.contains("no list of revoked certificates")) << testing::PrintToString(none);
}

TEST_F(DocumentRevocation, IsToldByAListInTheDocument)
{
    const QByteArray list = read("ben.der");
    QByteArray content = contentOf(given("written-form.pdf"));
    content.replace("/Type /Catalog ", "/Type /Catalog /DSS << /CRLs [90 0 R 91 0 R] >> ");
    content.insert(content.lastIndexOf("xref\n", content.lastIndexOf("trailer")),
        "90 0 obj\n<< /Length 4 >>\nstream\nnone\nendstream\nendobj\n91 0 obj\n<< /Length "
            + QByteArray::number(list.size()) + " >>\nstream\n" + list + "\nendstream\nendobj\n");
    write("moved.pdf", content);
    runProgram({"qpdf", "moved.pdf", "with-list.pdf"}, file("."));
    signAs(People::get().anna(), "with-list.pdf", "anna.pdf", {"--form-field", "driver"});
    signAs(People::get().ben(), "with-list.pdf", "ben.pdf", {"--form-field", "driver"});
    EXPECT_TRUE(row(trusted("anna.pdf", 0))["revocationChecked"].toBool());
    EXPECT_EQ(row(trusted("ben.pdf", 1))["trust"].toString(), "revoked");
}

// The answers of a server that the issuer runs, and of one that only has the issuer's name.
const char *const kMakeAnswers = R"sh(set -e
printf 'V\t%s\t\t%s\tunknown\t/CN=Anna Example\n' "$(date -u -d '+9 days' +%y%m%d%H%M%SZ)" \
    "$(openssl x509 -in "$1/anna.pem" -noout -serial | cut -d= -f2)" >> index.txt
answer() { openssl ocsp -index index.txt -CA "$1.pem" -rsigner "$2.pem" -rkey "$2.key" -reqin "$3.req" -respout "$4" \
    -ndays 3 > /dev/null 2>&1; }
for person in anna ben; do
    openssl ocsp -issuer "$1/authority.pem" -cert "$1/$person.pem" -no_nonce -reqout "$person.req" > /dev/null 2>&1
    answer "$1/authority" "$1/authority" "$person" "$person.answer"
done
answer "$1/authority" false anna false.answer)sh";

TEST_F(DocumentRevocation, IsToldByAnAnswerInTheDocument)
{
    const CommandResult made = runProgram({"bash", "-c", kMakeAnswers, "bash", People::get().folder}, file("."));
    ASSERT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    struct Row
    {
        const char *answer;
        QString signer;
        bool isChecked;
        const char *trust;
    };
    const Row rows[] = {{"anna.answer", People::get().anna(), true, "trusted"},
        {"anna.answer", People::get().ben(), false, "trusted"}, {"ben.answer", People::get().ben(), true, "revoked"},
        {"false.answer", People::get().anna(), false, "trusted"}, {"a.ink", People::get().anna(), false, "trusted"}};
    for (const Row &entry : rows) {
        SCOPED_TRACE(entry.answer);
        const QByteArray answer = read(entry.answer);
        ASSERT_FALSE(answer.isEmpty());
        writeDocument("with-answer.pdf",
            {{1, "<< /Type /Catalog /Pages 2 0 R /DSS << /OCSPs [4 0 R] >> >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
                {3, "<< /Type /Page /Parent 2 0 R >>"},
                {4, "<< /Length " + QByteArray::number(answer.size()) + " >>\nstream\n" + answer + "\nendstream"}});
        signAs(entry.signer, "with-answer.pdf", "signed.pdf");
        const bool isValid = QByteArray(entry.trust) == "trusted";
        const QJsonObject found = row(trusted("signed.pdf", isValid ? 0 : 1));
        EXPECT_EQ(found["revocationChecked"].toBool(), entry.isChecked);
        EXPECT_EQ(found["trust"].toString(), entry.trust);
    }
}

} // namespace
