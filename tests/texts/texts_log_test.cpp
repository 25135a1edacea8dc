// What the functions that make, free and decode texts write into the log.
#include "inkrecordbytes.h"
#include "logfile.h"
#include "returnedtext.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

using Entries = std::vector<LogEntry>;

__attribute__((format(printf, 1, 2))) std::string text(const char *format, ...)
{
    char buffer[512];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

unsigned long address(const void *pointer)
{
    return reinterpret_cast<unsigned long>(pointer);
}

unsigned shortAddress(const void *pointer)
{
    return static_cast<unsigned>(address(pointer));
}

void receive(char *) { }

class TextsLog : public testing::TestWithParam<PadCase>
{
protected:
    TextsLog() { pad.driver.send({{1000, 900, 50, 0}, {1300, 1000, 60, 1}, {0, 0, 0, 2}}); }

    int type() const { return pad.type(); }
    LogEntry exported(const char *function, const std::string &message) const
    {
        return {pad->prefix + std::string(function) + "()", message};
    }
    LogEntry member(const char *function, const std::string &message) const
    {
        return {GetParam().className() + std::string("::") + function + "()", message};
    }
    /// What the call logs.
    template <class Call>
    Entries logOf(Call call)
    {
        const LogTail tail;
        {
            const LogOn on;
            call();
        }
        return tail.entries();
    }

    OpenPad pad{GetParam(), 160, 100};
};

class PushLog : public TextsLog
{
};

class OfficeLog : public PushLog
{
};

std::vector<PadCase> bothHosts()
{
    return {{&kS210Family, false}, {&kS210Family, true}};
}

std::vector<PadCase> headlessOnly()
{
    return {{&kS210Family, true}};
}

} // namespace

TEST_P(TextsLog, EncodingAnImage)
{
    for (const int image : {1, 2, 3}) {
        char *result = nullptr;
        const Entries log = logOf([&] { result = pad->Base64Encode(type(), image); });
        EXPECT_EQ(log,
            (Entries{exported("Base64Encode", text("Enter, nDeviceType=%d, nImageTypeID=%d", type(), image)),
                member("Base64Encode", text("enter, nImageTypeID=%d", image)),
                member("EncodeBase64SignImage", text("enter, nImageTypeID=%d", image)),
                member("EncodeBase64SignImage", text("leave with pEncodeBase64Image=%lx !", address(result))),
                member("Base64Encode", text("leave with pBase64Image=%lx !", address(result))),
                exported("Base64Encode", text("leave with pEncodeBase64Image=%lx !", address(result)))}));
        pad->Base64EncodeFree(type(), result);
    }
}

TEST_P(TextsLog, EncodingAnImageWithAChosenBackground)
{
    for (const bool on : {false, true}) {
        char *result = nullptr;
        const Entries log = logOf([&] { result = pad->Base64EncodeEx(type(), 3, on); });
        EXPECT_EQ(log,
            (Entries{exported("Base64EncodeEx",
                         text("Enter, nDeviceType=%d, nImageTypeID=3, bEnableTransparentBackground=%d", type(), on)),
                member("Base64EncodeEx", text("enter, nImageTypeID=3, bEnableTransparentBackground=%d", on)),
                member("EncodeBase64SignImageEx", text("enter, nImageTypeID=3, bEnableTransparentBackground=%d", on)),
                member("EncodeBase64SignImageEx", text("leave with pEncodeBase64Image=%lx !", address(result))),
                member("Base64EncodeEx", text("leave with pBase64Image=%lx !", address(result))),
                exported("Base64EncodeEx", text("leave with pEncodeBase64Image=%lx !", address(result)))}));
        pad->Base64EncodeExFree(type(), result);
    }
}

