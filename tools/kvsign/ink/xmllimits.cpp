#include "xmllimits.h"

#include <QTextCodec>

#include <algorithm>

namespace {

constexpr int kLatin1 = 4; // registered numbers of encodings
constexpr int kUtf8 = 106;

/// Whether each character of ASCII stands for itself, and none switches to other characters. In EBCDIC they stand for
/// others, and in UTF-7 or ISO-2022 the ways to write a < are many.
bool containsAscii(const QTextCodec &codec)
{
    QByteArray ascii("\x0E\x0F\x1B"); // what switches, where there is such a thing
    for (char byte = ' '; byte <= '~'; ++byte)
        ascii += byte;
    return std::all_of(ascii.begin(), ascii.end(),
        [&](const char &byte) { return codec.toUnicode(&byte, 1) == QString(QLatin1Char(byte)); });
}

} // namespace

XmlLimits::XmlLimits(QIODevice &device)
    : m_device(device)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

XmlLimits::~XmlLimits() = default;

bool XmlLimits::knows(const QByteArray &encoding) const
{
    const QTextCodec *const codec = QTextCodec::codecForName(encoding);
    if (codec == nullptr)
        return true; // Qt's reader says that it does not know it
    return m_isWide ? codec->name().startsWith("UTF-16") || codec->name().startsWith("UTF-32") : containsAscii(*codec);
}

qint64 XmlLimits::readData(char *bytes, qint64 most)
{
    if (m_isHead && m_size >= kMostHead)
        m_trouble = QString("no element begins in the first %1 bytes").arg(kMostHead);
    if (!m_trouble.isEmpty())
        return 0;
    const qint64 size = m_device.read(bytes, m_isHead ? std::min(most, kMostHead - m_size) : most);
    if (size <= 0)
        return size;
    m_size += size;
    return allowed(bytes, static_cast<int>(size));
}

/// How many of the bytes come before an attribute too much.
qint64 XmlLimits::allowed(const char *bytes, int size)
{
    if (m_decoder == nullptr) {
        const QTextCodec *const codec =
            QTextCodec::codecForUtfText(QByteArray::fromRawData(bytes, size), QTextCodec::codecForMib(kLatin1));
        m_isWide = codec->mibEnum() != kLatin1 && codec->mibEnum() != kUtf8;
        m_decoder.reset((m_isWide ? codec : QTextCodec::codecForMib(kLatin1))->makeDecoder());
    }
    const QString text = m_decoder->toUnicode(bytes, size);
    for (int i = 0; i < text.size(); ++i) {
        look(text[i]);
        if (!m_trouble.isEmpty())
            return qint64{size} * i / text.size();
    }
    return size;
}

/// An attribute has an equals sign and a quotation mark, and no value contains a <. So wherever the document's tags,
/// comments and texts begin, a start tag has no more attributes than this counts since the last <. A comment or text
/// that holds as many examples of attributes is refused too.
void XmlLimits::look(QChar character)
{
    if (character == QLatin1Char('<')) {
        m_attributes = 0;
    } else if (m_isBehindEqual && (character == QLatin1Char('"') || character == QLatin1Char('\''))) {
        if (++m_attributes > kMostAttributes)
            m_trouble = QString("an element has more than %1 attributes").arg(kMostAttributes);
    }
    const bool isBlank = character == QLatin1Char(' ') || character == QLatin1Char('\t')
        || character == QLatin1Char('\r') || character == QLatin1Char('\n');
    m_isBehindEqual = character == QLatin1Char('=') || (m_isBehindEqual && isBlank);
}
