// kvsign convert: ink from one format into another, or into a picture.
#include "failure.h"
#include "ink/inkinput.h"
#include "outputfile.h"
#include "pictureoptions.h"
#include "progress.h"
#include "subcommands.h"
#include "terminal.h"

#include <QFileInfo>

#include <optional>

namespace {

constexpr Option kToOption{"to t", "FORMAT",
    "Format of the output: ink, csv, json, inkml, png, jpg, bmp, svg or pdf. Without it the suffix says it.", nullptr,
    "ink csv json inkml png jpg bmp svg pdf"};
constexpr Option kConvertDpiOption{
    "dpi", "DPI", "Dots per inch of pictures in print, 1 to 9600.", "300", "150 300 600"};
constexpr Option kConvertOptions[] = {kFromOption, kToOption, kModelOption, kScaleOption, kPenWidthOption,
    kNoPressureOption, kColourOption, kBackgroundOption, kClipOption, kConvertDpiOption, kJsonOption};
constexpr Option kPictureOptions[] = {kModelOption, kScaleOption, kPenWidthOption, kNoPressureOption, kColourOption,
    kBackgroundOption, kClipOption, kConvertDpiOption};
constexpr Positional kConvertPositionals[] = {
    {"INPUT", "What to read; - is standard input.", 1, 1}, {"OUTPUT", "What to write; - is standard output.", 1, 1}};

const InkFormat &outputFormat(const Arguments &arguments, const QString &path)
{
    const InkFormat *format =
        arguments.isSet(kToOption) ? formatOfName(arguments.value(kToOption)) : formatOfPath(path);
    if (format == nullptr)
        throw misused(QString("%1: say with --to which of the formats %2 it is to have")
                          .arg(path == "-" ? "standard output" : path, formatNames().join(", ")));
    return *format;
}

/// Counts the points that pass.
class Counter : public PointSink
{
public:
    explicit Counter(PointSink &sink)
        : m_sink(sink)
    {
    }

    void put(const POINTDATA &point) override
    {
        ++m_points;
        m_sink.put(point);
    }
    void finish() override { m_sink.finish(); }
    qint64 points() const { return m_points; }

private:
    PointSink &m_sink;
    qint64 m_points = 0;
};

QJsonObject summary(const InkInput &input, const OutputFile &output, const InkFormat &format,
    const std::optional<PictureSettings> &settings, qint64 points)
{
    QJsonObject result{{"from", input.format().name}, {"to", format.name}, {"points", points}, {"file", output.name()},
        {"bytes", output.size()}};
    if (settings.has_value()) {
        result["model"] = settings->model->name;
        result["width"] = settings->size().width();
        result["height"] = settings->size().height();
    }
    return result;
}

int runConvert(const Arguments &arguments)
{
    const QString path = arguments.positionals().at(1);
    const InkFormat &format = outputFormat(arguments, path);
    const int dpi = arguments.wholeNumber(kConvertDpiOption, 1, 9600);
    checkPictureOptions(arguments);
    if (format.draw == nullptr)
        arguments.refuseIdle(kPictureOptions, "when no picture is drawn");
    if (arguments.isSet(kJsonOption) && path == "-")
        throw misused("--json and an output on standard output do not go together");
    Progress progress;
    InkInput input(arguments.positionals().at(0), arguments.value(kFromOption), progress);
    // Only for pictures: finding the model or the cut can take reading all ink first, and fails where there is no line.
    std::optional<PictureSettings> settings;
    if (format.draw != nullptr) {
        settings = pictureSettings(arguments, input);
        settings->dpi = dpi;
    }
    OutputFile output(path);
    qint64 points = 0;
    {
        const std::unique_ptr<PointSink> sink =
            settings.has_value() ? format.draw(output.device(), *settings) : format.write(output.device());
        Counter counter(*sink);
        pour(input.points("converting"), counter);
        points = counter.points();
    }
    progress.clear();
    OutputFile::commit({&output}, [&] {
        if (arguments.isSet(kJsonOption))
            sayJson(summary(input, output, format, settings, points));
    });
    return kDone;
}

} // namespace

const Subcommand kConvertSubcommand{
    "convert", "Convert ink between formats, or draw it.", kConvertOptions, kConvertPositionals, runConvert, nullptr};
