// kvsign replay: shows a signature as it was written.
#include "replay/replay.h"
#include "display.h"
#include "failure.h"
#include "ink/inkinput.h"
#include "pictureoptions.h"
#include "progress.h"
#include "subcommands.h"
#include "terminal.h"

namespace {

constexpr Option kSpeedOption{
    "speed", "FACTOR", "How fast: 2 is twice as fast as the signer, max without waiting.", "1", "0.5 1 2 10 max"};
constexpr Option kWindowOption{"window", nullptr, "Show the ink in a window.", nullptr, nullptr};
constexpr Option kCloseOption{"close", nullptr, "With --window: close it at the end.", nullptr, nullptr};
constexpr Option kFramesOption{
    "frames", "DIRECTORY", "Write pictures into this directory: frame-00001.png and so on.", nullptr, kDirectories};
constexpr Option kFpsOption{
    "fps", "FRAMES", "With --frames: pictures a second of the replay, 0.1 to 1000.", "25", nullptr};
constexpr Option kReplayOptions[] = {kFromOption, kSpeedOption, kWindowOption, kCloseOption, kFramesOption, kFpsOption,
    kModelOption, kScaleOption, kPenWidthOption, kNoPressureOption, kColourOption, kBackgroundOption, kClipOption,
    kJsonOption};
constexpr Positional kReplayPositionals[] = {{"INPUT", "What to read; - is standard input.", 1, 1}};

double speed(const Arguments &arguments)
{
    return arguments.value(kSpeedOption) == "max" ? 0 : arguments.number(kSpeedOption, 0.001, 1000000);
}

void refuseWhatDoesNothing(const Arguments &arguments)
{
    static constexpr Option kOfWindow[] = {kCloseOption};
    static constexpr Option kOfFrames[] = {kFpsOption};
    static constexpr Option kOfText[] = {kJsonOption};
    static constexpr Option kOfPictures[] = {
        kModelOption, kScaleOption, kPenWidthOption, kNoPressureOption, kColourOption, kBackgroundOption, kClipOption};
    const bool inWindow = arguments.isSet(kWindowOption), asFrames = arguments.isSet(kFramesOption);
    if (inWindow && asFrames)
        throw misused("--window and --frames do not go together");
    if (!inWindow)
        arguments.refuseIdle(kOfWindow, "without --window");
    if (!asFrames)
        arguments.refuseIdle(kOfFrames, "without --frames");
    if (inWindow)
        arguments.refuseIdle(kOfText, "beside --window");
    if (!inWindow && !asFrames)
        arguments.refuseIdle(kOfPictures, "without --window or --frames");
}

/// Called before the display is opened, so that a wrong option is reported even where there is no display.
void checkReplayOptions(const Arguments &arguments)
{
    speed(arguments);
    arguments.number(kFpsOption, 0.1, 1000);
    checkPictureOptions(arguments);
    refuseWhatDoesNothing(arguments);
}

ApplicationKind applicationToReplayIn(const Arguments &arguments)
{
    checkReplayOptions(arguments);
    if (!arguments.isSet(kWindowOption))
        return ApplicationKind::Plain;
    needDisplay();
    return ApplicationKind::Windows;
}

int runReplay(const Arguments &arguments)
{
    const double factor = speed(arguments);
    const double framesPerSecond = arguments.number(kFpsOption, 0.1, 1000);
    Progress progress;
    InkInput input(arguments.positionals().first(), arguments.value(kFromOption), progress);
    if (!arguments.isSet(kWindowOption) && !arguments.isSet(kFramesOption)) {
        replayAsNumbers(input.points("replaying"), factor, arguments.isSet(kJsonOption));
        return kDone;
    }
    const PictureSettings settings = pictureSettings(arguments, input);
    if (arguments.isSet(kWindowOption)) {
        replayInWindow(input, settings, factor, arguments.isSet(kCloseOption));
        return kDone;
    }
    const QString directory = arguments.value(kFramesOption);
    const int frames = replayAsFrames(input, settings, factor, framesPerSecond, directory);
    progress.clear();
    if (arguments.isSet(kJsonOption))
        sayJson({{"frames", frames}, {"directory", directory}, {"width", settings.size().width()},
            {"height", settings.size().height()}});
    else
        say(QString("%1 pictures in %2").arg(frames).arg(directory));
    return kDone;
}

} // namespace

const Subcommand kReplaySubcommand{"replay", "Write a signature again, as numbers, in a window or as pictures.",
    kReplayOptions, kReplayPositionals, runReplay, applicationToReplayIn};
