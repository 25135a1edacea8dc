#include "cs210signobj.h"

#include "livepush.h"
#include "padclass/defined.h"

#include <QPainter>

#define KV_PAD CS210SignObj
#include "padclass/members.inl"
#include "padclass/members_headless.inl"
#include "padclass/members_screen.inl"

void RxS210SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS210SignObj>().RxS210SignPadRawData(nX, nY, nP, nPenStatus);
}

void CS210SignObj::RxS210SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}

bool CS210SignObj::SetRealTimeSignBase64DataCallback(
    int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback)
{
    return livepush::setReceiver(*this, nType, pfnSignBase64DataCallback);
}

void CS210SignObj::CheckIfNeedToSendRealTimeSignBase64Data()
{
    livepush::push(*this);
}

bool CS210SignObj::InitialWPSSignCanvas(int nWidth, int nHeight)
{
    static constexpr logging::Key key{row.scope, "InitialWPSSignCanvas()"};
    KV_LOG(key, "<%ld>-Enter, nWidth=%d, nHeight=%d", nWidth, nHeight);
    // A receiver may call this on the driver's thread while another thread is encoding the old canvas.
    const MutexLock locked(m_mutexUpdateCanvas);
    clearCanvas(m_WPSSignCanvas, nWidth, nHeight);
    KV_LOG(key, "<%ld>-leave with bRet=%d !", true);
    return true;
}

char *CS210SignObj::WPSBase64Encode(int nImageTypeID)
{
    static constexpr logging::Key key{row.scope, "WPSBase64Encode()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d", nImageTypeID);
    if (inkpoints::count(*this) == 0) {
        KV_LOG(key, "<%ld>-leave with nullptr due to None of sign image !");
        return nullptr;
    }
    char *pBase64Image = nullptr;
    if (nImageTypeID == EBITI_JPEG || nImageTypeID == EBITI_PNG)
        pBase64Image = WPSEncodeBase64SignImage(nImageTypeID);
    KV_LOG(key, "<%ld>-leave with pBase64Image=%lx !", logging::address(pBase64Image));
    return pBase64Image;
}

char *CS210SignObj::WPSEncodeBase64SignImage(int nImageTypeID)
{
    static constexpr logging::Key key{row.scope, "WPSEncodeBase64SignImage()"};
    const MutexLock locked(m_mutexUpdateCanvas);
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d", nImageTypeID);
    char *pEncodeBase64Image = base64text::newTextOf([&] {
        if (!m_WPSSignCanvas.isNull()) {
            QPainter painter(&m_WPSSignCanvas);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.drawImage(QRectF(m_WPSSignCanvas.rect()), m_canvas, QRectF(m_canvas.rect()));
        }
        if (nImageTypeID == EBITI_PNG)
            inkbounds::makeWhiteTransparent(m_WPSSignCanvas); // drawing over it for the next text undoes this
        const bool wanted = nImageTypeID == EBITI_JPEG || nImageTypeID == EBITI_PNG;
        return wanted ? imagetexts::fileOf(m_WPSSignCanvas, nImageTypeID, false) : QByteArray();
    });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

void CS210SignObj::WPSBase64EncodeFree(char *pEncodedData)
{
    imagetexts::freeText(*this, "WPSBase64EncodeFree()", pEncodedData);
}
