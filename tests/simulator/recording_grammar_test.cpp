// Which texts are recordings, and what is said of those that are not.
#include "recordingtext.h"

#include <gtest/gtest.h>

namespace {

using namespace kvsim;

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

} // namespace
