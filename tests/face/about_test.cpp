// The about box and the about text, of every family, with and without an open pad.
#include "logfile.h"
#include "openpad.h"

#include <QMessageBox>
#include <QTextDocument>
#include <QTimer>

#include <cstring>

namespace {

constexpr char kText[] = "About\n\nKVSignPad SDK on Linux OS\nVersion : 1.0.5.1\nCopyright (C) 2024 Korvane";

/// What the box showed when a timer found it open.
struct SeenBox
{
    int boxes = 0;
    QString title;
    QString text;
    Qt::TextFormat format = Qt::PlainText;
    bool modal = false;
    QWidget *parent = nullptr;
};

/// Opens the box; a timer reads and closes it, since the call blocks until then.
SeenBox seenBox(const Family &family, QWidget *parent)
{
    SeenBox seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&seen] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        ++seen.boxes;
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.format = box->textFormat();
        seen.modal = box->isModal();
        seen.parent = box->parentWidget();
        box->accept();
    });
    timer.start(10);
    family.AboutBox(parent);
    return seen;
}

void expectBox(const Family &family, QWidget *parent)
{
    const SeenBox seen = seenBox(family, parent);
    EXPECT_EQ(seen.boxes, 1);
    EXPECT_EQ(seen.title, "About");
    EXPECT_TRUE(seen.modal);
    EXPECT_EQ(seen.parent, parent);
    EXPECT_TRUE(Qt::mightBeRichText(seen.text));
    EXPECT_NE(seen.format, Qt::PlainText);
    EXPECT_EQ(seen.text,
        "<p align='center'>KVSignPad SDK on Linux OS<br>Version : 1.0.5.1<br>Copyright (C) 2024 Korvane</p>");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "it returned after the box was closed";
}

/// The buffer around the text is watched.
void expectText(const Family &family)
{
    char buffer[160];
    std::memset(buffer, 0x5a, sizeof buffer);
    buffer[sizeof buffer - 1] = '\0'; // ends a text that was not written
    family.GetAboutInfo(family.type, buffer + 8);
    EXPECT_STREQ(buffer + 8, kText);
    EXPECT_LE(std::strlen(buffer + 8) + 1, 128u);
    for (size_t i = 0; i < sizeof buffer - 1; ++i) {
        const bool outside = i < 8 || i >= 8 + sizeof kText;
        EXPECT_TRUE(!outside || buffer[i] == 0x5a) << i;
    }
}

class About : public testing::TestWithParam<Family>
{
};

TEST_P(About, TheBoxShowsThreeCentredLines)
{
    QWidget window;
    expectBox(GetParam(), &window);
    expectBox(GetParam(), nullptr);
}

TEST_P(About, TheTextHasTheSameLines)
{
    expectText(GetParam());
}

TEST_P(About, BothWorkWhileAPadIsOpenAndAfterwards)
{
    for (const bool headless : {true, false}) {
        OpenPad pad(PadCase{&GetParam(), headless});
        pad.driver.forgetCalls();
        expectBox(GetParam(), pad.window());
        expectText(GetParam());
        EXPECT_EQ(pad.driver.calls(), "");
    }
    expectBox(GetParam(), nullptr);
    expectText(GetParam());
}

TEST_P(About, AnotherDeviceTypeLeavesTheBufferUntouched)
{
    for (int type = -1; type <= 8; ++type) {
        if (type == GetParam().type)
            continue;
        char buffer[128] = "untouched";
        GetParam().GetAboutInfo(type, buffer);
        EXPECT_STREQ(buffer, "untouched") << type;
    }
}

TEST_P(About, ANullBufferIsIgnored)
{
    GetParam().GetAboutInfo(GetParam().type, nullptr);
    GetParam().GetAboutInfo(0, nullptr);
    expectText(GetParam());
}

TEST_P(About, BothLog)
{
    const std::string prefix = GetParam().prefix;
    char buffer[128];
    const LogTail log;
    LogOn::set(true);
    seenBox(GetParam(), nullptr);
    GetParam().GetAboutInfo(GetParam().type, buffer);
    GetParam().GetAboutInfo(0, buffer);
    GetParam().GetAboutInfo(GetParam().type, nullptr);
    LogOn::set(false);
    const std::string info = prefix + "GetAboutInfo()";
    const std::vector<LogEntry> expected = {{prefix + "AboutBox()", "Enter..."}, {prefix + "AboutBox()", "leave !"},
        {info, "enter, nDeviceType=" + std::to_string(GetParam().type)}, {info, "leave !"},
        {info, "enter, nDeviceType=0"},
        {info, std::string("leave due to (nDeviceType != ") + GetParam().deviceName + ") !"},
        {info, "enter, nDeviceType=" + std::to_string(GetParam().type)}}; // without an output it ends there
    EXPECT_EQ(log.entries(), expected);
}

INSTANTIATE_TEST_SUITE_P(Families, About, testing::ValuesIn(kFamilies), [](const testing::TestParamInfo<Family> &row) {
    return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1);
});

} // namespace
