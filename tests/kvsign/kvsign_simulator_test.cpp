// --driver simulator: kvsign finds the installed pad simulator, and says when there is none.
#include "kvsign.h"

namespace {

using namespace kvsign;

/// There is no driver in the working directory, so kvsign cannot find one there by chance.
class KvsignSimulator : public Place
{
protected:
    KvsignSimulator() { QFile::remove(file("libkvsignpaddrv.so")); }
};

TEST_F(KvsignSimulator, IsTheInstalledOne)
{
    runWell({"capture", "--driver", "simulator", "--model", "S300", "signature.png"});
    EXPECT_EQ(QImage(file("signature.png")).size(), QSize(800, 452));
}

TEST_F(KvsignSimulator, IsAnyFolderOfThatNameWithASlash)
{
    QDir(file(".")).mkdir("simulator");
    const CommandResult result = run({"info", "--driver", "./simulator"});
    EXPECT_EQ(result.exitCode, 5) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("simulator/libkvsignpaddrv.so")) << testing::PrintToString(result);
}

TEST_F(KvsignSimulator, IsAskedForByItsPackageWhereItIsNotInstalled)
{
    ASSERT_TRUE(QFile::copy(KV_KVSIGN, file("kvsign")));
    const CommandResult result = runProgram({file("kvsign"), "doctor", "--driver", "simulator"}, file("."),
        {{"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"}});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("WRONG driver file: the pad simulator is not installed\n"
                                       "      cure: apt-get install kvsignpad-simulator\n"))
        << testing::PrintToString(result);
}

} // namespace
