/// @file
/// Which objects of a document differ from those of an earlier revision.
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
    std::set<QPDFObjGen> filled; ///< new objects to which the earlier revision refers without having them
};

ObjectDifferences differencesOf(QPDF &earlier, QPDF &now);

/// The keys whose values differ between two dictionaries. References with the same object number are equal.
std::set<std::string> differingKeys(QPDFObjectHandle earlier, QPDFObjectHandle now);

/// Every object that can be reached from here without going through these keys.
std::set<QPDFObjGen> reachable(QPDFObjectHandle from, const std::set<std::string> &without);

} // namespace documents

#endif
