#include "objectdifferences.h"

#include <qpdf/Pipeline.hh>

#include <algorithm>
#include <cmath>
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

/// Numbers to which the objects of a document refer though there are none. A later revision can add such an object and
/// so change what refers to it.
std::set<int> danglingIn(QPDF &pdf, const Table &table)
{
    std::set<QPDFObjGen> all;
    for (const auto &entry : table)
        addReferences(pdf.getObject(entry.first), all);
    addReferences(pdf.getTrailer(), all);
    std::set<int> dangling;
    for (const QPDFObjGen &number : all) {
        if (table.count(number) == 0)
            dangling.insert(number.getObj());
    }
    return dangling;
}

class Counter : public Pipeline
{
public:
    Counter()
        : Pipeline("counter", nullptr)
    {
    }
    void write(unsigned char const *, size_t size) override { count += size; }
    void finish() override { }

    size_t count = 0;
};

/// How many bytes a stream has in the file.
size_t sizeOf(QPDFObjectHandle stream)
{
    Counter counter;
    stream.pipeStreamData(&counter, 0, qpdf_dl_none);
    return counter.count;
}

/// Compares two objects that begin at the same place of a file.
bool isSame(QPDFObjectHandle one, QPDFObjectHandle other)
{
    if (one.getTypeCode() != other.getTypeCode())
        return false;
    if (!one.isStream())
        return one.unparseResolved() == other.unparseResolved();
    return one.getDict().unparse() == other.getDict().unparse() && sizeOf(one) == sizeOf(other);
}

/// Some programs write the numbers of a page's boxes again with fewer decimals.
bool isSameValue(QPDFObjectHandle one, QPDFObjectHandle other)
{
    constexpr double kNothing = 1e-6;
    if (one.unparse() == other.unparse())
        return true;
    if (one.isIndirect() || other.isIndirect() || !one.isArray() || !other.isArray())
        return false;
    const std::vector<QPDFObjectHandle> numbers = one.getArrayAsVector(), others = other.getArrayAsVector();
    return std::equal(numbers.begin(), numbers.end(), others.begin(), others.end(),
        [](QPDFObjectHandle number, QPDFObjectHandle same) {
            return number.isNumber() && same.isNumber() && !number.isIndirect() && !same.isIndirect()
                && std::abs(number.getNumericValue() - same.getNumericValue()) < kNothing;
        });
}

/// Adds what begins in the earlier revision but does not end in it. qpdf has warned of such an object.
void addContinued(QPDF &earlier, QPDF &now, const Table &before, ObjectDifferences &differences)
{
    if (!earlier.anyWarnings())
        return;
    for (const auto &entry : before) {
        if (!isSame(earlier.getObject(entry.first), now.getObject(entry.first)))
            differences.replaced.insert(entry.first);
    }
}

} // namespace

ObjectDifferences differencesOf(QPDF &earlier, QPDF &now)
{
    ObjectDifferences differences;
    const Table before = earlier.getXRefTable(), after = now.getXRefTable();
    std::set<int> numbers;
    for (const auto &entry : before) {
        numbers.insert(entry.first.getObj());
        if (QPDFXRefEntry(entry.second).getType() == 2)
            differences.holders.insert(QPDFObjGen(QPDFXRefEntry(entry.second).getObjStreamNumber(), 0));
        if (after.count(entry.first) == 0)
            differences.removed.insert(entry.first);
    }
    differences.dangling = danglingIn(earlier, before);
    for (const auto &entry : after) {
        const int number = entry.first.getObj();
        const auto old = before.find(entry.first);
        if (old != before.end() && !isSameEntry(old->second, entry.second))
            differences.replaced.insert(entry.first);
        else if (old == before.end() && numbers.count(number) != 0)
            differences.doubled.insert(number);
        else if (old == before.end() && differences.dangling.count(number) != 0)
            differences.areFilled = true;
    }
    addContinued(earlier, now, before, differences);
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
        if (!isSameValue(earlier.getKey(key), now.getKey(key)))
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

bool keepsItems(QPDFObjectHandle before, QPDFObjectHandle after)
{
    const auto textsOf = [](QPDFObjectHandle items) {
        std::vector<std::string> texts;
        for (QPDFObjectHandle item : items.isArray() ? items.getArrayAsVector() : std::vector<QPDFObjectHandle>{items})
            texts.push_back(item.unparse());
        return texts;
    };
    const std::vector<std::string> old = textsOf(before), now = textsOf(after);
    size_t kept = 0;
    for (size_t i = 0; i < now.size() && kept < old.size(); ++i)
        kept += now[i] == old[kept] ? 1 : 0;
    return before.isNull() || kept == old.size();
}

bool keepsEntries(QPDFObjectHandle before, QPDFObjectHandle after)
{
    if (!before.isDictionary() || !after.isDictionary())
        return before.isNull();
    for (const std::string &key : differingKeys(before, after)) {
        QPDFObjectHandle old = before.getKey(key), now = after.getKey(key);
        if (!old.isNull() && (old.isIndirect() || !old.isDictionary() || !keepsEntries(old, now)))
            return false;
    }
    return true;
}

} // namespace documents
