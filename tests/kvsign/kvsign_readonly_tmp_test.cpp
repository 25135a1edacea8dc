// kvsign doctor where /tmp is read-only, as in a container. It is built where tests can have a /tmp of their own.
#include "kvsign.h"

#include <unistd.h>

namespace {

using namespace kvsign;

TEST(KvsignWithReadOnlyTmp, IsToldWhatToDo)
{
    QStringList command{KV_SOURCE_DIRECTORY "/tests/apart", KV_SOURCE_DIRECTORY, KV_BUILD_DIRECTORY, "--", "unshare"};
    if (geteuid() != 0)
        command += {"--user", "--map-root-user"};
    command += {"--mount", "sh", "-ec", "mount -o remount,bind,ro /tmp; exec \"$@\"", "sh"};
    command += {KV_KVSIGN, "doctor", "--driver", kDriverDirectory};
    const CommandResult result = runProgram(command, "/", {{"KVSIM_SPEED", "20"}});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("WRONG /tmp: is read-only: SVG texts and the log need it\n"
                                       "      cure: mount -o remount,rw /tmp; "))
        << testing::PrintToString(result);
    EXPECT_EQ(result.output.count("WRONG"), 1) << testing::PrintToString(result);
}

} // namespace
