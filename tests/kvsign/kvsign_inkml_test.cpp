// W3C InkML as many programs write it: samples of different styles, and every way in which the standard lets a file
// state a point. The expected numbers are worked out by hand from the standard.
#include "kvsign.h"

#include <QTextCodec>

namespace {

using namespace kvsign;

constexpr int kPressure = 512; // what kvsign stores for ink that has no pressure

class KvsignInkml : public Place
{
protected:
    Points readSample(const char *name) const
    {
        runWell({"convert", QString(KV_TEST_DATA) + "/inkml/" + name, "read.ink"});
        return pointsOf(read("read.ink"));
    }

    Points readText(const QByteArray &content) const
    {
        write("text.inkml", content);
        runWell({"convert", "text.inkml", "read.ink"});
        return pointsOf(read("read.ink"));
    }

    static void areEqual(const Points &points, const Points &expected)
    {
        EXPECT_EQ(listed(points).toStdString(), listed(expected).toStdString());
    }
};

QByteArray inkOf(const QByteArray &content)
{
    return "<ink xmlns=\"http://www.w3.org/2003/InkML\">" + content + "</ink>";
}

/// Ink whose format has one channel after X and Y; `channel` holds the attributes of that channel.
QByteArray inkWith(const QByteArray &channel, const QByteArray &trace)
{
    return inkOf("<traceFormat><channel name='X'/><channel name='Y'/><channel " + channel + "/></traceFormat><trace>"
        + trace + "</trace>");
}

TEST_F(KvsignInkml, NeedsNoMoreThanXAndY)
{
    const Points points = readSample("plain.inkml");
    ASSERT_EQ(points.size(), 27U + 1 + 10 + 1);
    areEqual({points[0], points[26], points[27], points[28], points[38]},
        {{10, 0, kPressure, false, 0, 0}, {93, 205, kPressure, false, 26 * 5, 0}, {93, 205, kPressure, true, 26 * 5, 0},
            {130, 155, kPressure, false, 27 * 5, 0}, {131, 149, kPressure, true, 36 * 5, 0}});
}

// The example that the standard itself gives for prefixes; the expected positions are those of its table.
TEST_F(KvsignInkml, AddsUpFirstAndSecondDifferences)
{
    const int expected[][2] = {{1125, 18432}, {1148, 18475}, {1178, 18510}, {1211, 18540}, {1251, 18567}, {1297, 18596},
        {1349, 18633}, {1404, 18676}, {1461, 18723}, {1521, 18776}, {1584, 18823}};
    const Points points = readSample("differences.inkml");
    ASSERT_EQ(points.size(), 12U);
    for (size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(points[i].x, expected[i][0]) << i;
        EXPECT_EQ(points[i].y, expected[i][1]) << i;
    }
    EXPECT_TRUE(points[11].end);
}

TEST_F(KvsignInkml, TakesPressureAndTimeFromATabletsService)
{
    areEqual(readSample("tablet.inkml"),
        {{1000, 2000, 300, false, 1000, 1600000001}, {1100, 2100, 400, false, 1010, 1600000001},
            {1200, 2250, 500, false, 1020, 1600000001}, {1200, 2250, 500, true, 1020, 1600000001},
            {3000, 2000, 310, false, 2500, 1600000002}, {3050, 1900, 0, false, 2510, 1600000002},
            {3050, 1900, 0, true, 2510, 1600000002}});
}

// Positions come out in hundredths of a millimetre. The sample's Y runs from 5 down to 4.75 cm and grows upwards, so
// the expected Y is mirrored within that range. 7.5 ms are rounded to 8.
TEST_F(KvsignInkml, KnowsUnitsAndDirections)
{
    areEqual(readSample("millimetres.inkml"),
        {{1025, 4750, 0, false, 0, 0}, {1150, 4850, 512, false, 8, 0}, {1275, 5000, 2048, false, 15, 0},
            {1275, 5000, 2048, true, 15, 0}});
}

TEST_F(KvsignInkml, KeepsTheShapeOfDecimals)
{
    areEqual(readSample("normalised.inkml"),
        {{1250, 2500, 1024, false, 0, 0}, {1250, 3750, 1536, false, 5, 0}, {10000, 5000, 2048, false, 10, 0},
            {10000, 5000, 2048, true, 10, 0}});
    areEqual(readText(inkOf("<trace>282.5 45.25, 283 46</trace>")),
        {{28250, 4525, kPressure, false, 0, 0}, {28300, 4600, kPressure, false, 5, 0},
            {28300, 4600, kPressure, true, 5, 0}});
    areEqual(readText(inkOf("<trace>10.0 20e0, 13. 1.8e+1</trace>")),
        {{10, 20, kPressure, false, 0, 0}, {13, 18, kPressure, false, 5, 0}, {13, 18, kPressure, true, 5, 0}});
}

TEST_F(KvsignInkml, PassesOverAnnotationsAndViewsOfWhatIsThere)
{
    areEqual(readSample("formulas.inkml"),
        {{310, 207, kPressure, false, 0, 0}, {312, 209, kPressure, false, 5, 0}, {317, 216, kPressure, false, 10, 0},
            {325, 228, kPressure, false, 15, 0}, {325, 228, kPressure, true, 15, 0},
            {327, 204, kPressure, false, 20, 0}, {318, 217, kPressure, false, 25, 0},
            {309, 229, kPressure, false, 30, 0}, {309, 229, kPressure, true, 30, 0}});
}

// The first trace has four points, 10 ms apart from 40 ms on; the pen is in the air at the first and the last. In the
// second trace it is never lifted.
TEST_F(KvsignInkml, ListensToATipSwitch)
{
    areEqual(readSample("switch.inkml"),
        {{10, 10, 100, false, 50, 0}, {20, 10, 120, false, 60, 0}, {30, 10, 0, true, 70, 0}, {40, 40, 90, false, 80, 0},
            {50, 50, 95, false, 85, 0}, {50, 50, 95, true, 85, 0}});
}

TEST_F(KvsignInkml, ContinuesAStrokeInTheNextTrace)
{
    areEqual(readSample("continued.inkml"),
        {{100, 100, kPressure, false, 0, 0}, {200, 200, kPressure, false, 5, 0}, {300, 250, kPressure, false, 10, 0},
            {400, 300, kPressure, false, 15, 0}, {400, 300, kPressure, true, 15, 0},
            {500, 500, kPressure, false, 20, 0}, {500, 500, kPressure, true, 20, 0}});
}

TEST_F(KvsignInkml, ShowsDefinedTracesWhereTheyAreViewed)
{
    QString places;
    for (const Point &point : readSample("views.inkml"))
        places += point.end ? QString("| ") : QString("%1 %2 ").arg(point.x).arg(point.y);
    EXPECT_EQ(places.toStdString(), "21 22 | 3 4 5 6 | 11 12 | 13 14 | ");
}

TEST_F(KvsignInkml, FindsTheFormatByContexts)
{
    areEqual(readSample("contexts.inkml"),
        {{10, 20, kPressure, false, 5, 0}, {-32768, 7, kPressure, false, 10, 0}, {-32768, 7, kPressure, true, 10, 0},
            {2, 1, kPressure, false, 15, 1600000060}, {4, 3, kPressure, false, 20, 1600000060},
            {4, 3, kPressure, true, 20, 1600000060}, {6, 5, kPressure, false, 25, 1600000060},
            {6, 5, kPressure, true, 25, 1600000060}});
}

TEST_F(KvsignInkml, BringsLargeNumbersIntoARecord)
{
    areEqual(readSample("wide.inkml"),
        {{0, 0, 2048, false, 0, 0}, {32766, 0, 1024, false, 5, 0}, {32766, 0, 1024, true, 5, 0}});
    areEqual(readText(inkOf("<trace>0 0, 40000 -10000</trace>")),
        {{0, 1000, kPressure, false, 0, 0}, {4000, 0, kPressure, false, 5, 0}, {4000, 0, kPressure, true, 5, 0}});
}

TEST_F(KvsignInkml, PassesOverWhatIsNotKnown)
{
    const Points expected = {{1, 2, 7, false, 0, 0}, {3, 4, 7, false, 5, 0}, {3, 4, 7, true, 5, 0}};
    areEqual(readText(inkWith("name='F'", "1 2 7, 3 4 *")), expected);
    areEqual(readText(inkWith("name='F'", "1 2 7, 3 4 *,")), expected);
    // A point without a position is left out, but its time still counts.
    areEqual(readText(inkWith("name='F'", "? 9 7, 1 2 7, 3 4 7")),
        {{1, 2, 7, false, 5, 0}, {3, 4, 7, false, 10, 0}, {3, 4, 7, true, 10, 0}});
    areEqual(readText(inkWith("name='W' type='boolean'", "1 2T,3 4F")),
        {{1, 2, kPressure, false, 0, 0}, {3, 4, kPressure, false, 5, 0}, {3, 4, kPressure, true, 5, 0}});
}

TEST_F(KvsignInkml, KnowsUnitsOfTime)
{
    for (const char *channel : {"name='T' units='s'|1 2 1.5", "name='T' units='ms'|1 2 1500", "name='T'|1 2 1500",
             "name='T' units='us'|1 2 1500000"}) {
        const QList<QByteArray> parts = QByteArray(channel).split('|');
        areEqual(readText(inkWith(parts[0], parts[1])),
            {{1, 2, kPressure, false, 1500, 1}, {1, 2, kPressure, true, 1500, 1}});
    }
    // Times before the zero point are moved so that the first one is 0.
    areEqual(readText(inkWith("name='T'", "1 2 -20, 3 4 -10")),
        {{1, 2, kPressure, false, 0, 0}, {3, 4, kPressure, false, 10, 0}, {3, 4, kPressure, true, 10, 0}});
}

TEST_F(KvsignInkml, TakesTheSamplingRateAndTheResolution)
{
    areEqual(readText(inkOf("<inkSource><traceFormat><channel name='X'/><channel name='Y'/></traceFormat>"
                            "<sampleRate value='50'/><channelProperties>"
                            "<channelProperty channel='X' name='resolution' value='200' units='1/mm'/>"
                            "<channelProperty channel='Y' name='resolution' value='100' units='1/mm'/>"
                            "</channelProperties></inkSource><trace>10 20, 30 40</trace>")),
        {{10, 40, kPressure, false, 0, 0}, {30, 80, kPressure, false, 20, 0}, {30, 80, kPressure, true, 20, 0}});
}

TEST_F(KvsignInkml, NeedsNoNamespaceButNoOther)
{
    areEqual(readText("<ink><m:trace xmlns:m='urn:m'>5 6</m:trace><trace>1 2</trace></ink>"),
        {{1, 2, kPressure, false, 0, 0}, {1, 2, kPressure, true, 0, 0}});
}

// A reader without limits would take minutes or gigabytes for each of these.
TEST_F(KvsignInkml, IsNotHeldUpByHostileDocuments)
{
    const auto fails = [&](const char *why, const QByteArray &content) {
        write("hostile.inkml", content);
        const CommandResult result = run({"convert", "hostile.inkml", "out.ink"});
        EXPECT_EQ(result.exitCode, 1) << why;
        EXPECT_TRUE(result.errors.contains(why)) << testing::PrintToString(result);
        EXPECT_FALSE(exists("out.ink"));
    };
    const QByteArray channels = QByteArray("<channel name='A'/>").repeated(100000);
    fails("more than 256 channels",
        inkOf("<traceFormat>" + channels + "</traceFormat>" + QByteArray("<trace/>").repeated(100000)));
    fails("no ink point",
        inkOf(QByteArray("<traceFormat><channel name='X'/><channel name='Y'/></traceFormat><trace/>").repeated(50000)));
    const QByteArray stored =
        "<definitions><trace xml:id='a'>" + QByteArray("1 2,").repeated(100000) + "</trace></definitions>";
    fails("the views show too much", inkOf(stored + QByteArray("<traceView traceDataRef='#a'/>").repeated(20000)));
    fails("more than 100000 traces",
        inkOf("<definitions>" + QByteArray("<traceGroup xml:id='g'>").repeated(150)
            + QByteArray("<trace>1 2</trace>").repeated(100000) + QByteArray("</traceGroup>").repeated(150)
            + "</definitions>"));
    const QByteArray attributes = [] {
        QByteArray text;
        for (int i = 0; i < 200000; ++i)
            text += "\n a" + QByteArray::number(i) + "='>'";
        return text;
    }();
    const QByteArray inNamespaces = QByteArray(attributes).replace(" a", " xmlns:a");
    const QByteArray document = inkOf("\n<trace" + attributes + ">1 2</trace>");
    fails("hostile.inkml:131: an element has more than 128 attributes", document);
    fails("more than 128 attributes", inkOf("<annotation" + QByteArray(inNamespaces) + "/><trace>1 2</trace>"));
    fails("more than 128 attributes", inkOf("<!--\"--><annotation" + attributes.toLower().replace("=", " = ") + "/>"));
    for (const char *encoding : {"UTF-16", "UTF-32"})
        fails("more than 128 attributes", QTextCodec::codecForName(encoding)->fromUnicode(document));
    for (const char *encoding : {"IBM037", "UTF-7", "UTF-16"}) { // behind a head in ASCII
        if (QTextCodec::codecForName(encoding) == nullptr)
            continue; // this Qt does not know it, nor does kvsign
        fails("InkML is not read in the encoding",
            "<?xml version='1.0' encoding='" + QByteArray(encoding) + "'?>"
                + QTextCodec::codecForName(encoding)->fromUnicode(document));
    }
    QByteArray hidden;
    for (int i = 0; i < 129; ++i)
        hidden += " a" + QByteArray::number(i) + "&#61;''";
    fails("more than 128 attributes",
        "<!DOCTYPE ink [<!ENTITY e \"<x" + hidden + "/>\">]>" + inkOf("&e;<trace>1 2</trace>"));
}

// Qt's reader would go through all namespaces that are open, or all of a document type, at each of many elements.
TEST_F(KvsignInkml, IsNotHeldUpByWhatQtsReaderKeeps)
{
    const auto fails = [&](const char *why, const QByteArray &content) {
        write("hostile.inkml", content);
        const CommandResult result = run({"convert", "hostile.inkml", "out.ink"});
        EXPECT_EQ(result.exitCode, 1) << why;
        EXPECT_TRUE(result.errors.contains(why)) << testing::PrintToString(result);
    };
    const QByteArray nested =
        QByteArray("<a xmlns:b='c'>").repeated(100000) + QByteArray("</a>").repeated(100000) + "<trace>1 2</trace>";
    fails("nested more than 200 deep", inkOf("<annotationXML>" + nested + "</annotationXML>"));
    fails("nested more than 200 deep", inkOf("<trace>" + nested + "</trace>"));
    QByteArray types;
    for (int i = 0; i < 100000; ++i)
        types += " a" + QByteArray::number(i) + " CDATA ''";
    fails("no element begins in the first 32768 bytes",
        "<!DOCTYPE ink [<!ATTLIST trace " + types + ">]>" + inkOf(QByteArray("<trace/>").repeated(100000)));
}

TEST_F(KvsignInkml, TakesAsManyAttributesAsAnyProgramWrites)
{
    QByteArray attributes;
    for (int i = 0; i < 128; ++i)
        attributes += " a" + QByteArray::number(i) + " = '> \"'";
    const QByteArray equals = QByteArray("= ").repeated(1000);
    const QByteArray document = "<!--" + equals + "--><ink><annotation" + attributes + ">" + equals
        + "</annotation><trace" + attributes + ">1 2</trace></ink>";
    const Points expected{{1, 2, kPressure, false, 0, 0}, {1, 2, kPressure, true, 0, 0}};
    areEqual(readText(document), expected);
    for (const char *encoding : {"UTF-16", "UTF-32", "Shift_JIS", "windows-1252"})
        areEqual(readText(QTextCodec::codecForName(encoding)->fromUnicode(
                     "<?xml version='1.0' encoding='" + QByteArray(encoding) + "'?>" + document)),
            expected);
}

} // namespace
