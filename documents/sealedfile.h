/// @file
/// The file specification that carries sealed bytes in a document.
#ifndef DOCUMENTS_SEALEDFILE_H
#define DOCUMENTS_SEALEDFILE_H

#include "revision.h"

namespace documents {

QPDFObjectHandle sealedFile(Revision &revision, const QByteArray &sealed);

} // namespace documents

#endif
