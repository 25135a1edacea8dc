// In a process without a QApplication no dialog is possible, and asking for one must not abort the process.
#include "families.h"
#include "logfile.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

TEST(AboutWithoutApplication, TheBoxIsLeftAtOnceAndTheTextIsAsEver)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    for (const Family &family : kFamilies) {
        const LogTail log;
        {
            const LogOn on;
            family.AboutBox(nullptr);
        }
        const std::string key = std::string(family.prefix) + "AboutBox()";
        EXPECT_EQ(log.entries(), (std::vector<LogEntry>{{key, "Enter..."}, {key, "leave !"}}));
        char buffer[128] = "";
        family.GetAboutInfo(family.type, buffer);
        EXPECT_EQ(std::string(buffer).rfind("About\n\nKVSignPad SDK on Linux OS\n", 0), 0u) << buffer;
    }
}
