// CSV as spreadsheets write it: decimals, separators, encodings, and names in capitals, shortened or missing.
#include "kvsign.h"

namespace {

using namespace kvsign;

class KvsignTables : public Place
{
};

/// ASCII text as UTF-16, with a byte order mark in front.
QByteArray wide(const QByteArray &text, bool isBigEndian)
{
    QByteArray bytes = isBigEndian ? "\xfe\xff" : "\xff\xfe";
    for (const char c : text) {
        const char letter[] = {c, '\0'};
        bytes += isBigEndian ? QByteArray(1, '\0') + c : QByteArray(letter, 2);
    }
    return bytes;
}

TEST_F(KvsignTables, HaveDecimalCommasBetweenSemicolons)
{
    isReadAs(kTablePoints, "commas.csv",
        "x;y;pressure;stroke_end;tick_ms;time_s\r\n10,0;20,4;299,6;0;1000,0;50\r\n13;18;3,2E+02;0;1,005E+03;50\r\n"
        "1,3e1;18;320;1;1010;50,0\r\n");
    isReadAs(kTablePoints, "quoted.csv",
        "x,y,pressure,stroke_end,tick_ms,time_s\n\"10,0\",\"20,4\",299.6,0,1000,50\n13,18,\"3,2E+02\",0,1005,50\n"
        "13,18,320,1,1010,50\n");
}

TEST_F(KvsignTables, SayTheirSeparator)
{
    isReadAs(kTablePoints, "sep.csv",
        "sep=;\r\nx;y;pressure;stroke_end;tick_ms;time_s\r\n10;20;300;0;1000;50\r\n13;18;320;0;1005;50\r\n"
        "13;18;320;1;1010;50\r\n");
    isReadAs(kTablePoints, "bar.csv",
        "\"SEP=|\"\nx|y|pressure|stroke_end|tick_ms|time_s\n10|20|300|0|1000|50\n13|18|320|0|1005|50\n"
        "13|18|320|1|1010|50\n");
}

TEST_F(KvsignTables, AreInUtf16)
{
    const QByteArray text = "x\ty\tpressure\tstroke_end\ttick_ms\ttime_s\r\n10\t20\t300\t0\t1000\t50\r\n"
                            "13\t18\t320\t0\t1005\t50\r\n13\t18\t320\t1\t1010\t50\r\n";
    isReadAs(kTablePoints, "little.csv", wide(text, false));
    isReadAs(kTablePoints, "big.csv", wide(text, true));
    isReadAs(kTablePoints, "noname", wide(text, false));
}

TEST_F(KvsignTables, HaveNamesInCapitalsOrShortened)
{
    isReadAs(kTablePoints, "capitals.csv",
        "X,Y,PRESSURE,STROKE_END,TICK_MS,TIME_S\n10,20,300,FALSE,1000,50\n13,18,320,FALSE,1005,50\n"
        "13,18,320,TRUE,1010,50\n");
    isReadAs(kTablePoints, "short.csv",
        "X;Y;Press.;Stroke End;Tick (ms);Time\n10;20;300;0;1000;50\n13;18;320;0;1005;50\n13;18;320;1;1010;50\n");
}

TEST_F(KvsignTables, MayLackAllButThePlaces)
{
    isReadAs(
        {{1, 2, 512, false, 0, 0}, {3, 4, 512, false, 5, 0}, {3, 4, 512, true, 5, 0}}, "xy.csv", "Y;X\n2;1\n4;3\n");
    isReadAs({{1, 2, 30, false, 4000, 4}, {3, 4, 40, false, 4010, 4}, {3, 4, 40, true, 4010, 4}}, "ticks.csv",
        "x,y,p,t\n1,2,30,4000\n3,4,40,4010\n");
}

TEST_F(KvsignTables, EndInEmptyCellsAndLines)
{
    isReadAs(kTablePoints, "empty.csv",
        "\r\nx;y;pressure;stroke_end;tick_ms;time_s;;\r\n;;;;;;;\r\n10;20;300;0;1000;50;;\r\n13;18;320;0;1005;50\r\n"
        "13;18;320;1;1010;50;;;;\r\n;;;;;\r\n\r\n\r\n");
    isReadAs(kTablePoints, "macintosh.csv",
        "x,y,pressure,stroke_end,tick_ms,time_s\r10,20,300,0,1000,50\r13,18,320,0,1005,50\r13,18,320,1,1010,50");
}

TEST_F(KvsignTables, KeepEveryDigitOfWholeNumbers)
{
    const Points points = {{-32768, 32767, -1, true, 18446744073709551615ULL, -9223372036854775807LL - 1}};
    isReadAs(points, "digits.csv",
        "x;y;pressure;stroke_end;tick_ms;time_s\n-32768;32767;-1;1;18446744073709551615;-9223372036854775808\n");
}

} // namespace
