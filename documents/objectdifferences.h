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
    std::set<QPDFObjGen> replaced; ///< at another place now, or another where the earlier revision is damaged
    std::set<QPDFObjGen> removed;
    std::set<int> doubled; ///< numbers that another generation has now too: most programs look for the number alone
    std::set<QPDFObjGen> holders; ///< streams of the earlier revision that hold other objects
    std::set<int> dangling; ///< numbers to which the earlier revision refers without having them
    bool areFilled = false; ///< some of them are there now
};

ObjectDifferences differencesOf(QPDF &earlier, QPDF &now);

/// The keys whose values differ between two dictionaries. References with the same object number are equal.
std::set<std::string> differingKeys(QPDFObjectHandle earlier, QPDFObjectHandle now);

/// Whether all items of a list are still there, in their order. One item may be without an array.
bool keepsItems(QPDFObjectHandle before, QPDFObjectHandle after);

/// Whether a dictionary of dictionaries has all of its entries still.
bool keepsEntries(QPDFObjectHandle before, QPDFObjectHandle after);

/// Every object that can be reached from here without going through these keys.
std::set<QPDFObjGen> reachable(QPDFObjectHandle from, const std::set<std::string> &without);

} // namespace documents

#endif
