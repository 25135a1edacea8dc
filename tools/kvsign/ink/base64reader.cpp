#include "base64reader.h"

#include "../failure.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace {

constexpr int kTextPiece = 1 << 16;
constexpr int kGroup = 4;

bool isAlphabet(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
}

bool isTextBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

QString shown(char c)
{
    if (c > ' ' && c < 127)
        return QString("\"%1\"").arg(QChar(c));
    return QString("a byte of value %1").arg(static_cast<unsigned char>(c));
}

} // namespace

Base64Reader::Base64Reader(QIODevice &device, const QString &name)
    : m_device(device)
    , m_name(name)
{
}

int Base64Reader::read(char *bytes, int count)
{
    int taken = 0;
    while (taken < count) {
        if (m_place == m_decoded.size()) {
            if (m_ended)
                break;
            refill();
            continue;
        }
        const int now = std::min(count - taken, m_decoded.size() - m_place);
        std::memcpy(bytes + taken, m_decoded.constData() + m_place, static_cast<size_t>(now));
        taken += now;
        m_place += now;
    }
    return taken;
}

void Base64Reader::refill()
{
    const QByteArray piece = m_device.read(kTextPiece);
    m_ended = piece.isEmpty();
    for (const char c : piece) {
        const bool isPadding = c == '=' && (m_padded || m_pending.size() % kGroup >= 2);
        if (!isTextBlank(c) && !isPadding && (m_padded || !isAlphabet(c)))
            throw failed(QString("%1: %2 at byte %3 is not part of a Base64 text%4")
                             .arg(m_name, shown(c))
                             .arg(m_offset)
                             .arg(m_padded ? " that has ended" : ""));
        m_padded = m_padded || isPadding;
        if (!isTextBlank(c))
            m_pending += c;
        ++m_offset;
    }
    if (m_ended && m_pending.size() % kGroup != 0)
        throw failed(QString("%1: the Base64 text is cut off at byte %2, inside a group of four characters")
                         .arg(m_name)
                         .arg(m_offset));
    const int whole = m_pending.size() / kGroup * kGroup;
    m_decoded = QByteArray::fromBase64(m_pending.left(whole));
    m_pending = m_pending.mid(whole);
    m_place = 0;
}
