// Keys on tokens and time stamps from servers, both of which run beside the test.
#include "signeddocuments.h"

#include <documents/openssl_types.h>

#include <QJsonArray>
#include <QProcess>

namespace {

using namespace signeddocuments;

class DocumentToken : public Documents
{
protected:
    /// A document's message, and where its digits are.
    static documents::CmsOwner messageOf(const QByteArray &document, int &begin, int &end)
    {
        begin = document.lastIndexOf("/Contents <") + 11;
        end = document.indexOf('>', begin);
        return documents::CmsOwner(
            d2i_CMS_bio(documents::bioOf(QByteArray::fromHex(document.mid(begin, end - begin))).get(), nullptr));
    }

    /// The document with the time stamp of another one.
    static QByteArray withStampOf(QByteArray document, const QByteArray &other)
    {
        int begin = 0, end = 0;
        const documents::CmsOwner from = messageOf(other, begin, end), to = messageOf(document, begin, end);
        CMS_SignerInfo *const signer = sk_CMS_SignerInfo_value(CMS_get0_SignerInfos(to.get()), 0);
        X509_ATTRIBUTE_free(CMS_unsigned_delete_attr(signer, 0));
        CMS_unsigned_add1_attr(
            signer, CMS_unsigned_get_attr(sk_CMS_SignerInfo_value(CMS_get0_SignerInfos(from.get()), 0), 0));
        return document.replace(begin, end - begin,
            documents::derOf(to.get(), i2d_CMS_ContentInfo).toHex().leftJustified(end - begin, '0'));
    }
};

const char *const kMakeToken = R"(set -e
export SOFTHSM2_CONF=$PWD/softhsm2.conf
mkdir tokens
printf 'directories.tokendir = %s\nlog.level = ERROR\n' "$PWD/tokens" > softhsm2.conf
softhsm2-util --init-token --free --label Desk --so-pin 1234 --pin 5678 > /dev/null
openssl pkcs8 -topk8 -nocrypt -in "$1/anna.key" -out anna.pk8
softhsm2-util --import anna.pk8 --token Desk --label Anna --id a1 --pin 5678 > /dev/null
openssl x509 -in "$1/anna.pem" -outform DER -out anna.der
pkcs11-tool --module "$2" --login --pin 5678 --token-label Desk --write-object anna.der --type cert --label Anna --id a1 \
    > /dev/null 2>&1)";

TEST_F(DocumentToken, Signs)
{
    const QString module = "/usr/lib/softhsm/libsofthsm2.so";
    const CommandResult made = runProgram({"bash", "-c", kMakeToken, "bash", People::get().folder, module}, file("."));
    ASSERT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    write("pin", "5678\n");
    write("wrong", "0000\n");
    const QMap<QString, QString> environment{{"SOFTHSM2_CONF", file("softhsm2.conf")}};
    const auto signWith = [&](const QString &uri, const QString &pin) {
        return run({"sign", "--ink", "a.ink", "--certificate", uri + "?module-path=" + module, "--password-file", pin,
                       given("cairo.pdf"), "signed.pdf"},
            environment);
    };
    for (const char *uri :
        {"pkcs11:token=Nobody", "pkcs11:token=Desk;object=Ben", "pkcs11:token=Desk;pin-value=5678"}) {
        const CommandResult result = signWith(uri, "pin");
        EXPECT_NE(result.exitCode, 0) << uri << testing::PrintToString(result);
        EXPECT_FALSE(exists("signed.pdf"));
    }
    const CommandResult wrong = signWith("pkcs11:token=Desk", "wrong");
    EXPECT_TRUE(wrong.errors.contains("does not take the PIN")) << testing::PrintToString(wrong);
    const CommandResult result = signWith("pkcs11:token=Desk;object=Anna;id=%a1", "pin");
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_EQ(row(trusted("signed.pdf", 0))["signer"].toString(), "Anna Example");
    EXPECT_TRUE(runProgram({"pdfsig", "-nocert", "signed.pdf"}, file(".")).output.contains("Signature is Valid"));
}

const char *const kServer = R"(
import http.server, subprocess, sys, os
os.chdir(sys.argv[1])
class Handler(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        query = self.rfile.read(int(self.headers['Content-Length']))
        open('query.tsq', 'wb').write(query)
        if self.path == '/stamp':
            subprocess.run(['openssl', 'ts', '-reply', '-queryfile', 'query.tsq', '-config', 'tsa.cnf', '-out', 'reply.tsr'],
                           check=True, stderr=subprocess.DEVNULL)
        answer = open('reply.tsr', 'rb').read() if self.path != '/nonsense' else b'nonsense'
        self.send_response(200 if self.path != '/error' else 500)
        self.send_header('Content-Type', 'application/timestamp-reply')
        self.send_header('Content-Length', str(len(answer)))
        self.end_headers()
        self.wfile.write(answer)
    def log_message(self, *arguments): pass
server = http.server.HTTPServer(('127.0.0.1', 0), Handler)
print(server.server_port, flush=True)
server.serve_forever()
)";