TEST_P(TextsLog, EncodingNothing)
{
    pad->Clear(type());
    const std::string why = "leave with nullptr due to None of sign image !";
    EXPECT_EQ(logOf([&] { pad->Base64Encode(type(), 3); }),
        (Entries{exported("Base64Encode", text("Enter, nDeviceType=%d, nImageTypeID=3", type())),
            member("Base64Encode", "enter, nImageTypeID=3"), member("Base64Encode", why),
            exported("Base64Encode", "leave with pEncodeBase64Image=0 !")}));
    EXPECT_EQ(logOf([&] { pad->Base64EncodeEx(type(), 6, true); })[2], member("Base64EncodeEx", why));
    const Entries svg = logOf([&] { pad->GetSVGImageBase64Data(type()); });
    ASSERT_GE(svg.size(), 3u);
    EXPECT_EQ(svg.front(), exported("GetSVGImageBase64Data", text("Enter, nDeviceType=%d", type())));
    EXPECT_NE(std::find(svg.begin(), svg.end(), member("GetSVGImageBase64Data", "enter, nInkCount=-8")), svg.end());
    EXPECT_EQ(svg.back(), exported("GetSVGImageBase64Data", "leave with pEncodeBase64Image=0 !"));
}

TEST_P(TextsLog, EncodingTheInkRecord)
{
    char *result = nullptr;
    const Entries log = logOf([&] { result = pad->Base64Encode(type(), EBITI_INK); });
    ASSERT_EQ(log.size(), 6u);
    EXPECT_EQ(log[2].key, member("Base64Encode", "").key);
    const QRegularExpression counts("^pTotalPtsData=[0-9a-f]+, ulInkCount=3, ulTotalPtsDataSize=73$");
    EXPECT_TRUE(counts.match(QString::fromStdString(log[2].text)).hasMatch()) << log[2].text;
    EXPECT_EQ(log[3], member("Base64Encode", "ulnBase64TotalPtsDataSize=100"));
    EXPECT_EQ(log[4], member("Base64Encode", text("leave with pBase64Image=%lx !", address(result))));
    pad->Base64EncodeFree(type(), result);
}

TEST_P(TextsLog, Freeing)
{
    struct Row
    {
        const char *name;
        decltype(pad->Base64EncodeFree) free;
        char *text;
    };
    const Row rows[] = {{"Base64EncodeFree", pad->Base64EncodeFree, pad->Base64Encode(type(), 3)},
        {"Base64EncodeExFree", pad->Base64EncodeExFree, pad->Base64EncodeEx(type(), 3, true)},
        {"FreeSVGImageBase64Data", pad->FreeSVGImageBase64Data, pad->GetSVGImageBase64Data(type())}};
    for (const Row &row : rows) {
        const unsigned long at = address(row.text);
        EXPECT_EQ(logOf([&] { row.free(type(), row.text); }),
            (Entries{exported(row.name, text("Enter, nDeviceType=%d, pEncodedData=%lx", type(), at)),
                member(row.name, text("enter, pEncodedData=%lx", at)),
                member(row.name, "after call delete[] pEncodedData !"), member(row.name, "leave !"),
                exported(row.name, "leave !")}));
        EXPECT_EQ(logOf([&] { row.free(type(), nullptr); }),
            (Entries{exported(row.name, text("Enter, nDeviceType=%d, pEncodedData=0", type())),
                member(row.name, "enter, pEncodedData=0"), member(row.name, "leave !"),
                exported(row.name, "leave !")}));
    }
}

