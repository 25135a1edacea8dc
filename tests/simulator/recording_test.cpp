#include "fitting.h"
#include "greyimage.h"
#include "recording.h"
#include "styles.h"
#include "traces.h"

#include <gtest/gtest.h>

#include <fstream>
#include <locale>
#include <sstream>

namespace {

using namespace kvsim;

constexpr const char *kHeader = "version: 1\nmodel: S300\n";
constexpr const char *kHeader2 = "version: 2\nmodel: S300\n";

Recording read(const std::string &text)
{
    std::istringstream in(text);
    return readRecording(in, "pen.kvrec");
}

std::string write(const Recording &recording)
{
    std::ostringstream out;
    writeRecording(out, recording);
    return out.str();
}

std::string times(const std::string &text, int count)
{
    std::string all;
    for (; count > 0; --count)
        all += text;
    return all;
}

struct Refused
{
    const char *name;
    std::string text;
    const char *message;
};

const Refused kRefused[] = {
    {"Empty", "", "pen.kvrec:1: header missing"},
    {"OnlyComments", "# nothing\n\n", "pen.kvrec:2: header missing"},
    {"NoHeader", "0 1 2 3 0\n", "pen.kvrec:1: header missing"},
    {"NoVersion", "model: S300\n0 1 2 3 0\n", "pen.kvrec:2: the header has no version"},
    {"NoModel", "version: 1\n\n0 1 2 3 0\n", "pen.kvrec:3: the header has no model"},
    {"NoModelNoEvents", "version: 1\n", "pen.kvrec:1: the header has no model"},
    {"FutureVersion", "version: 3\nmodel: S300\n",
        "pen.kvrec:1: version 3 is newer than 2, the newest that this program reads"},
    {"VersionZero", "version: 0\n", "pen.kvrec:1: there is no version 0"},
    {"VersionWord", "version: one\n", "pen.kvrec:1: version 'one' is not a whole number"},
    {"UnknownModel", "version: 1\nmodel: S400\n", "pen.kvrec:2: unknown model 'S400'"},
    {"TooFewFields", std::string(kHeader) + "0 1 2 3\n", "pen.kvrec:3: a pen packet is: time x y pressure status"},
    {"TooManyFields", std::string(kHeader) + "0 1 2 3 0 9\n", "pen.kvrec:3: a pen packet is: time x y pressure status"},
    {"NotANumber", std::string(kHeader) + "0 1 2 3 0\n5 1 y 3 1\n", "pen.kvrec:4: y 'y' is not a whole number"},
    {"Decimals", std::string(kHeader) + "0 1.5 2 3 0\n", "pen.kvrec:3: x '1.5' is not a whole number"},
    {"AboveInt", std::string(kHeader) + "0 2147483648 2 3 0\n", "pen.kvrec:3: x '2147483648' is out of range"},
    {"BelowInt", std::string(kHeader) + "0 1 2 -2147483649 0\n", "pen.kvrec:3: pressure '-2147483649' is out of range"},
    {"LongNumber", std::string(kHeader) + "0 1 2 3 " + std::string(50, '9') + "\n",
        "pen.kvrec:3: status '9999999999999999999999999999999999999999...' is out of range"},
    {"Backwards", std::string(kHeader) + "10 1 2 3 0\n\n9.999 1 2 3 1\n", "pen.kvrec:5: the time goes backwards"},
    {"NegativeTime", std::string(kHeader) + "-1 1 2 3 0\n", "pen.kvrec:3: time '-1' is out of range"},
    {"EndlessTime", std::string(kHeader) + "1000000000.5 1 2 3 0\n",
        "pen.kvrec:3: time '1000000000.5' is out of range"},
    {"ExponentTime", std::string(kHeader) + "1e3 1 2 3 0\n", "pen.kvrec:3: time '1e3' is not a number of milliseconds"},
    {"CommaTime", std::string(kHeader) + "1,5 1 2 3 0\n", "pen.kvrec:3: time '1,5' is not a number of milliseconds"},
    {"EndlessLine", std::string(kHeader) + "0 1 2 3 0\n" + std::string(65537, ' ') + "\n",
        "pen.kvrec:4: the line is longer than 65536 bytes"},
    {"EndlessHeader", std::string(kHeader) + times("note: x\n", 1001),
        "pen.kvrec:1003: the header has more than 1000 lines"},
    {"NoteThatIsAnEventInVersion2", "weather: fine\nplug in: by hand\nversion: 2\nmodel: S300\n0 1 2 3 0\n",
        "pen.kvrec:2: in version 2 no key begins with 'plug', which begins an event"},
    {"NoteThatIsAnEventInVersion1", "fingerprint by: hand\nversion: 1\nmodel: S300\n",
        "pen.kvrec:1: in version 1 no key begins with 'fingerprint', which begins an event"},
    {"UnknownEvent", std::string(kHeader) + "explode 10\n", "pen.kvrec:3: unknown event 'explode'"},
    {"HeaderTooLate", std::string(kHeader) + "0 1 2 3 0\ntitle: late\n", "pen.kvrec:4: unknown event 'title:'"},
    {"FingerprintFields", std::string(kHeader) + "fingerprint 10 a.pgm\n",
        "pen.kvrec:3: a fingerprint is: fingerprint time file score"},
    {"Version2WordInVersion1", std::string(kHeader) + "unplug 10\n",
        "pen.kvrec:3: 'unplug' needs version 2; the header says 1"},
    {"NullFingerprintInVersion1", std::string(kHeader) + "fingerprint 10 - 5\n",
        "pen.kvrec:3: 'fingerprint' needs version 2; the header says 1"},
    {"RawFields", std::string(kHeader2) + "raw 0 1 2 3\n",
        "pen.kvrec:3: a raw packet is: raw time x y pressure status"},
    {"RawSurplus", std::string(kHeader2) + "raw 0 1 2 3 4 5\n",
        "pen.kvrec:3: a raw packet is: raw time x y pressure status"},
    {"RawStatus", std::string(kHeader2) + "raw 0 1 2 3 up\n", "pen.kvrec:3: status 'up' is not a whole number"},
    {"RepeatNothing", std::string(kHeader2) + "repeat 0 1\n", "pen.kvrec:3: there is no packet to repeat yet"},
    {"RepeatNever", std::string(kHeader2) + "raw 0 1 2 3 4\nrepeat 0 0\n", "pen.kvrec:4: count '0' is out of range"},
    {"RepeatEndlessly", std::string(kHeader2) + "0 1 2 3 4\nrepeat 0 1000001\n",
        "pen.kvrec:4: count '1000001' is out of range"},
    {"StallFields", std::string(kHeader2) + "stall 5\n", "pen.kvrec:3: a stall is: stall time milliseconds"},
    {"StallBackwards", std::string(kHeader2) + "stall 5 -1\n", "pen.kvrec:3: duration '-1' is out of range"},
    {"AnswerFields", std::string(kHeader2) + "answer 5 Initial\n",
        "pen.kvrec:3: an answer is: answer time operation result"},
    {"AnswerOperation", std::string(kHeader2) + "answer 5 KVSPDAPI_Initial -4\n",
        "pen.kvrec:3: unknown operation 'KVSPDAPI_Initial'"},
    {"AnswerResult", std::string(kHeader2) + "answer 5 Initial no\n", "pen.kvrec:3: result 'no' is not a whole number"},
    {"TextFields", std::string(kHeader2) + "text 5\n", "pen.kvrec:3: a text is: text time query [text]"},
    {"TextOfACommand", std::string(kHeader2) + "text 5 OpenDeviceLCD on\n",
        "pen.kvrec:3: unknown text query 'OpenDeviceLCD'"},
    {"ScreenDuration", std::string(kHeader2) + "screen 5 1s\n", "pen.kvrec:3: duration '1s' is not a whole number"},
    {"UnplugTime", std::string(kHeader2) + "unplug now\n", "pen.kvrec:3: time 'now' is not a number of milliseconds"},
    {"PlugFields", std::string(kHeader2) + "plug 5 6\n", "pen.kvrec:3: plugging in is: plug time"},
    {"FaultsInTheirOrder", std::string(kHeader2) + "unplug 5\nplug 4\n", "pen.kvrec:4: the time goes backwards"},
    {"FingerprintScore", std::string(kHeader) + "fingerprint 10 a.pgm good\n",
        "pen.kvrec:3: score 'good' is not a whole number"},
};

class RefusedRecording : public testing::TestWithParam<Refused>
{
};

TEST_P(RefusedRecording, NamesFileLineAndReason)
{
    try {
        read(GetParam().text);
        FAIL() << "was accepted";
    } catch (const RecordingError &error) {
        EXPECT_STREQ(error.what(), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Grammar, RefusedRecording, testing::ValuesIn(kRefused), [](const auto &row) { return row.param.name; });

struct Accepted
{
    const char *name;
    std::string text;
    std::size_t events;
};

const Accepted kAccepted[] = {
    {"NoEvents", kHeader, 0},
    {"Plain", std::string(kHeader) + "0 1 2 3 0\n4.5 1 2 3 2\n", 2},
    {"CarriageReturns", "version: 1\r\nmodel: S300\r\n0 1 2 3 0\r\n", 1},
    {"NoFinalNewline", std::string(kHeader) + "0 1 2 3 0", 1},
    {"Comments", "# a\nversion: 1\n  # b\nmodel: S300\n\n0 1 2 3 0\n# c\n", 1},
    {"Tabs", std::string(kHeader) + "0\t1\t2 \t3\t0\t\n", 1},
    {"SameTime", std::string(kHeader) + "7 1 2 3 0\n7 1 2 3 1\n7 1 2 3 2\n", 3},
    {"Extremes", std::string(kHeader) + "1000000000 2147483647 -2147483648 -1 -7\n", 1},
    {"WordInAKey", std::string(kHeader) + "screen size: 5 inch\n0 1 2 3 0\n", 1},
    {"ColonInAFault", std::string(kHeader2) + "text 0 GetDevicePadID a: b\n0 1 2 3 0\n", 2},
    {"EveryFault",
        std::string(kHeader2)
            + "answer 0 Initial -4\ntext 0 GetDevicePadID\nscreen 1 5\nunplug 1\nplug 2\n"
              "raw 3 1 2 3 9\nrepeat 3 1000000\nstall 4 0\nfingerprint 5 - -1\n",
        9},
    {"LongestLine", std::string(kHeader) + "0 1 2 3 0" + std::string(65527, ' ') + "\n1 1 2 3 0", 2},
    {"LongestHeader", std::string(kHeader) + times("note: x\n", 1000) + "0 1 2 3 0\n", 1},
    {"Version2WordInAVersion1Key", "plug in: by hand\nversion: 1\nmodel: S300\n0 1 2 3 0\n", 1},
    {"UnknownKeys", std::string(kHeader) + "weather: rain: heavy\n0 1 2 3 0\n", 1},
};

class AcceptedRecording : public testing::TestWithParam<Accepted>
{
};

TEST_P(AcceptedRecording, HasItsEvents)
{
    EXPECT_EQ(read(GetParam().text).events.size(), GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    Grammar, AcceptedRecording, testing::ValuesIn(kAccepted), [](const auto &row) { return row.param.name; });

TEST(Recording, ValuesAreThoseOfTheText)
{
    const Recording recording = read("model: R800\nweather: rain: heavy\nversion: 1\n"
                                     "0.5 -1 20 300 4\nfingerprint 1200.25 thumb.pgm 62\n");
    EXPECT_EQ(recording.model, "R800");
    ASSERT_EQ(recording.notes.size(), 1u);
    EXPECT_EQ(recording.notes[0].first, "weather");
    EXPECT_EQ(recording.notes[0].second, "rain: heavy");
    ASSERT_EQ(recording.events.size(), 2u);
    const Event &pen = recording.events[0], &finger = recording.events[1];
    EXPECT_EQ(pen.kind, Event::Kind::Pen);
    EXPECT_EQ(pen.timeUs, 500);
    EXPECT_EQ(pen.packet.x, -1);
    EXPECT_EQ(pen.packet.y, 20);
    EXPECT_EQ(pen.packet.pressure, 300);
    EXPECT_EQ(pen.packet.status, 4);
    EXPECT_EQ(finger.kind, Event::Kind::Fingerprint);
    EXPECT_EQ(finger.timeUs, 1200250);
    EXPECT_EQ(finger.file, "thumb.pgm");
    EXPECT_EQ(finger.score, 62);
}

TEST(Recording, TextSurvivesReadingAndWriting)
{
    const std::string text =
        "version: 1\nmodel: S310X\ntitle: round and round\n0 1 2 3 0\n4.5 -1 -2 0 1\n"
        "4.505 2147483647 -2147483648 7 2\nfingerprint 10.01 finger-fair.pgm -3\n1000000000 0 0 0 4\n";
    EXPECT_EQ(write(read(text)), text);
}

TEST(Recording, FaultsHaveTheValuesOfTheText)
{
    const Recording recording = read("version: 2\nmodel: S210\npad-version: KVT120 4.2\n"
                                     "answer 1.5 SetDevicePenStyle -7\ntext 2 GetDevicePenID  two  words \n"
                                     "text 2 GetDevicePadID\nscreen 3 1500\nraw 4 -1 2147483647 3 9\nrepeat 5 20\n"
                                     "stall 6 70\n");
    EXPECT_EQ(recording.padVersion, "KVT120 4.2");
    EXPECT_TRUE(recording.notes.empty());
    ASSERT_EQ(recording.events.size(), 7u);
    const auto &events = recording.events;
    EXPECT_EQ(events[0].kind, Event::Kind::Answer);
    EXPECT_EQ(events[0].timeUs, 1500);
    EXPECT_EQ(events[0].operation, "SetDevicePenStyle");
    EXPECT_EQ(events[0].value, -7);
    EXPECT_EQ(events[1].operation, "GetDevicePenID");
    EXPECT_EQ(events[1].text, "two  words");
    EXPECT_EQ(events[2].text, std::nullopt);
    EXPECT_EQ(events[3].value, 1500);
    EXPECT_EQ(events[4].packet.y, 2147483647);
    EXPECT_EQ(events[4].packet.status, 9);
    EXPECT_EQ(events[5].value, 20);
    EXPECT_EQ(events[6].value, 70);
}

TEST(Recording, OfSeveralLinesForTheReaderTheLastCounts)
{
    const Recording recording = read("version: 1\nmodel: S210\npad-version: KVT120 4.2\nversion: 2\nplace: home\n"
                                     "model: S300\npad-version: KVS300 1.0\n0 1 2 3 0\n");
    EXPECT_EQ(recording.model, "S300");
    EXPECT_EQ(recording.padVersion, "KVS300 1.0");
    EXPECT_EQ(recording.notes, (decltype(recording.notes){{"place", "home"}}));
    const std::string text = "version: 2\nmodel: S300\npad-version: KVS300 1.0\nplace: home\n0 1 2 3 0\n";
    EXPECT_EQ(write(recording), text);
    EXPECT_EQ(write(read(text)), text);
}

TEST(Recording, AWriterSaysTheOldestVersionThatSuffices)
{
    for (const char *text : {"version: 1\nmodel: S300\npad-version: x\n0 1 2 3 0\n", // version 1 gives no meaning to it
             "version: 2\nmodel: S300\npad-version: KVS300 1.0\n0 1 2 3 0\n",
             "version: 2\nmodel: S300\nraw 0 1 2 3 0\nrepeat 0 3\nstall 0.5 20\n",
             "version: 2\nmodel: S310X\nfingerprint 0 - 20\nanswer 1 UnInitial -1\n",
             "version: 2\nmodel: S300\ntext 0 GetDevicePadID a b\ntext 1 GetDevicePadID\n",
             "version: 2\nmodel: S300\nscreen 1 2\nunplug 3\nplug 4\n"})
        EXPECT_EQ(write(read(text)), text);
    EXPECT_EQ(write(read("version: 2\nmodel: S300\n0 1 2 3 0\n")), "version: 1\nmodel: S300\n0 1 2 3 0\n");
}

TEST(Recording, ANoteThatANewerVersionTakesForSomethingElseIsWrittenAsAComment)
{
    Recording recording = read("version: 1\nmodel: S300\nplug in: by hand\npad-version: new\nplace: home\n0 1 2 3 0\n");
    EXPECT_EQ(recording.notes.size(), 3u);
    recording.events.emplace_back().kind = Event::Kind::Unplug;
    const std::string text = write(recording);
    EXPECT_EQ(
        text, "version: 2\nmodel: S300\n# plug in: by hand\n# pad-version: new\nplace: home\n0 1 2 3 0\nunplug 0\n");
    EXPECT_EQ(write(read(text)), "version: 2\nmodel: S300\nplace: home\n0 1 2 3 0\nunplug 0\n");
}

TEST(Recording, NumbersDoNotFollowTheLocale)
{
    const std::string text = std::string(kHeader) + "1.5 1000000 2 3 0\n";
    struct Grouping : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    const std::string written = write(read(text));
    std::locale::global(before);
    EXPECT_EQ(written, text);
}

/// A stream that makes each line only when it is read, so that nothing but the reader could hold them all in memory.
class EndlessPen : public std::streambuf
{
public:
    explicit EndlessPen(int packets)
        : m_packets(packets)
    {
    }

private:
    int_type underflow() override
    {
        if (m_next > m_packets)
            return traits_type::eof();
        m_line = m_next == 0 ? kHeader : std::to_string(m_next * 5) + " 500 600 700 1\n";
        ++m_next;
        setg(m_line.data(), m_line.data(), m_line.data() + m_line.size());
        return traits_type::to_int_type(m_line[0]);
    }
    int m_packets;
    int m_next = 0;
    std::string m_line;
};

TEST(Recording, AHundredThousandPacketsAreReadOneByOne)
{
    EndlessPen pen(100000);
    std::istream in(&pen);
    RecordingReader reader(in, "long");
    int count = 0;
    Event event;
    while (reader.next(event))
        ++count;
    EXPECT_EQ(count, 100000);
    EXPECT_EQ(event.timeUs, 500000000);
}

TEST(GreyImage, SurvivesWritingAndReading)
{
    const GreyImage image{3, 2, {0, 10, 35, 255, 13, 128}};
    std::stringstream file;
    writePgm(file, image);
    EXPECT_EQ(file.str(), std::string("P5\n3 2\n255\n\x00\x0a\x23\xff\x0d\x80", 17));
    EXPECT_EQ(readPgm(file, "a.pgm").pixels, image.pixels);
}

TEST(GreyImage, HeaderMayHaveComments)
{
    std::istringstream file("P5 # made by hand\n#\n 2\n# high:\n1 255\nab");
    EXPECT_EQ(readPgm(file, "a.pgm").pixels, (std::vector<unsigned char>{'a', 'b'}));
}

TEST(GreyImage, OthersAreRefused)
{
    for (const char *text : {"", "P2\n1 1\n255\na", "P5\n1 1\n65535\naa", "P5\n2 2\n255\nabc", "P5\n-1 1\n255\na",
             "P5\n99999999999 1\n255\na", "P5\n0 1\n255\na"}) {
        std::istringstream file(text);
        EXPECT_THROW(readPgm(file, "a.pgm"), std::runtime_error) << text;
    }
}

TEST(Trace, FillsTheWritingAreaButForItsBorder)
{
    std::ifstream file(KV_TEST_DATA "/recordings/square.trace.txt");
    const Trace trace = readTrace(file, "square");
    ASSERT_EQ(trace.about.size(), 2u);
    EXPECT_EQ(trace.about[0].second, "drawn by hand in an editor");
    const std::vector<Event> events = fitIntoPad(trace.samples, *modelOfName("S300"), 0.8, 0.8);
    ASSERT_EQ(events.size(), 5u);
    // 10 by 10 units fill 1300 * 0.8 raw units, 104 for each unit. The middle of the writing area is (1350, 850).
    const Packet expected[] = {
        {830, 330, 512, 0}, {1870, 330, 1024, 1}, {1870, 1370, 2048, 1}, {830, 1370, 0, 1}, {830, 1370, 0, 2}};
    const std::int64_t times[] = {0, 7500, 15000, 15000, 24000};
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i].timeUs, times[i]) << i;
        EXPECT_EQ(events[i].packet.x, expected[i].x) << i;
        EXPECT_EQ(events[i].packet.y, expected[i].y) << i;
        EXPECT_EQ(events[i].packet.pressure, expected[i].pressure) << i;
        EXPECT_EQ(events[i].packet.status, expected[i].status) << i;
    }
}

TEST(Trace, OthersAreRefused)
{
    for (const auto &[text, message] : {std::pair{"", "t:1: no samples"}, {"# a: b\n", "t:1: no samples"},
             {"0 1 2 3\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 2 3 0 0\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 nan 3 0\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 2 3 3\n", "t:1: the pen is 0 (down), 1 (moves) or 2 (up)"},
             {"0 1 2 -3 0\n", "t:1: the pressure is negative"},
             {"5 1 2 3 0\n4 1 2 3 1\n", "t:2: the time goes backwards"}}) {
        std::istringstream in(text);
        try {
            readTrace(in, "t");
            ADD_FAILURE() << "accepted: " << text;
        } catch (const RecordingError &error) {
            EXPECT_STREQ(error.what(), message);
        }
    }
}

class EveryStyle : public testing::TestWithParam<std::string>
{
};

TEST_P(EveryStyle, IsWrittenAsAPadSendsIt)
{
    const Style &style = *styleOfName(GetParam());
    const std::vector<Sample> samples = writeByHand(style.plan(), style.manner, 5);
    ASSERT_FALSE(samples.empty());
    bool touches = false;
    double last = samples.front().timeMs;
    for (const Sample &sample : samples) {
        EXPECT_EQ(sample.state == Sample::Down, !touches);
        touches = sample.state != Sample::Up;
        EXPECT_GE(sample.timeMs, last);
        if (sample.state == Sample::Move) {
            EXPECT_LT(sample.timeMs - last, 8); // about 220 samples a second, at slightly uneven times
        }
        EXPECT_TRUE(sample.pressure >= 0 && sample.pressure <= 1) << sample.pressure;
        last = sample.timeMs;
    }
    EXPECT_FALSE(touches);
    EXPECT_LT(last - samples.front().timeMs, 8000);
}

TEST_P(EveryStyle, DependsOnTheSeedAlone)
{
    const Style &style = *styleOfName(GetParam());
    const ModelRow &pad = *modelOfName("S310X");
    const auto text = [&](unsigned seed) {
        return write({"S310X", {}, fitIntoPad(writeByHand(style.plan(), style.manner, seed), pad, 0.8, 0.8)});
    };
    EXPECT_EQ(text(1), text(1));
    EXPECT_NE(text(1), text(2));
}

std::vector<std::string> allStyles()
{
    std::vector<std::string> names;
    for (std::size_t i = 0; !styleNames(i).empty(); ++i)
        names.emplace_back(styleNames(i));
    return names;
}

INSTANTIATE_TEST_SUITE_P(Styles, EveryStyle, testing::ValuesIn(allStyles()), [](const auto &row) {
    std::string name = row.param;
    for (char &c : name)
        c = c == '-' ? '_' : c;
    return name;
});

} // namespace