const char *const kMakeAuthority = R"(set -e
cat > tsa.cnf <<'CNF'
[tsa]
default_tsa = one
[one]
serial = ./serial
crypto_device = builtin
signer_cert = ./tsa.pem
certs = ./tsa.pem
signer_key = ./tsa.key
signer_digest = sha256
default_policy = 1.2.3.4.1
digests = sha256
accuracy = secs:1
ess_cert_id_chain = no
ess_cert_id_alg = sha256
CNF
echo 01 > serial
printf 'extendedKeyUsage=critical,timeStamping\nkeyUsage=digitalSignature\n' > tsa.ext
openssl req -newkey rsa:2048 -nodes -keyout tsa.key -out tsa.csr -subj '/CN=Test Stamps' 2>/dev/null
openssl x509 -req -in tsa.csr -CA "$1/authority.pem" -CAkey "$1/authority.key" -days 5 -extfile tsa.ext -out tsa.pem 2>/dev/null)";

// Anna's certificate is revoked now, and by another list in 2024.
const char *const kRevoke = R"(set -e
printf '[ca]\ndefault_ca = one\n[one]\ndatabase = ./index.txt\ncrlnumber = ./number\ndefault_md = sha256\n' > ca.cnf
: > index.txt
echo 01 > number
ca() { openssl ca -config ca.cnf -cert "$1/authority.pem" -keyfile "$1/authority.key" "${@:2}" 2> /dev/null; }
ca "$1" -revoke "$1/anna.pem"
ca "$1" -gencrl -crldays 30 -out now.crl
sed -i 's/^\(R\t[^\t]*\t\)[^\t]*/\1240101000000Z/' index.txt
ca "$1" -gencrl -crldays 30 -out before.crl)";

TEST_F(DocumentToken, IsStampedByAServer)
{
    const CommandResult made = runProgram({"bash", "-c", kMakeAuthority, "bash", People::get().folder}, file("."));
    ASSERT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    QProcess server;
    server.start("python3", {"-c", kServer, file(".")});
    ASSERT_TRUE(server.waitForReadyRead(60000));
    const QString address = "http://127.0.0.1:" + QString(server.readLine()).trimmed();
    signAs(People::get().anna(), given("cairo.pdf"), "signed.pdf", {"--timestamp", address + "/stamp"});
    const QJsonObject found = row(trusted("signed.pdf", 0));
    EXPECT_EQ(found["authority"].toString(), "Test Stamps");
    EXPECT_TRUE(found["stampTrusted"].toBool());
    EXPECT_FALSE(found["stampedTime"].isNull());
    EXPECT_TRUE(runProgram({"pdfsig", "-nocert", "signed.pdf"}, file(".")).output.contains("Signature is Valid"));
    // The stamp of this signature at another one of Anna's.
    signAs(People::get().anna(), given("chromium.pdf"), "other.pdf", {"--timestamp", address + "/stamp"});
    write("borrowed.pdf", withStampOf(read("other.pdf"), read("signed.pdf")));
    const QJsonObject borrowed = row(trusted("borrowed.pdf", 0));
    EXPECT_EQ(borrowed["stampProblem"].toString(), "it is for another signature, or was changed");
    EXPECT_TRUE(borrowed["stampedTime"].isNull() && !borrowed["stampTrusted"].toBool());
    EXPECT_TRUE(run({"verify", "borrowed.pdf"}).output.contains("  time stamp     NOT usable: it is for another"));
    // What was signed before the certificate was revoked stays valid, since the stamp says so.
    const CommandResult revoked = runProgram({"bash", "-c", kRevoke, "bash", People::get().folder}, file("."));
    ASSERT_EQ(revoked.exitCode, 0) << testing::PrintToString(revoked);
    const QStringList trust{"--trust", People::get().authority(), "--crl"};
    EXPECT_TRUE(row(verified("signed.pdf", 0, trust + QStringList("now.crl")))["revocationChecked"].toBool());
    EXPECT_EQ(row(verified("signed.pdf", 1, trust + QStringList("before.crl")))["trust"].toString(), "revoked");
    // An answer to another question, an error, nonsense, nobody.
    for (const QString &path :
        {address + "/old", address + "/error", address + "/nonsense", QString("http://127.0.0.1:1/stamp")}) {
        const CommandResult result = run({"sign", "--ink", "a.ink", "--certificate", People::get().anna(),
            "--password-file", People::get().password(), "--timestamp", path, given("cairo.pdf"), "b.pdf"});
        EXPECT_EQ(result.exitCode, 1) << path.toStdString() << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("time-stamp server")) << testing::PrintToString(result);
        EXPECT_FALSE(exists("b.pdf"));
    }
    server.kill();
    server.waitForFinished(60000);
}

} // namespace
