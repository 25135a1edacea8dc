/// @file
/// Every failure that the exported functions document, reached at least once on every pad that has the function.
#include "exportedcalls_table.h"
#include "faultrun.h"

#include <cstdio>
#include <set>

namespace {

/// The documented failures, by function. A function without any stands here too, so that all 156 are counted.
struct Documented
{
    const char *function;
    Pads pads;
    std::vector<const char *> failures;
};

constexpr const char *kType = "wrong device type";
constexpr const char *kNone = "no pad open";
constexpr const char *kRefused = "driver refuses";
constexpr const char *kGone = "pad unplugged";

const Documented kDocumented[] = {
    {"InitialDevice", Pads::All,
        {kType, "no driver file", "driver file broken", "operation missing", "driver answers -1", "driver answers -2",
            "driver answers -3", "driver answers -4", "driver answers -5", "driver answers -6", "driver answers -7",
            kGone, "another model", "no version text", "parent of another thread"}},
    {"UnInitialDevice", Pads::All, {kType}},
    {"OpenLCD", Pads::Screen, {kType, kNone, "operation missing", kRefused, kGone}},
    {"Clear", Pads::All, {kType, kNone, kRefused, kGone}},
    {"GetHWPenID", Pads::Screen, {kType, kNone, kRefused, kGone}},
    {"GetHWPadID", Pads::All, {kType, kNone, kRefused, kGone}},
    {"GetHWVersion", Pads::All, {kType, kNone, kRefused, kGone}},
    {"DisplayHWVersion", Pads::Screen, {kType, kNone, kRefused, kGone}},
    {"SetPenStyle", Pads::All, {kType, kNone}},
    {"SetPenStyle", Pads::Screen, {kRefused, kGone}},
    {"SetPenWidth", Pads::All, {kType, kNone, "width 0", "width 11"}},
    {"SetPenColor", Pads::All, {kType, kNone}},
    {"SignPadEventCallback", Pads::All, {kType, kNone}},
    {"GetDeviceConfirmOrCancelKeyStatus", Pads::All, {kType, kNone, "no key pressed"}},
    {"GetTotalInkPointsNumber", Pads::All, {kType, kNone, "no ink"}},
    {"GetInkPointData", Pads::All, {kType, kNone, "no ink", "index negative", "index too large"}},
    {"GetInkPointDataTimeInfo", Pads::All, {kType, kNone, "no ink", "index negative", "index too large"}},
    {"FreeInkPointDataTimeInfo", Pads::All, {kType, kNone, "null"}},
    {"SaveDrawingImage", Pads::All,
        {kType, kNone, "unknown type", "no ink", "unknown suffix", "path not writable", "PDF not writable",
            "nothing left after clipping"}},
    {"SaveDrawingImage", Pads::S310X, {"neither ink nor finger"}},
    {"SetSaveClipImageMargin", Pads::All, {kType, kNone, "x negative", "y negative"}},
    {"GetDeviceInfo", Pads::All, {kType, kNone, "item 0", "item 8", "null"}},
    {"AboutBox", Pads::All, {}},
    {"GetAboutInfo", Pads::All, {kType, "null"}},
    {"Base64Encode", Pads::All,
        {kType, kNone, "type 0", "type 4", "type 5", "type 7", "no ink", "nothing left after clipping"}},
    {"Base64Encode", Pads::S310X, {"record of a finger alone", "neither ink nor finger"}},
    {"Base64EncodeFree", Pads::All, {kType, kNone, "null"}},
    {"Base64EncodeEx", Pads::All,
        {kType, kNone, "type 0", "type 4", "type 5", "type 7", "no ink", "nothing left after clipping"}},
    {"Base64EncodeEx", Pads::S310X, {"finger alone"}},
    {"Base64EncodeExFree", Pads::All, {kType, kNone, "null"}},
    {"Base64Decode", Pads::All,
        {kType, kNone, "type 0", "type 4", "type 5", "type 7", "null", "empty", "no image", "another format",
            "path not writable"}},
    {"GetTotalDecodeInkPointsNumber", Pads::All, {kType, kNone, "nothing decoded", "text too short"}},
    {"GetDecodeInkPointData", Pads::All,
        {kType, kNone, "item 0", "item 4", "nothing decoded", "index negative", "index too large"}},
    {"GetSVGImageBase64Data", Pads::All, {kType, kNone, "no ink", "temporary file blocked"}},
    {"GetSVGImageBase64Data", Pads::S310X, {"finger alone"}},
    {"FreeSVGImageBase64Data", Pads::All, {kType, kNone, "null"}},
    {"SetRealTimeSignBase64DataCallback", Pads::S210, {kType, kNone, "null", "type 1", "type 4"}},
    {"InitialWPSSignCanvas", Pads::S210, {kType, kNone, "width 0", "height 0"}},
    {"InitialWPSSignCanvas", Pads::S210Widget, {"pad in a widget"}},
    {"WPSBase64Encode", Pads::S210, {kType, kNone, "type 1", "type 6"}},
    {"WPSBase64Encode", Pads::S210Widget, {"pad in a widget"}},
    {"WPSBase64Encode", Pads::S210Headless, {"no ink", "no office canvas"}},
    {"WPSBase64EncodeFree", Pads::S210, {kType, kNone}},
    {"WPSBase64EncodeFree", Pads::S210Widget, {"pad in a widget"}},
    {"WPSBase64EncodeFree", Pads::S210Headless, {"null"}},
    {"SetDisplayedFPImageAt", Pads::S310X, {kType, kNone, "rectangle outside"}},
    {"SetDisplayedFPImageAt", Pads::S310XWidget, {"no parent", "rectangle outside another window"}},
    {"GetFPImageBase64Data", Pads::S310X, {kType, kNone, "type 0", "type 4"}},
    {"GetFPImageBase64Data", Pads::S310XHeadless, {"not placed"}},
    {"GetFPImageBase64Data", Pads::S310XWidget, {"nothing left after clipping"}},
    {"FreeFPImageBase64Data", Pads::S310X, {kType, kNone, "null"}},
};

/// A function of one family, and a failure of it.
using Failure = std::pair<std::string, std::string>;

bool familyIsOneOf(const Family &family, Pads pads)
{
    return isOneOf({&family, false}, pads) || isOneOf({&family, true}, pads);
}

std::set<Failure> documented()
{
    std::set<Failure> failures;
    for (const Documented &row : kDocumented)
        for (const Family &family : kFamilies)
            for (const char *failure : row.failures)
                if (familyIsOneOf(family, row.pads))
                    failures.emplace(family.prefix + std::string(row.function), failure);
    return failures;
}

std::set<std::string> documentedFunctions()
{
    std::set<std::string> functions;
    for (const Documented &row : kDocumented)
        for (const Family &family : kFamilies)
            if (familyIsOneOf(family, row.pads))
                functions.insert(family.prefix + std::string(row.function));
    return functions;
}

TEST(Faults, TheTableNamesAllExportedFunctions)
{
    EXPECT_EQ(documentedFunctions().size(), 156u);
}

/// Makes the attempt on every pad that it is for.
void attemptOnAll(const Attempt &attempt, std::set<Failure> &reached)
{
    for (const PadCase &pad : allPads()) {
        if (!isOneOf(pad, attempt.pads))
            continue;
        FaultRun run(pad, attempt.setup);
        const std::string result = attempt.call(run);
        EXPECT_EQ(result, attempt.result) << pad.className() << " " << attempt.function << ": " << attempt.failure;
        if (result == attempt.result)
            reached.emplace(pad.family->prefix + std::string(attempt.function), attempt.failure);
    }
}

/// Calls every function of a pad with a device type, and expects one answer of each row of the table of functions.
template <class Answer>
void callAll(const PadCase &pad, int type, Answer answer, const char *failure, std::set<Failure> &reached)
{
    static const std::set<Failure> all = documented();
    for (const ExportedCall &row : exportedCalls(*pad.family)) {
        if (all.count({row.name(), failure}) == 0)
            continue;
        callBuffers = freshCallBuffers();
        const long result = row.call(type);
        EXPECT_EQ(result, answer(row)) << pad.className() << " " << row.function << ": " << failure;
        EXPECT_STREQ(callBuffers.text, freshCallBuffers().text) << row.function;
        if (result == answer(row))
            reached.emplace(row.name(), failure);
    }
}

void refuseOnAll(std::set<Failure> &reached)
{
    for (const PadCase &pad : allPads()) {
        {
            const FaultRun open(pad, kStroke);
            callAll(
                pad, open.wrong(), [](const ExportedCall &row) { return row.wrongTypeResult; }, kType, reached);
        }
        const FaultRun closed(pad, kClosed);
        callAll(
            pad, closed.type, [](const ExportedCall &row) { return row.withoutInstance; }, kNone, reached);
    }
}

TEST(Faults, EveryDocumentedFailureIsReached)
{
    std::set<Failure> reached;
    refuseOnAll(reached);
    for (const std::vector<Attempt> &attempts : {callFailures(), padFailures()})
        for (const Attempt &attempt : attempts)
            attemptOnAll(attempt, reached);
    const std::set<Failure> all = documented();
    std::size_t count = 0;
    for (const Failure &failure : all) {
        EXPECT_EQ(reached.count(failure), 1u) << failure.first << ": " << failure.second << " is not reached";
        count += reached.count(failure);
    }
    for (const Failure &failure : reached)
        EXPECT_EQ(all.count(failure), 1u) << failure.first << ": " << failure.second << " is not documented";
    std::printf("%zu of %zu documented failures of %zu exported functions reached\n", count, all.size(),
        documentedFunctions().size());
}

} // namespace
