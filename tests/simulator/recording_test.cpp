// A recording has the values of its text, and is written as the text that gives them again.
#include "recordingtext.h"

#include <gtest/gtest.h>

#include <locale>
#include <optional>

namespace {

using namespace kvsim;

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

} // namespace
