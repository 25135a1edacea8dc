/// @file
/// Passes an XML document on, and ends it where Qt's reader would take time without end. It compares each attribute of
/// an element with each other one, and goes through a document type's attributes again and again.
#ifndef XMLLIMITS_H
#define XMLLIMITS_H

#include <QIODevice>
#include <QString>

#include <memory>

class QTextDecoder;

class XmlLimits : public QIODevice
{
public:
    static constexpr int kMostAttributes = 128; ///< of an element, with its namespaces
    static constexpr qint64 kMostHead = 1 << 15; ///< bytes before the first element, with the document type

    /// Reads from the device's current position.
    explicit XmlLimits(QIODevice &device);
    ~XmlLimits() override;

    bool isSequential() const override { return true; }
    bool atEnd() const override { return !m_trouble.isEmpty() || m_device.atEnd(); }

    /// Why nothing more comes; empty while the document keeps to the limits.
    QString trouble() const { return m_trouble; }

    /// Call it when the first element has begun.
    void endHead() { m_isHead = false; }

    /// Whether it finds the attributes of a document that says that its encoding is this one.
    bool knows(const QByteArray &encoding) const;

protected:
    qint64 readData(char *bytes, qint64 most) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    qint64 allowed(const char *bytes, int size);
    void look(QChar character);

    QIODevice &m_device;
    std::unique_ptr<QTextDecoder> m_decoder;
    bool m_isWide = false; ///< the characters are of two or four bytes
    bool m_isBehindEqual = false;
    int m_attributes = 0; ///< since the last <
    bool m_isHead = true;
    qint64 m_size = 0;
    QString m_trouble;
};

#endif
