#include "memorycalls.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <cwchar>

namespace {

using Prepare = std::function<void(QuietPad &pad)>;

char buffer[256] = "";
char *given = nullptr; ///< a text for a call that frees or decodes it
wchar_t path[300] = L""; ///< the file of a call that writes one

Answer number(long value)
{
    return {value, nullptr};
}

Answer text(char *value)
{
    return {0, value};
}

void tapped(int) { }
void pushed(char *) { }

bool any(const PadCase &)
{
    return true;
}
bool hasScreen(const PadCase &pad)
{
    return pad.family->hasScreen;
}
bool isS210(const PadCase &pad)
{
    return pad.family->type == KVS210_DEVICE;
}
bool isS310X(const PadCase &pad)
{
    return pad.family->type == KVS310X_DEVICE;
}

void nothing(QuietPad &) { }

void close(QuietPad &pad)
{
    pad.close();
}

void clip(QuietPad &pad)
{
    pad->SetSaveClipImageMargin(pad.type(), true, 5, 5);
}

void makeOfficeCanvas(QuietPad &pad)
{
    KVS210_InitialWPSSignCanvas(pad.type(), 50, 40);
}

void placeFingerprint(QuietPad &pad)
{
    KVS310X_SetDisplayedFPImageAt(pad.type(), pad.window(), 60, 50, 5, 5, 20, 25);
    pad.fingerprint(70);
    // The next segment merges it.
    pad.packet(3000, 3000, 100, KVSPDARI_PS_PEN_DOWN);
    pad.packet(5000, 3000, 100, KVSPDARI_PS_PEN_MOVE);
    pad.packet(5000, 3000, 100, KVSPDARI_PS_PEN_UP);
    settle();
}

void officeText(QuietPad &pad)
{
    makeOfficeCanvas(pad);
    given = KVS210_WPSBase64Encode(pad.type(), EBITI_PNG);
}

void fingerprintText(QuietPad &pad)
{
    placeFingerprint(pad);
    given = KVS310X_GetFPImageBase64Data(pad.type(), EBITI_PNG, false);
}

void pushing(QuietPad &pad)
{
    KVS210_SetRealTimeSignBase64DataCallback(pad.type(), EBITI_PNG, pushed);
    pad.packet(1000, 900, 100, KVSPDARI_PS_PEN_DOWN);
}

/// An about box that is there by then is closed.
void closeBox(QuietPad &)
{
    QTimer::singleShot(0, [] {
        if (QWidget *box = QApplication::activeModalWidget())
            box->close();
    });
}

/// Chooses a file in a directory of the process, which is not there yet.
Prepare to(const char *name, const Prepare &first = nothing)
{
    return [=](QuietPad &pad) {
        static const QTemporaryDir directory;
        const QString file = directory.path() + '/' + name;
        QFile::remove(file);
        std::wcsncpy(path, file.toStdWString().c_str(), std::size(path) - 1);
        first(pad);
    };
}

/// Takes a text for the call.
template <class Take>
Prepare having(Take take)
{
    return [=](QuietPad &pad) { given = take(pad); };
}

Prepare havingImage(int imageType)
{
    return to("decoded", having([=](QuietPad &pad) { return pad->Base64EncodeEx(pad.type(), imageType, false); }));
}

Prepare havingRecord()
{
    return having([](QuietPad &pad) { return pad->Base64Encode(pad.type(), EBITI_INK); });
}

void decode(QuietPad &pad)
{
    havingRecord()(pad);
    pad->Base64Decode(pad.type(), EBITI_INK, given, nullptr);
    pad->Base64EncodeFree(pad.type(), given);
}

Answer decoded(QuietPad &pad, int imageType)
{
    return number(pad->Base64Decode(pad.type(), imageType, given, path));
}

Answer saved(QuietPad &pad, int imageType)
{
    return number(pad->SaveDrawingImage(pad.type(), imageType, path, IDLI_150DPI));
}

Answer point(QuietPad &pad)
{
    INKPOINTDATA data{};
    data.nIndex = 3;
    return number(pad->GetInkPointData(pad.type(), data));
}

std::string digestOf(const QByteArray &bytes, Content content)
{
    if (content == Content::Length)
        return std::to_string(bytes.size());
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().toStdString();
}

#define KV_CALL(name, failures, isFor, prepare, answer, ...)                                                           \
    {                                                                                                                  \
        name, failures, isFor, prepare, [](QuietPad &pad) -> Answer { return answer; }, __VA_ARGS__                    \
    }
#define KV_NUMBER(name, failures, isFor, prepare, result)                                                              \
    KV_CALL(name, failures, isFor, prepare, number(result), Content::Nothing)
#define KV_VOID(name, isFor, prepare, statement)                                                                       \
    KV_CALL(name, "", isFor, prepare, ((statement), (void)pad, number(0)), Content::Nothing)
#define KV_TEXT(name, isFor, prepare, content, result, free)                                                           \
    KV_CALL(name, "null empty", isFor, prepare, text(result), content,                                                 \
        [](QuietPad &pad, char *released) { free(pad.type(), released); })

std::vector<MemoryCall> allCalls()
{
    const Content bytes = Content::Bytes, length = Content::Length;
    return {
        KV_NUMBER("InitialDevice", "0", any, close, pad->InitialDevice(pad.type(), pad.window(), 10, 10, 90, 60)),
        KV_NUMBER("UnInitialDevice", "", any, nothing, pad->UnInitialDevice(pad.type())),
        KV_NUMBER("OpenLCD", "-1", hasScreen, nothing, pad->OpenLCD(pad.type(), false)),
        KV_NUMBER("Clear", "-1", any, nothing, pad->Clear(pad.type())),
        KV_NUMBER("GetHWPenID", "-1", hasScreen, nothing, pad->GetHWPenID(pad.type(), buffer, 32)),
        KV_NUMBER("GetHWPadID", "-1", any, nothing, pad->GetHWPadID(pad.type(), buffer, 32)),
        KV_NUMBER("GetHWVersion", "-1", any, nothing, pad->GetHWVersion(pad.type(), buffer, 32)),
        KV_NUMBER("DisplayHWVersion", "-1", hasScreen, nothing, pad->DisplayHWVersion(pad.type(), true)),
        KV_NUMBER("GetDeviceInfo", "-1", any, nothing, pad->GetDeviceInfo(pad.type(), DIID_GET_VENDOR, buffer)),
        KV_NUMBER("SetPenStyle", "-1", any, nothing, pad->SetPenStyle(pad.type(), false)),
        KV_NUMBER("SetPenWidth", "-1", any, nothing, pad->SetPenWidth(pad.type(), 7)),
        KV_NUMBER("SetPenColor", "-1", any, nothing, pad->SetPenColor(pad.type(), 1, 2, 3)),
        KV_NUMBER("SignPadEventCallback", "-1", any, nothing, pad->SignPadEventCallback(pad.type(), tapped)),
        KV_NUMBER(
            "GetDeviceConfirmOrCancelKeyStatus", "", any, nothing, pad->GetDeviceConfirmOrCancelKeyStatus(pad.type())),
        KV_NUMBER("GetTotalInkPointsNumber", "-8", any, nothing, pad->GetTotalInkPointsNumber(pad.type())),
        KV_CALL("GetInkPointData", "-1", any, nothing, point(pad), Content::Nothing),
        KV_TEXT("GetInkPointDataTimeInfo", any, nothing, length, pad->GetInkPointDataTimeInfo(pad.type(), 2),
            pad->FreeInkPointDataTimeInfo),
        KV_VOID("FreeInkPointDataTimeInfo", any,
            having([](QuietPad &pad) { return pad->GetInkPointDataTimeInfo(pad.type(), 0); }),
            pad->FreeInkPointDataTimeInfo(pad.type(), given)),
        KV_NUMBER("SetSaveClipImageMargin", "-1", any, nothing, pad->SetSaveClipImageMargin(pad.type(), true, 3, 4)),
        KV_CALL("SaveDrawingImage BMP", "-8", any, to("a.bmp"), saved(pad, ITI_BITMAP), bytes),
        KV_CALL("SaveDrawingImage JPEG", "-8", any, to("a.jpg"), saved(pad, ITI_JPEG), bytes),
        KV_CALL("SaveDrawingImage PNG", "-8", any, to("a.png"), saved(pad, ITI_PNG), bytes),
        KV_CALL("SaveDrawingImage clipped PNG", "-8", any, to("a.png", clip), saved(pad, ITI_PNG), bytes),
        KV_CALL("SaveDrawingImage PDF", "-8", any, to("a.pdf"), saved(pad, ITI_PDF), length),
        KV_CALL("SaveDrawingImage SVG", "-8", any, to("a.svg"), saved(pad, ITI_SVG), bytes),
        KV_TEXT("Base64Encode BMP", any, nothing, bytes, pad->Base64Encode(pad.type(), EBITI_BITMAP),
            pad->Base64EncodeFree),
        KV_TEXT(
            "Base64Encode JPEG", any, nothing, bytes, pad->Base64Encode(pad.type(), EBITI_JPEG), pad->Base64EncodeFree),
        KV_TEXT(
            "Base64Encode PNG", any, nothing, bytes, pad->Base64Encode(pad.type(), EBITI_PNG), pad->Base64EncodeFree),
        KV_TEXT("Base64Encode clipped PNG", any, clip, bytes, pad->Base64Encode(pad.type(), EBITI_PNG),
            pad->Base64EncodeFree),
        KV_TEXT(
            "Base64Encode INK", any, nothing, length, pad->Base64Encode(pad.type(), EBITI_INK), pad->Base64EncodeFree),
        KV_TEXT("Base64EncodeEx JPEG", any, nothing, bytes, pad->Base64EncodeEx(pad.type(), EBITI_JPEG, false),
            pad->Base64EncodeExFree),
        KV_TEXT("Base64EncodeEx PNG", any, nothing, bytes, pad->Base64EncodeEx(pad.type(), EBITI_PNG, false),
            pad->Base64EncodeExFree),
        KV_VOID("Base64EncodeFree", any, havingRecord(), pad->Base64EncodeFree(pad.type(), given)),
        KV_VOID("Base64EncodeExFree", any, havingImage(EBITI_PNG), pad->Base64EncodeExFree(pad.type(), given)),
        KV_TEXT("GetSVGImageBase64Data", any, nothing, bytes, pad->GetSVGImageBase64Data(pad.type()),
            pad->FreeSVGImageBase64Data),
        KV_VOID("FreeSVGImageBase64Data", any,
            having([](QuietPad &pad) { return pad->GetSVGImageBase64Data(pad.type()); }),
            pad->FreeSVGImageBase64Data(pad.type(), given)),
        KV_CALL("Base64Decode BMP", "-8", any, havingImage(EBITI_BITMAP), decoded(pad, EBITI_BITMAP), bytes),
        KV_CALL("Base64Decode JPEG", "-8", any, havingImage(EBITI_JPEG), decoded(pad, EBITI_JPEG), bytes),
        KV_CALL("Base64Decode PNG", "-8", any, havingImage(EBITI_PNG), decoded(pad, EBITI_PNG), bytes),
        KV_CALL("Base64Decode INK", "-8", any, havingRecord(), decoded(pad, EBITI_INK), Content::Nothing),
        KV_NUMBER("GetTotalDecodeInkPointsNumber", "-8", any, decode, pad->GetTotalDecodeInkPointsNumber(pad.type())),
        KV_NUMBER("GetDecodeInkPointData", "-1", any, decode,
            pad->GetDecodeInkPointData(pad.type(), 4, INKDATATYPE_STROKEEND)),
        KV_VOID("AboutBox", any, closeBox, pad->AboutBox(pad.window())),
        KV_VOID("GetAboutInfo", any, nothing, pad->GetAboutInfo(pad.type(), buffer)),
        KV_NUMBER("SetRealTimeSignBase64DataCallback", "0", isS210, nothing,
            KVS210_SetRealTimeSignBase64DataCallback(pad.type(), EBITI_PNG, pushed)),
        KV_NUMBER("InitialWPSSignCanvas", "0", isS210, nothing, KVS210_InitialWPSSignCanvas(pad.type(), 50, 40)),
        KV_TEXT("WPSBase64Encode", isS210, makeOfficeCanvas, bytes, KVS210_WPSBase64Encode(pad.type(), EBITI_PNG),
            KVS210_WPSBase64EncodeFree),
        KV_VOID("WPSBase64EncodeFree", isS210, officeText, KVS210_WPSBase64EncodeFree(pad.type(), given)),
        KV_NUMBER("SetDisplayedFPImageAt", "-1", isS310X, nothing,
            KVS310X_SetDisplayedFPImageAt(pad.type(), pad.window(), 60, 50, 5, 5, 20, 25)),
        KV_TEXT("GetFPImageBase64Data", isS310X, placeFingerprint, bytes,
            KVS310X_GetFPImageBase64Data(pad.type(), EBITI_PNG, false), KVS310X_FreeFPImageBase64Data),
        KV_VOID("FreeFPImageBase64Data", isS310X, fingerprintText, KVS310X_FreeFPImageBase64Data(pad.type(), given)),
        // What the driver calls.
        KV_VOID("a packet", any, nothing, pad.packet(3000, 3000, 100, KVSPDARI_PS_PEN_DOWN)),
        KV_VOID("a pushed packet", isS210, pushing, pad.packet(1500, 900, 100, KVSPDARI_PS_PEN_MOVE)),
        KV_VOID("a fingerprint", isS310X, nothing, pad.fingerprint(80)),
    };
}

} // namespace

const std::vector<MemoryCall> &memoryCalls()
{
    static const std::vector<MemoryCall> calls = allCalls();
    return calls;
}

std::string told(QuietPad &pad, const MemoryCall &call, const Answer &answer)
{
    if (call.release == nullptr) {
        const std::string result = std::to_string(answer.number);
        QFile file(QString::fromWCharArray(path));
        const bool isWritten = call.content != Content::Nothing && answer.number == ARI_SUCCESS;
        return isWritten && file.open(QIODevice::ReadOnly) ? result + ' ' + digestOf(file.readAll(), call.content)
                                                           : result;
    }
    if (answer.text == nullptr)
        return "null";
    const std::string result = *answer.text == '\0' ? "empty" : digestOf(answer.text, call.content);
    call.release(pad, answer.text);
    return result;
}
