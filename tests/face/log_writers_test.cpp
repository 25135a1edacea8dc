// The log's writers and its tick source, called directly.
#include "LogFileUtil.h"
#include "logfile.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwchar>
#include <thread>

namespace {

uint64_t monotonicMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

TEST(TickCount, IsTheMonotonicClockInMilliseconds)
{
    for (int i = 0; i < 1000; ++i) {
        const uint64_t before = monotonicMilliseconds();
        const uint64_t tick = GetTickCount();
        const uint64_t after = monotonicMilliseconds();
        ASSERT_LE(before, tick);
        ASSERT_LE(tick, after);
    }
    const uint64_t first = GetTickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_GE(GetTickCount(), first + 20);
    EXPECT_TRUE((std::is_same_v<decltype(GetTickCount()), uint64_t>));
}

using Lines = std::vector<std::string>;

TEST(LogWriters, WriteKeyValueAndTailWhetherOrNotTheLogIsOn)
{
    ASSERT_FALSE(g_bEnableLog);
    const LogTail main;
    const LogTail inThread(kInThreadLogFile);
    MyDebug("key()", "value", "\n");
    MyDebug(L"wide()", L"wert", L"\n");
    MyDebug_InsideThread("thread()", "wert", "\n");
    MyDebug("", "%s %d", "|\n");
    EXPECT_EQ(main.lines(), (Lines{"[key()]:value, ", "[wide()]:wert, ", "[]:%s %d, |"}));
    EXPECT_EQ(inThread.lines(), (Lines{"[thread()]:wert, "}));
}

TEST(LogWriters, DoNotCutNarrowTexts)
{
    const std::string text(5000, 'n');
    const LogTail main;
    MyDebug(text.c_str(), text.c_str(), "\n");
    EXPECT_EQ(main.lines(), (Lines{"[" + text + "]:" + text + ", "}));
}

/// Sets the locale of character types for a scope; the library itself never sets one.
struct Locale
{
    explicit Locale(const char *name) { EXPECT_NE(std::setlocale(LC_CTYPE, name), nullptr) << name; }
    ~Locale() { std::setlocale(LC_CTYPE, "C"); }
    Locale(const Locale &) = delete;
    Locale &operator=(const Locale &) = delete;
};

TEST(LogWriters, ConvertWideTextsByTheProcesssLocale)
{
    const LogTail main;
    {
        const Locale utf8("C.UTF-8");
        MyDebug(L"k", L"\u00fc\u20ac\U0001F58B", L"\n");
    }
    MyDebug(L"k", L"plain", L"\n");
    EXPECT_EQ(main.lines(), (Lines{"[k]:\xc3\xbc\xe2\x82\xac\xf0\x9f\x96\x8b, ", "[k]:plain, "}));
}

TEST(LogWriters, CutWideTextsAt256Bytes)
{
    const Locale utf8("C.UTF-8");
    struct Case
    {
        std::wstring wide;
        std::string narrow;
    };
    const std::wstring euro = L"\u20ac";
    const Case cases[] = {
        {std::wstring(255, L'a'), std::string(255, 'a')},
        {std::wstring(256, L'a'), std::string(255, 'a')},
        {std::wstring(5000, L'a'), std::string(255, 'a')},
        {std::wstring(252, L'a') + euro, std::string(252, 'a') + "\xe2\x82\xac"},
        {std::wstring(254, L'a') + euro, std::string(254, 'a')},
        {std::wstring(255, L'a') + euro, std::string(255, 'a')},
    };
    for (const Case &test : cases) {
        const LogTail main;
        MyDebug(L"k", test.wide.c_str(), L"\n");
        EXPECT_EQ(main.lines(), (Lines{"[k]:" + test.narrow + ", "})) << test.wide.size();
    }
}

TEST(LogWriters, SurviveTextsThatTheLocaleCannotExpress)
{
    const LogTail main;
    MyDebug(L"k", L"caf\u00e9", L"\n");
    const wchar_t beyond[] = {static_cast<wchar_t>(0x7fffffff), 0};
    MyDebug(beyond, L"value", L"\n");
    EXPECT_EQ(main.lines().size(), 2u) << "what they say is open, that they are lines is not";
}

TEST(LogMessages, AreCutAt255Characters)
{
    static constexpr logging::Key key{"Class::", "member()"};
    const std::string text(1000, 'x');
    const LogTail main;
    const LogTail inThread(kInThreadLogFile);
    logging::write(key, "<%ld>-%s", 1234L, text.c_str());
    logging::writeWide(key, L"<%ld>-%s", 1234L, text.c_str());
    logging::writeInsideThread(key, "<%ld>-%s", 1234L, text.c_str());
    const std::string cut = "[Class::member()]:<1234>-" + std::string(255 - 7, 'x') + ", ";
    EXPECT_EQ(main.lines(), (Lines{cut, cut}));
    EXPECT_EQ(inThread.lines(), (Lines{cut}));
}

TEST(LogMessages, AreFormattedIntoTheirBuffer)
{
    static constexpr logging::Key key{"Class::", "member()"};
    logging::write(key, "<%ld>-a %d", 1L, 10);
    logging::writeWide(key, L"<%ld>-b %d", 2L, 20);
    logging::writeInsideThread(key, "<%ld>-c %d", 3L, 30);
    EXPECT_STREQ(g_cKeyBuf, "<1>-a 10");
    EXPECT_STREQ(g_wszKeyBuf, L"<2>-b 20");
    EXPECT_STREQ(g_cKeyBuf_InThread, "<3>-c 30");
}

TEST(LogMessages, CostNoFormattingWhileTheLogIsOff)
{
    static constexpr logging::Key key{"Class::", "member()"};
    int evaluated = 0;
    const LogTail main;
    KV_LOG(key, "<%ld>-%d", ++evaluated);
    KV_LOG_WIDE(key, "<%ld>-%d", ++evaluated);
    KV_LOG_INSIDE_THREAD(key, "<%ld>-%d", ++evaluated);
    EXPECT_EQ(evaluated, 0);
    const LogOn on;
    KV_LOG(key, "<%ld>-%d", ++evaluated);
    KV_LOG_WIDE(key, "<%ld>-%d", ++evaluated);
    EXPECT_EQ(evaluated, 2);
    EXPECT_EQ(main.entries(), (std::vector<LogEntry>{{"Class::member()", "1"}, {"Class::member()", "2"}}));
}

} // namespace
