/// @file
/// Which objects of a document are not what they were in an earlier revision of it.
#ifndef DOCUMENTS_OBJECTDIFFERENCES_H
#define DOCUMENTS_OBJECTDIFFERENCES_H

#include <qpdf/QPDF.hh>

#include <set>
#include <string>

namespace documents {

struct ObjectDifferences
{
    std::set<QPDFObjGen> replaced; ///< at another place now
    std::set<QPDFObjGen> removed;
    std::set<QPDFObjGen> filled; ///< new ones that the earlier revision refers to already, although it has them not
};

ObjectDifferences differencesOf(QPDF &earlier, QPDF &now);

/// The keys of two dictionaries that are not the same. References count as the same when they refer to one number.
std::set<std::string> differingKeys(QPDFObjectHandle earlier, QPDFObjectHandle now);

/// Every object that can be reached from here but through these keys.
std::set<QPDFObjGen> reachable(QPDFObjectHandle from, const std::set<std::string> &without);

} // namespace documents

#endif