TEST_P(TextsLog, SvgText)
{
    QFile::remove("/tmp/KVeSign.svg");
    char *result = nullptr;
    const Entries log = logOf([&] { result = pad->GetSVGImageBase64Data(type()); });
    const QFileInfo file("/tmp/KVeSign.svg");
    const Entries expected = [&] {
        Entries lines{exported("GetSVGImageBase64Data", text("Enter, nDeviceType=%d", type())),
            member("GetTotalInkPointsNumber", "enter..."), {"", "leave with nInkCount=3"},
            member("GetSVGImageBase64Data", "enter, nInkCount=3"),
            member("SaveDrawingImageAsSVGFile", "enter, nDPI=150"), member("SaveDrawingImageAsSVGFile", "nInkCount=3"),
            member("SaveDrawingImageAsSVGFile", "leave !")};
        const bool tellsOfClosing = GetParam().headless && type() != KVS210_DEVICE;
        if (tellsOfClosing)
            lines.push_back(member("GetSVGImageBase64Data", "after call f.close()..."));
        lines.push_back(member("GetSVGImageBase64Data", text("byteArray size=%ld", static_cast<long>(file.size()))));
        lines.push_back(member("GetSVGImageBase64Data", text("nBase64Size=%zu", std::strlen(result))));
        return lines;
    }();
    // The mapping of the S310X widget writes lines of its own; the ink count's leave line bears another function's
    // name.
    Entries found;
    for (LogEntry entry : log) {
        if (entry.key.find("ConvertSignRawData") != std::string::npos)
            continue;
        if (entry.text == "leave with nInkCount=3")
            entry.key.clear();
        found.push_back(entry);
    }
    ASSERT_GE(found.size(), expected.size() + 1);
    for (size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(found[i], expected[i]);
    EXPECT_EQ(
        found.back(), exported("GetSVGImageBase64Data", text("leave with pEncodeBase64Image=%lx !", address(result))));
    pad->FreeSVGImageBase64Data(type(), result);
}

TEST_P(TextsLog, SvgTextClipped)
{
    pad->SetSaveClipImageMargin(type(), true, 200, 100); // margins that reach the canvas's ends
    char *result = nullptr;
    const Entries log = logOf([&] { result = pad->GetSVGImageBase64Data(type()); });
    pad->FreeSVGImageBase64Data(type(), result);
    const LogEntry scanned =
        member("CheckSignImageBoundingBox", "leave with rcBoundBox.Left=0, Right=159, Top=0, Bottom=99");
    const auto found = std::find(log.begin(), log.end(), scanned);
    ASSERT_NE(found, log.end());
    ASSERT_NE(found + 1, log.end());
    EXPECT_EQ(
        found[1], member("GetSVGImageBase64Data", "after call CheckSignImageBoundingBox(), l=0, t=0, r=159, b=99"));
    EXPECT_EQ(std::count(log.begin(), log.end(), scanned), 1);
}

TEST_P(TextsLog, Decoding)
{
    const QByteArray record = base64::encoded(recordOf({{1, 2, 3}}));
    const QTemporaryDir directory;
    std::wstring path = directory.filePath("a.png").toStdWString();
    const struct
    {
        int type;
        QByteArray text;
        int result;
    } rows[] = {{6, record, 0}, {3, record, -8}, {3, base64::encoded(fileOf(pad.canvas(), "PNG")), 0}};
    for (const auto &row : rows) {
        const char *data = row.text.constData();
        EXPECT_EQ(logOf([&] { EXPECT_EQ(pad->Base64Decode(type(), row.type, data, path.data()), row.result); }),
            (Entries{exported("Base64Decode",
                         text("Enter, nDeviceType=%d, nImageTypeID=%d, pEncodedData=%lx, pImageFilePath=%x", type(),
                             row.type, address(data), shortAddress(path.data()))),
                member("Base64Decode",
                    text("enter, nImageTypeID=%d, pImageFilePath=%x", row.type, shortAddress(path.data()))),
                member("Base64Decode", text("leave with nResult=%d !", row.result)),
                exported("Base64Decode", text("leave with nResult=%d !", row.result))}));
    }
}

TEST_P(TextsLog, DecodingRefused)
{
    const auto leaveOf = [&](int device, int image, const char *data) {
        const Entries log = logOf([&] { pad->Base64Decode(device, image, data, nullptr); });
        EXPECT_EQ(log.size(), 2u);
        return log.back();
    };
    EXPECT_EQ(leaveOf(-1, 6, "AAAA"),
        exported(
            "Base64Decode", text("leave with ARI_INVALID_PARAMETERS due to (nDeviceType != %s) !", pad->deviceName)));
    EXPECT_EQ(leaveOf(type(), 4, nullptr),
        exported("Base64Decode",
            "leave with ARI_INVALID_PARAMETERS due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && (nImageTypeID != EBITI_INK)) !"));
    for (const char *data : {"", static_cast<const char *>(nullptr)})
        EXPECT_EQ(leaveOf(type(), 6, data),
            exported("Base64Decode", "leave with nullptr due to (pEncodedData : null or empty) !"));
}

TEST_P(TextsLog, QueriesOfDecodedPoints)
{
    pad->Base64Decode(type(), 6, base64::encoded(recordOf({{-5, 2, 3}, {1, 1, 1}})).constData(), nullptr);
    EXPECT_EQ(logOf([&] { pad->GetTotalDecodeInkPointsNumber(type()); }),
        (Entries{exported("GetTotalDecodeInkPointsNumber", text("Enter, nDeviceType=%d", type())),
            member("GetTotalDecodeInkPointsNumber", "enter..."),
            member("GetTotalDecodeInkPointsNumber", "leave with nDecodedInkCount=2"),
            exported("GetTotalDecodeInkPointsNumber", "leave with nDecodedInkCount=2 !")}));
    const struct
    {
        int index;
        const char *leave;
        int result;
    } rows[] = {{0, "leave with nInkPointData=-5", -5},
        {2, "leave with ARI_INVALID_PARAMETERS due to (nIndex < 0) || (nIndex >= nDecodedInkCount) !", -2},
        {-1, "leave with ARI_INVALID_PARAMETERS due to (nIndex < 0) || (nIndex >= nDecodedInkCount) !", -2}};
    for (const auto &row : rows) {
        const Entries log = logOf([&] { EXPECT_EQ(pad->GetDecodeInkPointData(type(), row.index, 1), row.result); });
        ASSERT_EQ(log.size(), 4u);
        EXPECT_EQ(log[0],
            exported("GetDecodeInkPointData", text("Enter, nDeviceType=%d, nIndex=%d, nTypeID=1", type(), row.index)));
        EXPECT_EQ(log[1], member("GetDecodeInkPointData", text("enter, nIndex=%d, nTypeID=1", row.index)));
        EXPECT_EQ(log[2], member("GetDecodeInkPointData", row.leave));
    }
}

TEST_P(PushLog, RegisteringAReceiver)
{
    const unsigned long at = address(reinterpret_cast<const void *>(receive));
    const std::string name = "SetRealTimeSignBase64DataCallback";
    const std::string enter = GetParam().headless
        ? text("Enter, nType=3, pfnSignBase64DataCallback=%x", static_cast<unsigned>(at))
        : "Enter, nType=3";
    const Entries log = logOf([] { KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, 3, receive); });
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[1], member(name.c_str(), enter));
    EXPECT_EQ(log[2], member(name.c_str(), "leave with bRet = 1..."));
    const auto leaveOf = [&](int device, int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK receiver) {
        return logOf([&] { KVS210_SetRealTimeSignBase64DataCallback(device, nType, receiver); }).at(1);
    };
    const auto why = exported(
        name.c_str(), "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !");
    EXPECT_EQ(leaveOf(3, 3, receive), why);
    EXPECT_EQ(leaveOf(2, 1, nullptr), why);
    EXPECT_EQ(leaveOf(2, 1, receive),
        exported(name.c_str(), "leave false due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"));
}

