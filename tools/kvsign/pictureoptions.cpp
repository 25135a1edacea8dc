#include "pictureoptions.h"

#include "failure.h"
#include "ink/inkinput.h"
#include "pictures/inkextent.h"
#include "pictures/segments.h"

#include <cmath>

namespace {

constexpr int kMostMargin = 10000;

const ModelRow &modelFor(const QString &name, InkInput &input)
{
    if (name != "auto")
        return *modelOfName(name.toStdString());
    InkExtent extent;
    PointSource &points = input.points("looking at the ink");
    POINTDATA point;
    while (points.next(point))
        extent.add(point);
    return extent.smallestPad();
}

/// The part of the canvas that lines are drawn on, in whole pixels.
QRectF inkedPart(const PictureSettings &settings, InkInput &input)
{
    Segments segments(settings);
    PointSource &points = input.points("looking at the ink");
    QRectF part;
    POINTDATA point;
    while (points.next(point)) {
        const std::optional<Segment> segment = segments.take(point);
        if (!segment.has_value())
            continue;
        const double reach = std::max(segment->width, 1.0) / 2;
        const QRectF box = QRectF(segment->line.p1(), segment->line.p2()).normalized();
        part |= box.adjusted(-reach, -reach, reach, reach);
    }
    if (part.isNull())
        throw failed(QString("%1: there is no line to cut the picture to").arg(input.name()));
    return part.toAlignedRect();
}

} // namespace

ClipMargin clipMargin(const Arguments &arguments)
{
    ClipMargin margin;
    margin.isSet = arguments.isSet(kClipOption);
    if (!margin.isSet)
        return margin;
    const QStringList parts = arguments.value(kClipOption).split(',');
    bool isX = false, isY = false;
    margin.x = parts.first().toInt(&isX);
    margin.y = parts.last().toInt(&isY);
    const bool isRight = parts.size() <= 2 && isX && isY && margin.x >= 0 && margin.y >= 0 && margin.x <= kMostMargin
        && margin.y <= kMostMargin && margin.x + margin.y > 0;
    if (!isRight)
        throw misused(QString("--clip takes a margin of 1 to %1 pixels, or two such as 10,0, not \"%2\"")
                          .arg(kMostMargin)
                          .arg(arguments.value(kClipOption)));
    return margin;
}

QColor colour(const Arguments &arguments, const Option &option)
{
    const QString name = arguments.value(option);
    const QColor colour(name);
    if (!colour.isValid() || colour.alpha() != 255)
        throw misused(QString("--%1 takes a colour's name or #rrggbb, not \"%2\"").arg(namesOf(option).first(), name));
    return colour;
}

int penWidth(const Arguments &arguments, const ModelRow &model)
{
    return arguments.isSet(kPenWidthOption) ? arguments.wholeNumber(kPenWidthOption, 1, 10) : ballpointLevel(model);
}

void checkPictureOptions(const Arguments &arguments)
{
    arguments.choice(kModelOption);
    arguments.number(kScaleOption, 0.01, 100);
    colour(arguments, kColourOption);
    if (arguments.isSet(kBackgroundOption))
        colour(arguments, kBackgroundOption);
    clipMargin(arguments);
    penWidth(arguments, *kModelRows[0]);
}

PictureSettings inkSettings(const Arguments &arguments, InkInput &input, const QString &model, double scale)
{
    PictureSettings settings;
    settings.scale = scale;
    settings.colour = colour(arguments, kColourOption);
    settings.withPressure = !arguments.isSet(kNoPressureOption);
    const ClipMargin margin = clipMargin(arguments);
    settings.model = &modelFor(model, input);
    settings.penWidth = penWidth(arguments, *settings.model);
    const double height = canvasHeight(*settings.model, kCanvasWidth) * settings.scale;
    settings.part = QRectF(0, 0, kCanvasWidth * settings.scale, height).toAlignedRect();
    if (margin.isSet)
        settings.part = inkedPart(settings, input).adjusted(-margin.x, -margin.y, margin.x, margin.y);
    return settings;
}

PictureSettings pictureSettings(const Arguments &arguments, InkInput &input)
{
    PictureSettings settings =
        inkSettings(arguments, input, arguments.choice(kModelOption), arguments.number(kScaleOption, 0.01, 100));
    if (arguments.isSet(kBackgroundOption))
        settings.background = colour(arguments, kBackgroundOption);
    return settings;
}
