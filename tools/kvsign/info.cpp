// kvsign info: versions, and what a pad says about itself.
#include "failure.h"
#include "headlesspad.h"
#include "pictureoptions.h"
#include "subcommands.h"
#include "terminal.h"

#include <QLibraryInfo>
#include <QRegularExpression>

namespace {

constexpr Option kInfoOptions[] = {kModelOption, kDriverOption, kUnsafeDriverOption, kJsonOption};

QString libraryVersion()
{
    char about[256] = {};
    kPadFamilies[0].GetAboutInfo(kPadFamilies[0].type, about);
    static const QRegularExpression version("Version : (\\S+)");
    return version.match(QString::fromLocal8Bit(about)).captured(1);
}

template <class Item>
Item item(const HeadlessPad &pad, int index)
{
    Item answer = {};
    if (pad->GetDeviceInfo(pad->type, index, &answer) != ARI_SUCCESS)
        throw failed(QString("the library does not answer item %1 about the %2").arg(index).arg(pad->model));
    return answer;
}

struct Text
{
    char characters[32];
};

QJsonObject axis(const HeadlessPad &pad, int index)
{
    const auto range = item<_tagKVAXIS>(pad, index);
    return {{"min", range.nAXMin}, {"max", range.nAXMax}};
}

QJsonObject padInfo(const Arguments &arguments)
{
    const HeadlessPad pad(arguments.choice(kModelOption), {});
    const auto driver = item<_tagKVSDKVERSION>(pad, DIID_GET_DRV_VER);
    QJsonObject info{{"model", pad->model}, {"vendor", item<Text>(pad, DIID_GET_VENDOR).characters},
        {"product", item<Text>(pad, DIID_GET_PRODUCT).characters}, {"connected", item<bool>(pad, DIID_GET_STATUS)},
        {"version", pad.text(pad->GetHWVersion)}, {"padId", pad.text(pad->GetHWPadID)}};
    if (pad->GetHWPenID != nullptr)
        info["penId"] = pad.text(pad->GetHWPenID);
    info["x"] = axis(pad, DIID_GET_AXIS_X);
    info["y"] = axis(pad, DIID_GET_AXIS_Y);
    info["pressure"] = QJsonObject{{"min", 0}, {"max", item<int>(pad, DIID_GET_PRESSURE)}};
    info["driver"] = QString("%1.%2").arg(driver.nMajorVersion).arg(driver.nMinorVersion);
    info["fingerprint"] = pad->row.hasFingerprintSensor;
    return info;
}

QString shown(const QJsonValue &value)
{
    if (value.isBool())
        return value.toBool() ? "yes" : "no";
    if (value.isObject())
        return QString("%1 to %2").arg(value["min"].toInt()).arg(value["max"].toInt());
    return value.toString();
}

void tell(const QJsonObject &versions, const QJsonObject &pad)
{
    struct Line
    {
        const char *key;
        const char *title;
    };
    static constexpr Line kLines[] = {{"kvsign", "kvsign"}, {"library", "library"}, {"qt", "Qt"}, {"model", "model"},
        {"vendor", "vendor"}, {"product", "product"}, {"connected", "connected"}, {"version", "version"},
        {"padId", "pad ID"}, {"penId", "pen ID"}, {"x", "x"}, {"y", "y"}, {"pressure", "pressure"},
        {"driver", "driver"}, {"fingerprint", "fingerprint"}};
    for (const Line &line : kLines) {
        const QJsonValue value = versions.contains(line.key) ? versions[line.key] : pad[line.key];
        if (!value.isUndefined())
            say(QString("%1%2").arg(line.title, -13).arg(shown(value)));
    }
}

QJsonObject versions()
{
    return {{"kvsign", KVSIGN_VERSION}, {"library", libraryVersion()}, {"qt", QLibraryInfo::version().toString()}};
}

/// The versions are printed even when there is no pad.
[[noreturn]] void failWithVersions(Failure failure, bool asJson)
{
    if (!asJson)
        tell(versions(), {});
    failure.details = versions();
    failure.details["pad"] = QJsonValue();
    throw Failure(failure);
}

int runInfo(const Arguments &arguments)
{
    arguments.choice(kModelOption);
    const bool asJson = arguments.isSet(kJsonOption);
    QJsonObject pad, answer = versions();
    try {
        enterDriverDirectory(arguments);
        refuseUnsafeDriver(arguments);
        pad = padInfo(arguments);
    } catch (const Failure &failure) {
        failWithVersions(failure, asJson);
    }
    answer["pad"] = pad;
    if (asJson)
        sayJson(answer);
    else
        tell(answer, pad);
    return kDone;
}

} // namespace

const Subcommand kInfoSubcommand{
    "info", "Show versions, and what the pad says about itself.", kInfoOptions, {}, runInfo, nullptr};
