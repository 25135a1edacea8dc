// Ink that other programs wrote or changed: tables from an office program, sorted JSON, InkML from other pens.
#include "kvsign.h"

namespace {

using namespace kvsign;

class KvsignOtherFiles : public Place
{
};

TEST_F(KvsignOtherFiles, ReadsTablesOfOfficePrograms)
{
    isReadAs(kTablePoints, "semicolons.csv",
        "\xef\xbb\xbfx;y;pressure;stroke_end;tick_ms;time_s\r\n10;20;300;0;1000;50\r\n13;18;320;0;1005;50\r\n"
        "13;18;320;1;1010;50\r\n");
    isReadAs(kTablePoints, "marks.csv",
        "\"time_s\", \"tick_ms\", \"stroke_end\", \"pressure\", \"y\", \"x\"\n\n\"50\", \"1000\", \"0\", \"300\", \"20\", "
        "\"10\"\n50,1005,false,320,18,13\n50,1010,true,320,18,13");
    isReadAs(kTablePoints, "tabulators.csv",
        "x\ty\tpressure\tstroke_end\ttick_ms\ttime_s\n10\t20\t300\t0\t1000\t50\n13\t18\t320\t0\t1005\t50\n"
        "13\t18\t320\t1\t1010\t50\n");
}

TEST_F(KvsignOtherFiles, ReadsJsonInAnyLayout)
{
    isReadAs(kTablePoints, "short.json",
        R"({"fields":["x","y","pressure","strokeEnd","tick","time"],"points":[[10,20,300,0,1000,50],)"
        R"([13,18,320,false,1005,50],[13,18,320,true,1010,50]]})");
    isReadAs(kTablePoints, "more.json", R"({
        "author": {"name": "\"A\u00e4\\", "list": [1, [2, {}], null, -1.5e3]}, "version": 1, "format": "ink-points",
        "fields": ["time", "tick", "strokeEnd", "pressure", "y", "x"],
        "points": [ [50, 1000, false, 300, 20, 10], [50, 1005, false, 320, 18, 13],
            [50, 1010, true, 320, 18, 13] ],
        "z": true } )");
    isReadAs(kTablePoints, "plain.json",
        "\xef\xbb\xbf{\"points\":[[10,20,300,false,1000,50],[13,18,320,false,1005,50],[13,18,320,true,1010,50]]}");
}

TEST_F(KvsignOtherFiles, ReadsInkmlOfOtherPens)
{
    // No tip switch and no clock, a channel that only this program has, and differences as the standard writes them.
    const QByteArray begin =
        R"(<?xml version="1.0"?><!-- a pen --><ink xmlns="http://www.w3.org/2003/InkML"><traceFormat>
        <channel name="T"/><channel name="X"/><channel name="OTx"/><channel name="Y"/><channel name="F"/></traceFormat>
        <annotation type="writer">A &amp; B</annotation>)";
    const Points stroke = {{10, 20, 300, false, 2000, 2}, {13, 18, 320, false, 2005, 2}, {17, 15, 320, false, 2010, 2},
        {22, 11, 320, false, 2015, 2}, {22, 11, 320, true, 2015, 2}};
    isReadAs(stroke, "plain.inkml",
        begin + "<trace>2000 10 0.5 20 300, 2005 13 1 18 320,\n 2010 17 1 15 320, 2015 22 1 11 320</trace></ink>");
    isReadAs(stroke, "differences.inkml",
        begin + "<trace>2000 10 0.5 20 300, '5'3 1'-2'20, \"0\"1 *\"-1'0, 0 1 *-1 *</trace></ink>");
    isReadAs({{1, 2, 3, false, 4000, 4}, {1, 2, 3, true, 4000, 4}, {5, 6, 7, false, 9000, 9}, {5, 6, 7, true, 9000, 9}},
        "two.inkml", begin + "<traceGroup><trace>4000 1 0 2 3</trace><trace>9000 5 0 6 7</trace></traceGroup></ink>");
}

TEST_F(KvsignOtherFiles, ReadsARecordThatWasWrapped)
{
    QByteArray wrapped = record(kTablePoints);
    for (int place = 60; place < wrapped.size(); place += 62)
        wrapped.insert(place, "\r\n");
    isReadAs(kTablePoints, "wrapped.txt", wrapped + "\n");
}

TEST_F(KvsignOtherFiles, FindsTheFormatInTheContent)
{
    isReadAs(kTablePoints, "noname", record(kTablePoints));
    for (const char *format : {"csv", "json", "inkml"}) {
        runWell({"convert", "noname", "x.dat", "--to", format});
        EXPECT_EQ(runJson({"inspect", "x.dat"})["format"].toString(), format);
        EXPECT_EQ(runJson({"inspect", "x.dat", "--from", format})["points"].toInt(), 3);
    }
}

TEST_F(KvsignOtherFiles, MayHaveAnyName)
{
    const QString name = QString::fromUtf8("Zo\u00eb \u5b57 'a\".ink");
    write(name, record(kTablePoints));
    for (const char *locale : {"C", "C.UTF-8"}) {
        const CommandResult result = run({"convert", "--json", name, name + ".csv"}, {{"LC_ALL", locale}});
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        EXPECT_TRUE(QFile::remove(file(name + ".csv"))) << locale;
    }
}

} // namespace
