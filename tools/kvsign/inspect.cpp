// kvsign inspect: what a record holds, and what is odd about it.
#include "exitcodes.h"
#include "ink/inkinput.h"
#include "inkstatistics.h"
#include "progress.h"
#include "subcommands.h"
#include "terminal.h"

#include <QDateTime>
#include <QJsonArray>

namespace {

constexpr Option kGapOption{
    "gap g", "MILLISECONDS", "Time between two points of a stroke that counts as a gap.", "50", nullptr};
constexpr Option kInspectOptions[] = {kFromOption, kGapOption, kJsonOption};
constexpr Positional kInspectPositionals[] = {{"INPUT", "What to read; - is standard input.", 1, 1}};

QStringList notes(const InkStatistics &ink)
{
    QStringList notes;
    if (ink.isOnlyADot())
        notes += "it is only a dot";
    if (ink.length == 0)
        notes += "it draws no line";
    if (!ink.isClosed)
        notes += "the last stroke is not closed: the pen was not lifted";
    if (ink.backwards > 0)
        notes += QString("the time goes backwards at %1 points").arg(ink.backwards);
    if (!ink.extent.liesOn(ink.extent.smallestPad()))
        notes += "points lie outside of the writing area of every model";
    return notes;
}

QJsonObject range(int least, int most)
{
    return {{"min", least}, {"max", most}};
}

QJsonObject shown(const InkGap &gap)
{
    return {{"beforePoint", gap.point}, {"milliseconds", gap.milliseconds}};
}

QJsonObject result(const InkInput &input, const InkStatistics &ink)
{
    QJsonArray gaps;
    for (const InkGap &gap : ink.longestGaps)
        gaps.append(shown(gap));
    QJsonObject pressure = range(ink.leastPressure, ink.mostPressure);
    pressure["mean"] = ink.meanPressure;
    return {{"file", input.name()}, {"format", input.format().name}, {"points", ink.points}, {"strokes", ink.strokes},
        {"taps", ink.taps}, {"durationMs", ink.milliseconds}, {"inkLength", ink.length},
        {"x", range(ink.extent.left, ink.extent.right)}, {"y", range(ink.extent.top, ink.extent.bottom)},
        {"pressure", pressure}, {"pauses", ink.pauses}, {"pauseMs", ink.pauseMilliseconds}, {"gaps", ink.gaps},
        {"longestGaps", gaps}, {"written", ink.firstTime}, {"smallestPad", ink.extent.smallestPad().name},
        {"onlyADot", ink.isOnlyADot()}, {"notes", QJsonArray::fromStringList(notes(ink))}};
}

QString seconds(qint64 milliseconds)
{
    return QString::number(static_cast<double>(milliseconds) / 1000, 'f', 3) + " s";
}

void sayRow(const char *title, const QString &text)
{
    say(QString("%1%2").arg(title, -12).arg(text));
}

/// The seconds of a broken record may lie beyond every calendar; QDateTime would then be invalid.
QString momentOf(qint64 time)
{
    constexpr qint64 kFirst = -62135596800, kLast = 253402300799; // the years 1 to 9999
    if (time < kFirst || time > kLast)
        return QString("in second %1, outside of the years 1 to 9999").arg(time);
    return QDateTime::fromSecsSinceEpoch(time).toString(Qt::ISODate).replace('T', ' ');
}

void tellTimes(const InkStatistics &ink)
{
    sayRow("written", momentOf(ink.firstTime));
    sayRow("duration", seconds(ink.milliseconds));
    QString pauses = QString::number(ink.pauses);
    if (ink.pauses > 0)
        pauses += QString(" between strokes, together %1; the longest %2, before point %3")
                      .arg(seconds(ink.pauseMilliseconds), seconds(ink.longestPause.milliseconds),
                          grouped(ink.longestPause.point));
    sayRow("pauses", pauses);
    sayRow("gaps", ink.gaps == 0 ? QString("none inside strokes") : QString("%1 inside strokes").arg(ink.gaps));
    for (const InkGap &gap : ink.longestGaps)
        sayRow("", QString("%1 before point %2").arg(seconds(gap.milliseconds), grouped(gap.point)));
}

void tell(const InkInput &input, const InkStatistics &ink)
{
    const InkExtent &box = ink.extent;
    const ModelRow &pad = box.smallestPad();
    sayRow("file", QString("%1 (%2)").arg(input.name(), input.format().meaning));
    sayRow("points", grouped(ink.points));
    sayRow("strokes",
        ink.taps == 0 ? grouped(ink.strokes) : QString("%1, %2 of them taps").arg(ink.strokes).arg(ink.taps));
    tellTimes(ink);
    sayRow("ink length",
        QString("%1 raw units, %2 times the width of an %3")
            .arg(grouped(qRound64(ink.length)))
            .arg(ink.length / pad.rawSpanX, 0, 'f', 2)
            .arg(pad.name));
    sayRow("box", QString("x %1 to %2, y %3 to %4").arg(box.left).arg(box.right).arg(box.top).arg(box.bottom));
    sayRow("pressure",
        QString("%1 to %2, mean %3").arg(ink.leastPressure).arg(ink.mostPressure).arg(ink.meanPressure, 0, 'f', 0));
    sayRow("fits", QString("%1 is the smallest pad that could have written it").arg(pad.name));
    for (const QString &note : notes(ink))
        sayRow("note", note);
}

int runInspect(const Arguments &arguments)
{
    InkStatistics ink(arguments.wholeNumber(kGapOption, 1, 3600000));
    Progress progress;
    InkInput input(arguments.positionals().first(), arguments.value(kFromOption), progress);
    PointSource &points = input.points("inspecting");
    POINTDATA point;
    while (points.next(point))
        ink.add(point);
    ink.finish();
    progress.clear();
    if (arguments.isSet(kJsonOption))
        sayJson(result(input, ink));
    else
        tell(input, ink);
    return kDone;
}

} // namespace

const Subcommand kInspectSubcommand{"inspect", "Say what a signature's ink is like: points, strokes, times, pressure.",
    kInspectOptions, kInspectPositionals, runInspect, nullptr};
