// kvsign doctor: checks everything that signing needs, and says how to mend it.
#include "doctor/findings.h"
#include "failure.h"
#include "headlesspad.h"
#include "pictureoptions.h"
#include "subcommands.h"
#include "terminal.h"

#include <QJsonArray>

#include <algorithm>

namespace {

constexpr Option kDoctorOptions[] = {kModelOption, kDriverOption, kUnsafeDriverOption, kJsonOption};

struct HealthName
{
    Health health;
    const char *shown;
    const char *inJson;
};

constexpr HealthName kHealthNames[] = {
    {Health::Good, "ok", "ok"}, {Health::Weak, "note", "note"}, {Health::Bad, "WRONG", "wrong"}};

const HealthName &nameOf(Health health)
{
    return *std::find_if(std::begin(kHealthNames), std::end(kHealthNames),
        [&](const HealthName &name) { return name.health == health; });
}

void tell(const Findings &findings)
{
    for (const Finding &finding : findings) {
        say(QString("%1 %2: %3").arg(nameOf(finding.health).shown, -5).arg(finding.subject, finding.what));
        if (!finding.cure.isEmpty())
            say(QString("      cure: %1").arg(finding.cure));
    }
}

QJsonObject result(const Findings &findings, bool isWell)
{
    QJsonArray list;
    for (const Finding &finding : findings) {
        QJsonObject item{
            {"state", nameOf(finding.health).inJson}, {"subject", finding.subject}, {"finding", finding.what}};
        if (!finding.cure.isEmpty())
            item["cure"] = finding.cure;
        list.append(item);
    }
    return {{"well", isWell}, {"findings", list}};
}

ApplicationKind applicationToLookWith(const Arguments &)
{
    return canDrawOffscreen() ? ApplicationKind::Drawing : ApplicationKind::Plain;
}

bool lookAtDriverDirectory(Findings &findings, const Arguments &arguments)
{
    try {
        enterDriverDirectory(arguments);
        return true;
    } catch (const Failure &failure) {
        const QStringList parts = failure.message.split("; cure: ");
        findings.push_back(bad("driver file", parts[0], parts.value(1, "say --driver with the directory that has it")));
        return false;
    }
}

int runDoctor(const Arguments &arguments)
{
    const QString model = arguments.choice(kModelOption);
    Findings findings;
    lookAtLibrary(findings);
    lookAtQt(findings);
    lookAtImageFormats(findings);
    lookAtFonts(findings);
    lookAtDisplay(findings);
    lookAtPermissions(findings);
    if (lookAtDriverDirectory(findings, arguments) && lookAtDriver(findings, arguments.isSet(kUnsafeDriverOption)))
        lookAtPad(findings, model);
    else
        findings.push_back(bad("pad", "cannot be asked without a driver", "cure the driver first"));
    const bool isWell = std::none_of(
        findings.begin(), findings.end(), [](const Finding &finding) { return finding.health == Health::Bad; });
    if (arguments.isSet(kJsonOption))
        sayJson(result(findings, isWell));
    else
        tell(findings);
    return isWell ? kDone : kFailed;
}

} // namespace

const Subcommand kDoctorSubcommand{"doctor", "Look at everything that signing needs, and say how to mend it.",
    kDoctorOptions, {}, runDoctor, applicationToLookWith};
