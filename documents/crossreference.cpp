#include "crossreference.h"

#include <cstdio>
#include <vector>

namespace documents {

namespace {

/// Groups of consecutive numbers, for each of which a section has one header.
std::vector<std::vector<ObjectPlaces::const_iterator>> runsOf(const ObjectPlaces &places)
{
    std::vector<std::vector<ObjectPlaces::const_iterator>> runs;
    int last = -2;
    for (auto entry = places.begin(); entry != places.end(); ++entry) {
        if (entry->first.getObj() != last + 1)
            runs.emplace_back();
        runs.back().push_back(entry);
        last = entry->first.getObj();
    }
    return runs;
}

std::string line(const char *format, long long first, long long second)
{
    char text[64];
    std::snprintf(text, sizeof text, format, first, second);
    return text;
}

void appendNumber(std::string &bytes, quint64 number, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes += static_cast<char>(number >> (8 * i) & 255);
}

std::string end(qint64 place)
{
    return "startxref\n" + std::to_string(place) + "\n%%EOF\n";
}

} // namespace

std::string crossReferenceTable(const ObjectPlaces &places, QPDFObjectHandle trailer, qint64 place)
{
    std::string text = "xref\n";
    for (const auto &run : runsOf(places)) {
        text += line("%lld %lld\n", run.front()->first.getObj(), static_cast<long long>(run.size()));
        for (const auto &entry : run)
            text += line("%010lld %05lld n \n", entry->second, entry->first.getGen());
    }
    return text + "trailer\n" + trailer.unparse() + "\n" + end(place);
}

std::string crossReferenceStream(ObjectPlaces places, QPDFObjectHandle trailer, qint64 place)
{
    constexpr int kPlaceSize = 8, kGenerationSize = 2;
    const int number = static_cast<int>(trailer.getKey("/Size").getIntValue()) - 1;
    places[QPDFObjGen(number, 0)] = place;
    std::string entries;
    QPDFObjectHandle index = QPDFObjectHandle::newArray();
    for (const auto &run : runsOf(places)) {
        index.appendItem(QPDFObjectHandle::newInteger(run.front()->first.getObj()));
        index.appendItem(QPDFObjectHandle::newInteger(static_cast<long long>(run.size())));
        for (const auto &entry : run) {
            appendNumber(entries, 1, 1);
            appendNumber(entries, static_cast<quint64>(entry->second), kPlaceSize);
            appendNumber(entries, static_cast<quint64>(entry->first.getGen()), kGenerationSize);
        }
    }
    trailer.replaceKey("/Type", QPDFObjectHandle::newName("/XRef"));
    trailer.replaceKey("/W", QPDFObjectHandle::parse("[1 8 2]"));
    trailer.replaceKey("/Index", index);
    trailer.replaceKey("/Length", QPDFObjectHandle::newInteger(static_cast<long long>(entries.size())));
    return std::to_string(number) + " 0 obj\n" + trailer.unparse() + "\nstream\n" + entries + "\nendstream\nendobj\n"
        + end(place);
}

} // namespace documents
