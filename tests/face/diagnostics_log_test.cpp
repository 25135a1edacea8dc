// The diagnostics log as a program sees it: when it writes, where, and in which form.
#include "LogFileUtil.h"
#include "logfile.h"
#include "openpad.h"

#include <QFile>

#include <cstring>
#include <functional>
#include <sys/resource.h>
#include <thread>

namespace {

/// Moves a file away for a scope, and afterwards puts its content before what was written meanwhile.
class Aside
{
public:
    explicit Aside(const char *fileName)
        : m_name(fileName)
    {
        QFile file(m_name);
        if (file.open(QIODevice::ReadOnly))
            m_before = file.readAll();
        QFile::remove(m_name);
    }
    ~Aside()
    {
        QFile file(m_name);
        const QByteArray since = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        file.close();
        if (!m_before.isEmpty() && file.open(QIODevice::WriteOnly))
            file.write(m_before + since);
    }
    Aside(const Aside &) = delete;
    Aside &operator=(const Aside &) = delete;

private:
    QString m_name;
    QByteArray m_before;
};

QByteArray contentOf(const char *fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class DiagnosticsLog : public testing::TestWithParam<PadCase>
{
protected:
    const Family &family = *GetParam().family;

    /// Opens, signs, shows, asks and closes: every kind of site.
    void useThePad()
    {
        OpenPad pad(GetParam());
        pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
        settle();
        wchar_t path[] = L"/nowhere/at/all.png";
        pad->SaveDrawingImage(pad.type(), 3, path, 0);
        pad->Base64EncodeFree(pad.type(), pad->Base64Encode(pad.type(), 3));
    }
};

TEST_P(DiagnosticsLog, WritesNoFileWhileItIsOff)
{
    const Aside main(kLogFile);
    const Aside inThread(kInThreadLogFile);
    EXPECT_FALSE(g_bEnableLog) << "it is off unless the application switches it on";
    useThePad();
    EXPECT_FALSE(QFile::exists(kLogFile));
    EXPECT_FALSE(QFile::exists(kInThreadLogFile));
    EXPECT_FALSE(g_bEnableLog) << "the library never sets it";
}

TEST_P(DiagnosticsLog, CreatesItsFileWithAnEnterAndALeaveLine)
{
    const Aside main(kLogFile);
    {
        const LogOn on;
        family.SetPenStyle(family.type, true);
    }
    const std::string key = std::string(family.prefix) + "SetPenStyle()";
    const std::string content = contentOf(kLogFile).toStdString();
    const size_t second = content.find('\n') + 1;
    const std::string enter = content.substr(0, second);
    const std::string leave = content.substr(second);
    const auto wanted = [&key](const std::string &line, const std::string &text) {
        const unsigned long long tick = parsedLogLine(line.substr(0, line.size() - 1)).tick;
        return "[" + key + "]:<" + std::to_string(tick) + ">-" + text + ", \n";
    };
    EXPECT_EQ(enter, wanted(enter, "Enter, nDeviceType=" + std::to_string(family.type) + ", bPressureOn=1"));
    EXPECT_EQ(leave, wanted(leave, "leave with nResult=-1 !"));
}

TEST_P(DiagnosticsLog, OnlyAppends)
{
    const Aside main(kLogFile);
    const Aside inThread(kInThreadLogFile);
    for (const char *name : {kLogFile, kInThreadLogFile}) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("what was there\n");
    }
    {
        const LogOn on;
        useThePad();
    }
    EXPECT_TRUE(contentOf(kLogFile).startsWith("what was there\n["));
    EXPECT_GT(contentOf(kLogFile).size(), 100);
    EXPECT_TRUE(contentOf(kInThreadLogFile).startsWith("what was there\n"));
}

TEST_P(DiagnosticsLog, PaintHandlersWriteToAFileOfTheirOwn)
{
    const LogTail main;
    const LogTail inThread(kInThreadLogFile);
    OpenPad pad(GetParam());
    settle();
    LogOn::set(true);
    if (pad.widget() != nullptr)
        pad.widget()->repaint();
    LogOn::set(false);
    const std::string key = std::string(GetParam().className()) + "::paintEvent()";
    const auto ofPainting = [&key](const LogEntry &entry) { return entry.key == key; };
    const std::vector<LogEntry> entries = inThread.entries();
    EXPECT_EQ(std::count_if(entries.begin(), entries.end(), ofPainting), GetParam().headless ? 0 : 2);
    const std::vector<LogEntry> elsewhere = main.entries();
    EXPECT_EQ(std::count_if(elsewhere.begin(), elsewhere.end(), ofPainting), 0);
}

TEST_P(DiagnosticsLog, FunctionsWithAFilePathUseTheWideBufferAlone)
{
    const std::string untouched = "untouched";
    const auto expectWide = [&](const char *what, const std::function<int()> &call) {
        std::strcpy(g_cKeyBuf, untouched.c_str());
        g_wszKeyBuf[0] = L'\0';
        LogOn::set(true);
        call();
        LogOn::set(false);
        EXPECT_EQ(g_cKeyBuf, untouched) << what;
        EXPECT_EQ(g_wszKeyBuf[0], L'<') << what;
    };
    wchar_t path[] = L"/nowhere/at/all.png";
    const int type = family.type;
    const auto useBoth = [&](const char *when) {
        SCOPED_TRACE(when);
        expectWide("save, device type", [&] { return family.SaveDrawingImage(type + 1, 3, path, 0); });
        expectWide("save, image type", [&] { return family.SaveDrawingImage(type, 4, path, 0); });
        expectWide("decode, device type", [&] { return family.Base64Decode(type + 1, 3, "AAAA", path); });
        expectWide("decode, image type", [&] { return family.Base64Decode(type, 4, "AAAA", path); });
        expectWide("decode, text", [&] { return family.Base64Decode(type, 3, "", path); });
        expectWide("decode", [&] { return family.Base64Decode(type, 3, "AAAA", path); });
    };
    useBoth("without an instance");
    expectWide("save", [&] { return family.SaveDrawingImage(type, 3, path, 0); });
    const OpenPad pad(GetParam()); // its own saving asks for the number of points, which logs as everybody
    useBoth("with one");
}

TEST_P(DiagnosticsLog, AFileThatCannotBeOpenedIsPassedOver)
{
    OpenPad pad(GetParam());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    const LogTail main;
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    LogOn::set(true);
    const int count = pad->GetTotalInkPointsNumber(pad.type());
    const int width = pad->SetPenWidth(pad.type(), 5);
    const int refused = pad->SetPenWidth(pad.type(), 11);
    char *const text = pad->Base64Encode(pad.type(), 6);
    pad.driver.send(0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    LogOn::set(false);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(refused, -2);
    EXPECT_NE(text, nullptr);
    pad->Base64EncodeFree(pad.type(), text);
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), 1);
    EXPECT_TRUE(main.lines().empty());
}

