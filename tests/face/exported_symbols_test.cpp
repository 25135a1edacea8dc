// What the built library exports, what its map lists and what its headers declare are the same names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Names = std::set<std::string>;

std::string outputOf(const std::string &command)
{
    std::string output;
    FILE *const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return output;
    char buffer[4096];
    for (size_t count = 0; (count = fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

std::string contentOf(const std::string &fileName)
{
    std::ifstream file(fileName);
    EXPECT_TRUE(file) << fileName;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The words of a C text, with the character that follows each.
std::vector<std::pair<std::string, char>> wordsOf(const std::string &text)
{
    std::vector<std::pair<std::string, char>> words;
    std::string word;
    for (const char c : text + ' ') {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_') {
            word += c;
        } else if (!word.empty()) {
            words.emplace_back(word, c);
            word.clear();
        }
    }
    return words;
}

/// "KVS300_Clear(" and the like: family, underscore, opening bracket.
Names declaredFunctions(const std::string &text)
{
    Names names;
    for (const auto &[word, next] : wordsOf(text)) {
        if (next == '(' && word.rfind("KV", 0) == 0 && word.size() > 3 && std::isdigit(word[3]) != 0)
            names.insert(word);
    }
    return names;
}

/// The last word of "extern KVSIGNPADSDK_EXPORT type name".
Names declaredGlobals(const std::string &text)
{
    Names names;
    const auto words = wordsOf(text);
    for (size_t i = 0; i + 3 < words.size(); ++i) {
        if (words[i].first == "extern" && words[i + 1].first == "KVSIGNPADSDK_EXPORT")
            names.insert(words[i + 3].first);
    }
    return names;
}

/// Functions and data separately, by the letter that nm gives them.
Names exported(const char *kinds)
{
    std::istringstream lines(outputOf("nm -D --defined-only " KV_LIBRARY));
    Names names;
    std::string address;
    std::string kind;
    for (std::string name; lines >> address >> kind >> name;) {
        if (std::string(kinds).find(kind) != std::string::npos)
            names.insert(name);
    }
    return names;
}

#define KV_FUNCTION(family, operation) #family "_" #operation,
const Names kFunctions = {
#include "exportednames.inl"
};
#undef KV_FUNCTION

const Names kGlobals = {"g_bEnableLog", "g_cKeyBuf", "g_cValueBuf", "g_wszKeyBuf", "g_wszValueBuf",
    "g_cKeyBuf_InThread", "g_cValueBuf_InThread"};

TEST(ExportedSymbols, AreTheFunctionsAndTheLogsGlobals)
{
    EXPECT_EQ(exported("T"), kFunctions);
    EXPECT_EQ(exported("BD"), kGlobals);
}

TEST(ExportedSymbols, AreNothingElse)
{
    EXPECT_EQ(exported("ABbCDdGgiNnpRrSsTtuUvVwW-?").size(), 156u + 7u);
    const std::string versions = outputOf("readelf --version-info --wide " KV_LIBRARY);
    EXPECT_EQ(versions.find("Version definition"), std::string::npos) << "names are plain, without a version";
}

TEST(ExportedSymbols, AreCountedByFamily)
{
    const std::map<std::string, int> expected = {
        {"KVS300", 31}, {"KVS210", 35}, {"KVS310X", 34}, {"KVR800", 28}, {"KVM450", 28}};
    std::map<std::string, int> counts;
    for (const std::string &name : exported("T"))
        ++counts[name.substr(0, name.find('_'))];
    EXPECT_EQ(counts, expected);
}

TEST(ExportedSymbols, AreListedInTheMapInAlphabeticalOrder)
{
    Names both = kFunctions;
    both.insert(kGlobals.begin(), kGlobals.end());
    std::vector<std::string> listed;
    for (const auto &[word, next] : wordsOf(contentOf(KV_SOURCES "/kvsignpadsdk.map"))) {
        if (next == ';')
            listed.push_back(word);
    }
    EXPECT_EQ(Names(listed.begin(), listed.end()), both);
    EXPECT_EQ(listed.size(), both.size()) << "none twice";
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
}

TEST(ExportedSymbols, AreDeclaredInTheHeaders)
{
    const std::string functions = contentOf(KV_SOURCES "/kvsignpadsdk.h");
    EXPECT_EQ(declaredFunctions(functions), kFunctions);
    const std::string log = contentOf(KV_SOURCES "/LogFileUtil.h");
    EXPECT_EQ(declaredGlobals(functions + log), kGlobals);
}

#ifndef KV_ADDRESS_SANITIZED // which puts a margin behind each
TEST(ExportedSymbols, TheBuffersHaveTheirSizes)
{
    const std::map<std::string, long> expected = {{"g_bEnableLog", 1}, {"g_cKeyBuf", 256}, {"g_cValueBuf", 256},
        {"g_wszKeyBuf", 1024}, {"g_wszValueBuf", 1024}, {"g_cKeyBuf_InThread", 256}, {"g_cValueBuf_InThread", 256}};
    std::istringstream lines(outputOf("nm -D -S --defined-only " KV_LIBRARY));
    std::map<std::string, long> sizes;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string address;
        std::string size;
        std::string kind;
        std::string name;
        fields >> address >> size >> kind >> name;
        if (name.rfind("g_", 0) == 0)
            sizes[name] = std::stol(size, nullptr, 16);
    }
    EXPECT_EQ(sizes, expected);
}
#endif

TEST(ExportedSymbols, TheLibrarysNameForTheLoaderEndsIn1)
{
    const std::string dynamic = outputOf("readelf -d --wide " KV_LIBRARY);
    EXPECT_NE(dynamic.find("Library soname: [libkvsignpadsdk.so.1]"), std::string::npos) << dynamic;
    EXPECT_EQ(dynamic.find("libkvsignpaddrv"), std::string::npos) << "the driver is loaded while the program runs";
}

} // namespace
