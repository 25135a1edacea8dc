#include "fingerprintplacement.h"

#include "fingerprintinternals.h"

#include <QApplication>
#include <QThread>

FingerprintInternals::FingerprintInternals() = default;
FingerprintInternals::~FingerprintInternals() = default;

namespace fingerprintplacement {

bool canHaveWidgets()
{
    const auto *application = qobject_cast<QApplication *>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread();
}

} // namespace fingerprintplacement
