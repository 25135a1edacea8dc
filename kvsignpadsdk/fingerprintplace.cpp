#include "fingerprintplace.h"

#include "padclass/fingerprintinternals.h"

#include <QPainter>

#include <algorithm>
#include <cstdint>
#include <limits>

FingerprintInternals::FingerprintInternals() = default;
FingerprintInternals::~FingerprintInternals() = default;

FingerprintCanvas::FingerprintCanvas()
{
    static constexpr logging::Key key{row.scope, "CS310XFPWidget()"};
    KV_LOG(key, "<%ld>-Enter...");
    fingerprintplace::begin(*this, {640, 480}); // the size of a QWidget without a parent
    KV_LOG(key, "<%ld>-leave !");
}

void FingerprintCanvas::UpdateFPImage(const QImage &image)
{
    fingerprintplace::updateImage(*this, image);
}

void FingerprintCanvas::Clear()
{
    fingerprintplace::clear(*this);
}

void FingerprintCanvas::Shutdown()
{
    fingerprintplace::shutdown(*this);
}

char *FingerprintCanvas::EncodeBase64SignImage(
    bool bClipImage, int nClipMarginX, int nClipMarginY, bool bFPImageOnly, int nImageTypeID)
{
    return fingerprintplace::imageText(*this, {bClipImage, nClipMarginX, nClipMarginY, bFPImageOnly, nImageTypeID});
}

namespace fingerprintplace {

namespace {

int lastOf(int first, int size)
{
    return static_cast<int>(std::clamp<int64_t>(
        int64_t{first} + size - 1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

QRect rectangle(int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    return {QPoint(nFPLeft, nFPTop), QPoint(lastOf(nFPLeft, nFPWidth), lastOf(nFPTop, nFPHeight))};
}

int checkInside(const logging::Key &key, const QRect &rectangle, const QRect &area)
{
    if (!area.isEmpty() && area.contains(rectangle.topLeft()) && area.contains(rectangle.bottomRight()))
        return ARI_SUCCESS;
    KV_LOG(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to invalid nFPLeft, nFPTop, nFPWidth, nFPHeight !");
    return ARI_INVALID_PARAMETERS;
}

void paintInto(QImage &canvas, const QImage &layer, const QRect &rectangle)
{
    if (canvas.isNull())
        return;
    QPainter painter(&canvas);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(fingerprint::targetOf(rectangle), layer, QRectF(0, 0, kFingerprintWidth, kFingerprintHeight));
}

} // namespace fingerprintplace
