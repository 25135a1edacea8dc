/// @file
/// The cross-reference section that ends a revision, as a table or as a stream.
#ifndef DOCUMENTS_CROSSREFERENCE_H
#define DOCUMENTS_CROSSREFERENCE_H

#include <QtGlobal>

#include <qpdf/QPDFObjectHandle.hh>

#include <map>
#include <string>

namespace documents {

/// Where each object of a revision begins.
using ObjectPlaces = std::map<QPDFObjGen, qint64>;

/// @param trailer without the keys that only a stream's dictionary has
std::string crossReferenceTable(const ObjectPlaces &places, QPDFObjectHandle trailer, qint64 place);

/// The stream's own object number is /Size - 1. It is written at `place` and lists itself.
std::string crossReferenceStream(ObjectPlaces places, QPDFObjectHandle trailer, qint64 place);

} // namespace documents

#endif