// The text goes back the way of every other, so that its release can be seen.
TEST_P(PushLog, APushIsAnEncodingACallAndARelease)
{
    pad.driver.send(700, 800, 50, 0);
    ASSERT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, 3, receive));
    const Entries log = logOf([&] { pad.driver.send(900, 800, 60, 1); });
    Entries push;
    for (const LogEntry &entry : log) {
        if (entry.key.find("RxS210") == std::string::npos && entry.key.find("StartSign") == std::string::npos
            && entry.key.find("paintEvent") == std::string::npos)
            push.push_back({entry.key, entry.text.substr(0, entry.text.find('='))});
    }
    EXPECT_EQ(push,
        (Entries{member("CheckIfNeedToSendRealTimeSignBase64Data", "Enter..."),
            member("EncodeBase64SignImage", "enter, nImageTypeID"),
            member("EncodeBase64SignImage", "leave with pEncodeBase64Image"),
            member("Base64EncodeFree", "enter, pEncodedData"),
            member("Base64EncodeFree", "after call delete[] pEncodedData !"), member("Base64EncodeFree", "leave !"),
            member("CheckIfNeedToSendRealTimeSignBase64Data", "leave !")}));
}

TEST_P(PushLog, RefusedOfficeCalls)
{
    const auto leaveOf = [&](auto call) { return logOf(call).at(1); };
    EXPECT_EQ(leaveOf([] { KVS210_InitialWPSSignCanvas(5, 0, 0); }),
        exported("InitialWPSSignCanvas", "leave false due to (nDeviceType != KVS210_DEVICE) !"));
    EXPECT_EQ(leaveOf([] { KVS210_InitialWPSSignCanvas(2, 0, 1); }),
        exported("InitialWPSSignCanvas", "leave false due to (nWidth == 0) || (nHeight == 0) !"));
    EXPECT_EQ(leaveOf([] { KVS210_WPSBase64Encode(5, 1); }),
        exported("WPSBase64Encode", "leave with nullptr due to (nDeviceType != KVS210_DEVICE) !"));
    EXPECT_EQ(leaveOf([] { KVS210_WPSBase64Encode(2, 1); }),
        exported("WPSBase64Encode", "leave nullptr due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"));
    EXPECT_EQ(leaveOf([] { KVS210_WPSBase64EncodeFree(5, nullptr); }),
        exported("WPSBase64EncodeFree", "leave due to (nDeviceType != KVS210_DEVICE) !"));
}

