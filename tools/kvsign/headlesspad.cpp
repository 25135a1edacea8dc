#include "headlesspad.h"

#include "driverfile.h"
#include "failure.h"
#include "pictures/pictures.h"
#include "simulatorplace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

bool opens(const PadFamily &family, QSize canvas)
{
    const int width = canvas.isEmpty() ? kCanvasWidth : canvas.width();
    const int height = canvas.isEmpty() ? canvasHeight(family.row, kCanvasWidth) : canvas.height();
    return family.InitialDevice(family.type, nullptr, 0, 0, width, height);
}

QFileInfo driverFile()
{
    return {QDir::current(), driverfile::kName};
}

/// Loading a named pipe would wait for its other end, once for each model.
void refuseNoFile()
{
    const QFileInfo driver = driverFile();
    if (driver.exists() && !driver.isFile())
        throw Failure{kNoPad, QString("the driver %1 is no regular file").arg(driver.absoluteFilePath())};
}

Failure noPad(const QString &model)
{
    const QFileInfo driver = driverFile();
    const QString what = driver.exists()
        ? QString("the driver %1 opens no %2").arg(driver.absoluteFilePath(), model == "auto" ? "pad" : model + " pad")
        : QString("there is no pad driver %1").arg(driver.absoluteFilePath());
    return {kNoPad, what + "; \"kvsign doctor\" tells more"};
}

} // namespace

void enterDriverDirectory(const Arguments &arguments)
{
    const QString directory = arguments.value(kDriverOption);
    if (directory.isEmpty())
        return;
    const std::optional<std::string> folder = simulatorplace::folderOf(QFile::encodeName(directory).toStdString());
    if (!folder.has_value())
        throw Failure{kNoPad, simulatorplace::kMissing};
    if (!QDir::setCurrent(QFile::decodeName(folder->c_str())))
        throw Failure{kNoPad, QString("there is no directory %1 with a pad driver").arg(directory)};
}

void refuseUnsafeDriver(const Arguments &arguments)
{
    const std::optional<driverfile::Weakness> weakness = driverfile::weaknessIn(".");
    if (weakness.has_value() && !arguments.isSet(kUnsafeDriverOption))
        throw failed(QString("the driver is not used, for others could replace it: %1; or say --unsafe-driver")
                         .arg(QFile::decodeName(weakness->sentence().c_str())));
}

HeadlessPad::HeadlessPad(const QString &model, QSize canvas)
{
    refuseNoFile();
    for (const PadFamily &family : kPadFamilies) {
        const bool isWanted = model == "auto" || model == family.model;
        if (m_family == nullptr && isWanted && opens(family, canvas))
            m_family = &family;
    }
    if (m_family == nullptr)
        throw noPad(model);
}

HeadlessPad::~HeadlessPad()
{
    m_family->UnInitialDevice(m_family->type);
}

QString HeadlessPad::text(decltype(PadFamily::GetHWPadID) query) const
{
    char characters[128] = {};
    if (query == nullptr || query(m_family->type, characters, static_cast<int>(sizeof characters) - 1) != ARI_SUCCESS)
        return {};
    return QString::fromLocal8Bit(characters);
}
