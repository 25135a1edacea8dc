#include "peeruser.h"

#include <QFile>

#include <arpa/inet.h>
#include <cstring>

namespace bridge {

namespace {

/// As the tables write it: the address in words of the machine's own order, then the port.
QByteArray inTable(const QHostAddress &address, quint16 port)
{
    QByteArray words;
    if (address.protocol() == QAbstractSocket::IPv4Protocol) {
        words = QByteArray::number(htonl(address.toIPv4Address()), 16).rightJustified(8, '0');
    } else {
        const Q_IPV6ADDR bytes = address.toIPv6Address();
        for (int i = 0; i < 16; i += 4) {
            quint32 word = 0;
            std::memcpy(&word, &bytes.c[i], sizeof word);
            words += QByteArray::number(word, 16).rightJustified(8, '0');
        }
    }
    return (words + ':' + QByteArray::number(port, 16).rightJustified(4, '0')).toUpper();
}

} // namespace

std::optional<uid_t> ownerIn(const QByteArray &table, const QHostAddress &from, quint16 fromPort, quint16 toPort)
{
    const QByteArray local = inTable(from, fromPort);
    const QByteArray remote = inTable(from, toPort); // on loopback both ends have one address
    for (const QByteArray &line : table.split('\n')) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        bool isNumber = false;
        if (columns.size() < 8 || columns[1] != local || columns[2] != remote)
            continue;
        const uid_t owner = columns[7].toUInt(&isNumber);
        if (isNumber)
            return owner;
    }
    return std::nullopt;
}

std::optional<uid_t> ownerOf(const QHostAddress &from, quint16 fromPort, quint16 toPort)
{
    const bool isFour = from.protocol() == QAbstractSocket::IPv4Protocol;
    QFile table(isFour ? QStringLiteral("/proc/net/tcp") : QStringLiteral("/proc/net/tcp6"));
    if (!table.open(QIODevice::ReadOnly))
        return std::nullopt;
    return ownerIn(table.readAll(), from, fromPort, toPort);
}

} // namespace bridge
