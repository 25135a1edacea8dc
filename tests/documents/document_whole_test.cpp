// What is signed is written whole or not at all, whatever ends the program.
#include "signeddocuments.h"

#include "patience.h"

#include <QProcess>

#include <csignal>

namespace {

using namespace signeddocuments;

class DocumentWhole : public Documents
{
protected:
    DocumentWhole()
    {
        QDir(file(".")).mkdir("temporary");
        write("out.pdf", "as it was");
        m_before = files();
    }

    void needUntouched() const
    {
        EXPECT_EQ(read("out.pdf"), "as it was");
        EXPECT_EQ(files(), m_before);
        EXPECT_EQ(
            QDir(file("temporary")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
    }

private:
    QStringList m_before;
};

// A disk that is too small is a limit on the size of files. Encrypted documents are written to a temporary file first.
TEST_F(DocumentWhole, OnAFullDisk)
{
    write("reader", "reader\n");
    const QStringList before = files();
    for (const char *name : {"chromium.pdf", "encrypted-256.pdf"}) {
        const CommandResult result = runProgram(
            {"bash", "-c",
                "trap '' XFSZ; ulimit -f 1; \"$0\" sign --ink a.ink --document-password-file reader \"$1\" out.pdf",
                KV_KVSIGN, given(name)},
            file("."), {{"TMPDIR", file("temporary")}});
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("File too large")) << testing::PrintToString(result);
        EXPECT_EQ(result.errors.count('\n'), 1) << testing::PrintToString(result);
        EXPECT_EQ(files(), before);
    }
    QFile::remove(file("reader"));
    needUntouched();
}

// A link is one more name of the document, and so is a second entry of a directory.
TEST_F(DocumentWhole, AndTheDocumentStaysUnderAllItsNames)
{
    write("in.pdf", contentOf(given("cairo.pdf")));
    ASSERT_EQ(runProgram({"bash", "-c", "ln in.pdf hard.pdf && ln -s in.pdf soft.pdf"}, file(".")).exitCode, 0);
    for (const char *name : {"in.pdf", "./in.pdf", "hard.pdf", "soft.pdf"}) {
        const CommandResult result = run({"sign", "--ink", "a.ink", "in.pdf", name});
        EXPECT_EQ(result.exitCode, 2) << name << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("is the document itself")) << testing::PrintToString(result);
        EXPECT_EQ(read("in.pdf"), contentOf(given("cairo.pdf"))) << name;
    }
    const CommandResult small = run({"sign", "--ink", "a.ink", "--field", "10,10,0x5", "in.pdf", "b.pdf"});
    EXPECT_TRUE(small.errors.contains("a field of less than 1 mm")) << testing::PrintToString(small);
}

TEST_F(DocumentWhole, WhenNobodyReadsIt)
{
    const char *const program = "import os, subprocess, sys\n"
                                "os.chdir(sys.argv[1])\n"
                                "reader, writer = os.pipe(); os.close(reader)\n"
                                "child = subprocess.run(sys.argv[2:], stdout=writer, stderr=subprocess.PIPE)\n"
                                "print(child.returncode, child.stderr.decode().strip())";
    for (const QStringList &command : {QStringList{"sign", "--ink", "a.ink", given("chromium.pdf"), "-"},
             QStringList{"sign", "--json", "--ink", "a.ink", given("chromium.pdf"), "out.pdf"},
             QStringList{"verify", given("signed-poppler.pdf"), "--trust", given("others-authority.pem")}}) {
        const QString answer = kvsign::python(program, QStringList{file("."), KV_KVSIGN} + command);
        EXPECT_TRUE(answer.startsWith("1 kvsign: ") && answer.contains("Broken pipe")) << answer.toStdString();
    }
    needUntouched();
}

// The server takes the question and never answers.
const char *const kSilentServer = R"(
import socket, time
server = socket.create_server(('127.0.0.1', 0))
print(server.getsockname()[1], flush=True)
connection, _ = server.accept()
connection.recv(1)
print('asked', flush=True)
time.sleep(600)
)";

QByteArray lineOf(QProcess &process)
{
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(static_cast<int>(std::chrono::milliseconds(kPatience).count())))
            return "nothing";
    }
    return process.readLine().trimmed();
}

TEST_F(DocumentWhole, WhenItIsEndedBetweenTwoSteps)
{
    const int patience = static_cast<int>(std::chrono::milliseconds(kPatience).count());
    for (const int signal : {SIGTERM, SIGQUIT, SIGKILL}) {
        SCOPED_TRACE(signal);
        QProcess server, signer;
        server.start("python3", {"-c", kSilentServer});
        const QString address = "http://127.0.0.1:" + QString(lineOf(server)) + "/";
        signer.setWorkingDirectory(file("."));
        signer.start(KV_KVSIGN,
            {"sign", "--ink", "a.ink", "--certificate", People::get().anna(), "--password-file",
                People::get().password(), "--timestamp", address, given("cairo.pdf"), "out.pdf"});
        ASSERT_EQ(lineOf(server), "asked");
        kill(static_cast<pid_t>(signer.processId()), signal);
        EXPECT_TRUE(signer.waitForFinished(2 * patience));
        if (signal == SIGTERM) {
            EXPECT_EQ(signer.exitCode(), 3);
            EXPECT_EQ(signer.readAllStandardError().toStdString(), "kvsign: interrupted\n");
        } else {
            EXPECT_EQ(signer.exitStatus(), QProcess::CrashExit);
        }
        EXPECT_EQ(read("out.pdf"), "as it was");
        server.kill();
        server.waitForFinished(patience);
        if (signal != SIGKILL)
            needUntouched();
    }
}

} // namespace