TEST_P(DiagnosticsLog, TicksNeverDecrease)
{
    const LogTail main;
    LogOn::set(true);
    useThePad();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    family.Clear(family.type);
    LogOn::set(false);
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const unsigned long long end =
        static_cast<unsigned long long>(now.tv_sec) * 1000 + static_cast<unsigned long long>(now.tv_nsec) / 1000000;
    const std::vector<LogEntry> entries = main.entries();
    ASSERT_GT(entries.size(), 10u);
    for (size_t i = 1; i < entries.size(); ++i)
        EXPECT_LE(entries[i - 1].tick, entries[i].tick) << entries[i];
    EXPECT_GT(entries.back().tick, entries.front().tick);
    EXPECT_LE(entries.back().tick, end) << "milliseconds of the monotonic clock";
    EXPECT_GT(entries.back().tick + 1000, end);
}

TEST_P(DiagnosticsLog, EachLineIsOfTheOneForm)
{
    const LogTail main;
    const LogTail inThread(kInThreadLogFile);
    LogOn::set(true);
    useThePad();
    LogOn::set(false);
    for (const LogTail *log : {&main, &inThread}) {
        for (const LogEntry &entry : log->entries())
            EXPECT_NE(entry.key, "") << entry.text;
    }
    EXPECT_GT(main.entries().size(), 20u);
}

INSTANTIATE_TEST_SUITE_P(Pads, DiagnosticsLog, testing::ValuesIn(allPads()), padCaseName);

/// Switches the log during a call: the event receiver runs between the packet's lines.
void switchOn(int)
{
    LogOn::set(true);
}
void switchOff(int)
{
    LogOn::set(false);
}

TEST(DiagnosticsLogSwitch, IsReadAfreshBeforeEachLine)
{
    OpenPad pad(PadCase{&kS300Family, true});
    const std::string key = "CS300SignObj::RxS300SignPadRawData()";
    const LogEntry enter = {key, "Enter, nX=1, nY=2, nP=3, nPenStatus=4"};
    const LogEntry tap = {key, "Pen_Down_On_Enter_Button !"};
    const LogEntry leave = {key, "leave !"};

    ASSERT_EQ(pad->SignPadEventCallback(pad.type(), switchOn), 0);
    const LogTail switchedOn;
    pad.driver.send(1, 2, 3, 4);
    LogOn::set(false);
    EXPECT_EQ(switchedOn.entries(), (std::vector<LogEntry>{tap, leave}));

    ASSERT_EQ(pad->SignPadEventCallback(pad.type(), switchOff), 0);
    const LogTail switchedOff;
    LogOn::set(true);
    pad.driver.send(1, 2, 3, 4);
    EXPECT_EQ(switchedOff.entries(), (std::vector<LogEntry>{enter}));
}

TEST(DiagnosticsLogBuffers, HoldTheLastMessageOfTheirKind)
{
    wchar_t path[] = L"/nowhere/at/all.png";
    const LogOn on;
    EXPECT_EQ(KVS300_SaveDrawingImage(KVS300_DEVICE, 4, path, 0), -2);
    EXPECT_EQ(KVS300_OpenLCD(KVS300_DEVICE, true), -1);
    EXPECT_NE(std::string(g_cKeyBuf).find(">-leave with nResult=-1 !"), std::string::npos);
    EXPECT_NE(std::wstring(g_wszKeyBuf).find(L">-leave with ARI_INVALID_PARAMETERS due to nImageTypeID out of range !"),
        std::wstring::npos)
        << "functions with a file path use the wide buffer";
    EXPECT_EQ(g_cKeyBuf[0], '<');
    EXPECT_EQ(g_wszKeyBuf[0], L'<');
}

TEST(DiagnosticsLogBuffers, ArePartlyOnlyThere)
{
    const std::string untouched = "untouched";
    untouched.copy(g_cValueBuf, untouched.size());
    untouched.copy(g_cValueBuf_InThread, untouched.size());
    g_wszValueBuf[0] = L'u';
    {
        const LogOn on;
        OpenPad pad(PadCase{&kS310XFamily, false});
        settle();
        wchar_t path[] = L"/nowhere/at/all.png";
        pad->SaveDrawingImage(pad.type(), 3, path, 0);
    }
    EXPECT_EQ(g_cValueBuf, untouched);
    EXPECT_EQ(g_cValueBuf_InThread, untouched);
    EXPECT_EQ(std::wstring(g_wszValueBuf), L"u");
}

} // namespace
