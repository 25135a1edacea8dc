// A certificate's password is asked for on the terminal, which does not show it.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

// Runs a command on a terminal of its own, answers its question, and prints: the exit code, whether the terminal showed
// what was typed while the question was asked and shows it again afterwards, and everything that was to be seen.
const char *const kOnTerminal = R"(
import os, pty, select, signal, sys, termios, time
os.chdir(sys.argv[1])
child, terminal = pty.fork()
if child == 0:
    signal.signal(signal.SIGINT, signal.SIG_DFL) # what runs in the background of a shell ignores it
    os.execv(sys.argv[3], sys.argv[3:])
def shows():
    return bool(termios.tcgetattr(terminal)[3] & termios.ECHO)
seen, during, end = b'', None, time.monotonic() + 60
while time.monotonic() < end:
    if not select.select([terminal], [], [], 1)[0]:
        continue
    try:
        piece = os.read(terminal, 4096)
    except OSError:
        break
    seen += piece
    if during is None and seen.endswith(b': '):
        during = shows()
        os.write(terminal, sys.argv[2].encode())
else:
    os.kill(child, signal.SIGKILL)
code = os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])
print(code, during, shows())
print(seen.decode())
)";

class DocumentTerminal : public Documents
{
protected:
    QString signedWith(const QString &typed) const
    {
        return kvsign::python(kOnTerminal,
            {file("."), typed, KV_KVSIGN, "sign", "--ink", "a.ink", "--certificate", People::get().anna(),
                given("cairo.pdf"), "signed.pdf"});
    }
};

TEST_F(DocumentTerminal, TakesThePassword)
{
    const QString seen = signedWith("secret\n");
    EXPECT_TRUE(seen.startsWith("0 False True\nPassword of " + People::get().anna() + ": ")) << seen.toStdString();
    EXPECT_FALSE(seen.contains("secret")) << seen.toStdString();
    trusted("signed.pdf", 0);
}

TEST_F(DocumentTerminal, SaysThatThePasswordIsWrong)
{
    const QString seen = signedWith("another\n");
    EXPECT_TRUE(seen.startsWith("1 False True\n")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("the password is another one")) << seen.toStdString();
    EXPECT_FALSE(exists("signed.pdf"));
}

TEST_F(DocumentTerminal, EndsWithControlC)
{
    const QString seen = signedWith("\x03");
    EXPECT_TRUE(seen.startsWith("3 False True\n")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("interrupted")) << seen.toStdString();
    EXPECT_FALSE(exists("signed.pdf"));
}

TEST_F(DocumentTerminal, IsNeededWithoutAFile)
{
    const CommandResult result = runProgram({"setsid", "--wait", KV_KVSIGN, "sign", "--ink", "a.ink", "--certificate",
                                                People::get().anna(), given("cairo.pdf"), "signed.pdf"},
        file("."));
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("put it into a file for --password-file")) << testing::PrintToString(result);
}

} // namespace