TEST_P(OfficeLog, OfficeCanvas)
{
    const Entries made = logOf([] { KVS210_InitialWPSSignCanvas(2, 30, 20); });
    ASSERT_EQ(made.size(), 4u);
    EXPECT_EQ(made[0], exported("InitialWPSSignCanvas", "Enter, nDeviceType=2, nWidth=30, nHeight=20"));

    char *result = nullptr;
    const Entries log = logOf([&] { result = KVS210_WPSBase64Encode(2, 3); });
    EXPECT_EQ(log,
        (Entries{exported("WPSBase64Encode", "Enter, nDeviceType=2, nImageTypeID=3"),
            member("WPSBase64Encode", "enter, nImageTypeID=3"),
            member("WPSEncodeBase64SignImage", "enter, nImageTypeID=3"),
            member("WPSEncodeBase64SignImage", text("leave with pEncodeBase64Image=%lx !", address(result))),
            member("WPSBase64Encode", text("leave with pBase64Image=%lx !", address(result))),
            exported("WPSBase64Encode", text("leave with pEncodeBase64Image=%lx !", address(result)))}));
    const unsigned long at = address(result);
    EXPECT_EQ(logOf([&] { KVS210_WPSBase64EncodeFree(2, result); }),
        (Entries{exported("WPSBase64EncodeFree", text("Enter, nDeviceType=2, pEncodedData=%lx", at)),
            member("WPSBase64EncodeFree", text("enter, pEncodedData=%lx", at)),
            member("WPSBase64EncodeFree", "after call delete[] pEncodedData !"),
            member("WPSBase64EncodeFree", "leave !"), exported("WPSBase64EncodeFree", "leave !")}));
    pad->Clear(type());
    EXPECT_EQ(logOf([] { KVS210_WPSBase64Encode(2, 3); }).at(2),
        member("WPSBase64Encode", "leave with nullptr due to None of sign image !"));
}

INSTANTIATE_TEST_SUITE_P(AllPads, TextsLog, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(BothHosts, PushLog, testing::ValuesIn(bothHosts()), padCaseName);
INSTANTIATE_TEST_SUITE_P(Headless, OfficeLog, testing::ValuesIn(headlessOnly()), padCaseName);
