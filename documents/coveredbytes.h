/// @file
/// Which bytes a signature says it covers, and whether that can be believed.
#ifndef DOCUMENTS_COVEREDBYTES_H
#define DOCUMENTS_COVEREDBYTES_H

#include "openssl_types.h"
#include "source.h"

#include <qpdf/QPDFObjectHandle.hh>

#include <functional>

namespace documents {

struct CoveredBytes
{
    qint64 gapBegin = 0; ///< where the message is, the only bytes that are not covered
    qint64 gapEnd = 0;
    qint64 end = 0;
    QByteArray message; ///< DER
    QString problem; ///< empty when nothing is wrong

    QByteArray digest(const Source &source, const EVP_MD *kind, const std::function<void(qint64)> &progress) const;
};

/// The ranges must begin at 0 and leave out nothing but the hexadecimal digits of the message.
CoveredBytes coveredBytes(const Source &source, QPDFObjectHandle signature);

} // namespace documents

#endif
