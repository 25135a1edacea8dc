#include "objectdifferences.h"

#include <vector>

namespace documents {

namespace {

using Table = std::map<QPDFObjGen, QPDFXRefEntry>;

bool isSameEntry(const QPDFXRefEntry &one, const QPDFXRefEntry &other)
{
    if (one.getType() != other.getType())
        return false;
    if (one.getType() == 1)
        return one.getOffset() == other.getOffset();
    return one.getType() != 2
        || (one.getObjStreamNumber() == other.getObjStreamNumber()
            && one.getObjStreamIndex() == other.getObjStreamIndex());
}

std::vector<QPDFObjectHandle> partsOf(QPDFObjectHandle object, const std::set<std::string> &without)
{
    if (object.isArray())
        return object.getArrayAsVector();
    if (object.isStream())
        object = object.getDict();
    std::vector<QPDFObjectHandle> parts;
    if (object.isDictionary()) {
        for (const auto &entry : object.getDictAsMap()) {
            if (without.count(entry.first) == 0)
                parts.push_back(entry.second);
        }
    }
    return parts;
}

/// Adds the references that stand directly in an object.
void addReferences(QPDFObjectHandle object, std::set<QPDFObjGen> &found)
{
    std::vector<QPDFObjectHandle> waiting = partsOf(object, {});
    while (!waiting.empty()) {
        const QPDFObjectHandle part = waiting.back();
        waiting.pop_back();
        if (part.isIndirect()) {
            found.insert(part.getObjGen());
            continue;
        }
        for (const QPDFObjectHandle &inner : partsOf(part, {}))
            waiting.push_back(inner);
    }
}

/// References to objects that do not exist. A later revision can add such an object and so change what refers to it.
std::set<QPDFObjGen> danglingIn(QPDF &pdf, const Table &table)
{
    std::set<QPDFObjGen> all, dangling;
    for (const auto &entry : table)
        addReferences(pdf.getObject(entry.first), all);
    addReferences(pdf.getTrailer(), all);
    for (const QPDFObjGen &number : all) {
        if (table.count(number) == 0)
            dangling.insert(number);
    }
    return dangling;
}

} // namespace

ObjectDifferences differencesOf(QPDF &earlier, QPDF &now)
{
    ObjectDifferences differences;
    const Table before = earlier.getXRefTable(), after = now.getXRefTable();
    bool hasNew = false;
    for (const auto &entry : after) {
        const auto old = before.find(entry.first);
        if (old == before.end())
            hasNew = true;
        else if (!isSameEntry(old->second, entry.second))
            differences.replaced.insert(entry.first);
    }
    for (const auto &entry : before) {
        if (after.count(entry.first) == 0)
            differences.removed.insert(entry.first);
    }
    if (hasNew) {
        for (const QPDFObjGen &number : danglingIn(earlier, before)) {
            if (after.count(number) != 0)
                differences.filled.insert(number);
        }
    }
    return differences;
}

std::set<std::string> differingKeys(QPDFObjectHandle earlier, QPDFObjectHandle now)
{
    std::set<std::string> keys;
    for (const auto &entry : earlier.getDictAsMap())
        keys.insert(entry.first);
    for (const auto &entry : now.getDictAsMap())
        keys.insert(entry.first);
    std::set<std::string> differing;
    for (const std::string &key : keys) {
        if (earlier.getKey(key).unparse() != now.getKey(key).unparse())
            differing.insert(key);
    }
    return differing;
}

std::set<QPDFObjGen> reachable(QPDFObjectHandle from, const std::set<std::string> &without)
{
    std::set<QPDFObjGen> seen;
    std::vector<QPDFObjectHandle> waiting{from};
    while (!waiting.empty()) {
        const QPDFObjectHandle object = waiting.back();
        waiting.pop_back();
        if (object.isIndirect() && !seen.insert(object.getObjGen()).second)
            continue;
        for (const QPDFObjectHandle &part : partsOf(object, without))
            waiting.push_back(part);
    }
    return seen;
}

} // namespace documents
