/// @file
/// Decodes a Base64 text piece by piece and says where it is broken.
#ifndef BASE64READER_H
#define BASE64READER_H

#include <QByteArray>
#include <QString>

class QIODevice;

class Base64Reader
{
public:
    Base64Reader(QIODevice &device, const QString &name);

    /// Decodes up to so many bytes; fewer only at the end of the text. Throws a Failure.
    int read(char *bytes, int count);

private:
    void refill();

    QIODevice &m_device;
    QString m_name;
    QByteArray m_pending; ///< characters that are not yet a whole group
    QByteArray m_decoded;
    int m_place = 0; ///< in m_decoded
    qint64 m_offset = 0; ///< of the next character in the text
    bool m_padded = false;
    bool m_ended = false;
};

#endif
