/// @file
/// What ends a subcommand before its time.
#ifndef FAILURE_H
#define FAILURE_H

#include "exitcodes.h"

#include <QJsonObject>
#include <QString>

struct Failure
{
    ExitCode code;
    QString message;
    QJsonObject details = {}; ///< further members of the answer in JSON
};

inline Failure failed(const QString &message)
{
    return {kFailed, message};
}

inline Failure misused(const QString &message)
{
    return {kUsage, message};
}

#endif
