#include "conformance.h"

#include "streambytes.h"

#include <QRegularExpression>

namespace documents {

int archivePart(QPDF &pdf)
{
    constexpr qint64 kMostMetadata = 1 << 20; // bytes
    QPDFObjectHandle metadata = pdf.getRoot().getKey("/Metadata");
    if (!metadata.isStream())
        return 0;
    static const QRegularExpression part("pdfaid:part\\s*(?:=\\s*[\"']|>)\\s*(\\d)");
    try {
        return part.match(QString::fromUtf8(streamBytes(metadata, kMostMetadata))).captured(1).toInt();
    } catch (const std::exception &) {
        return 0; // nobody else can read it either
    }
}

Xfa xfaOf(QPDF &pdf)
{
    QPDFObjectHandle root = pdf.getRoot(), form = root.getKey("/AcroForm"), rendering = root.getKey("/NeedsRendering");
    if (!form.isDictionary() || !form.hasKey("/XFA"))
        return Xfa::None;
    return rendering.isBool() && rendering.getBoolValue() ? Xfa::Instead : Xfa::Beside;
}

} // namespace documents
