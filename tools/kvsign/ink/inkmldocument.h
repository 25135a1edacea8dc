/// @file
/// Walks through an InkML document, and finds for each trace the format that its context gives it.
#ifndef INKMLDOCUMENT_H
#define INKMLDOCUMENT_H

#include "../failure.h"
#include "inkmlchannels.h"
#include "xmllimits.h"

#include <QHash>
#include <QXmlStreamReader>

#include <memory>
#include <optional>
#include <vector>

/// A trace to be read, with everything that its context says about it.
struct InkmlTraceText
{
    std::shared_ptr<const InkmlFormat> format;
    double step = 0; ///< milliseconds between two points, from the source's sampling rate; 0: unknown
    double aspect = 1; ///< multiply Y by this, because its resolution may differ from that of X
    std::optional<double> zero; ///< milliseconds since 1970 at T = 0
    std::optional<double> begin; ///< T of its first point
    std::optional<double> duration; ///< from its first point to its last, milliseconds
    QByteArray text;
    qint64 line = 0; ///< where it begins
    bool continues = false; ///< it continues the stroke of the trace before
    qint64 from = 1; ///< first point to read, counted from 1
    qint64 to = -1; ///< last point to read; -1: the last one of all
};

class InkmlDocument
{
public:
    /// Reads from the device's current position.
    InkmlDocument(QIODevice &device, const QString &name);

    /// The next trace of a pen that touches the surface; false at the end. Throws a Failure that says what is wrong and
    /// where.
    bool next(InkmlTraceText &trace);

    Failure broken(qint64 line, const QString &what) const;

private:
    /// An inkSource: the device that was written on, with its channels and their properties.
    struct Source
    {
        std::shared_ptr<InkmlFormat> format;
        double step = 0;
        double resolutionX = 0;
        double resolutionY = 0;
    };

    struct Context
    {
        std::shared_ptr<InkmlFormat> format;
        std::shared_ptr<Source> source;
        QString timestamp;
    };

    /// An element that is open.
    struct Open
    {
        QString name;
        QString id;
        QString contextRef;
        std::shared_ptr<Context> context;
        std::shared_ptr<Source> source;
        std::shared_ptr<InkmlFormat> format;
        QString timestamp;
        bool isDefinition = false; ///< it is inside <definitions>
    };

    void checkEncoding() const;
    QXmlStreamReader::TokenType readNext();
    void checkDepth(size_t outer) const;
    [[noreturn]] void failAsReader() const;
    void begin();
    void skip();
    QString readText();
    void end();
    void checkRoot();
    void beginContext(Open &element);
    void beginTraceFormat(Open &element);
    void beginChannel(bool isIntermittent);
    void beginProperty();
    void beginTimestamp();
    void beginTrace(const Open &element);
    void store(const QString &id, const InkmlTraceText &trace);
    void beginView();
    void endContext(const Open &element);
    Open *enclosing(const char *name);
    bool isInside(const char *name) { return enclosing(name) != nullptr; }
    std::shared_ptr<Context> contextOfTrace(const Open &element);
    void describe(
        InkmlTraceText &trace, const std::shared_ptr<Context> &context, const QXmlStreamAttributes &attributes);
    QString attribute(const char *name) const;
    QString reference(const char *name) const;
    std::optional<double> number(const char *name) const;
    template <class Value>
    std::shared_ptr<Value> referred(const QHash<QString, std::shared_ptr<Value>> &known, const char *name) const;
    Failure broken(const QString &what) const { return broken(m_xml.lineNumber(), what); }

    XmlLimits m_limited;
    QXmlStreamReader m_xml;
    QString m_name;
    QString m_namespace;
    std::vector<Open> m_open;
    std::vector<InkmlTraceText> m_found; ///< traces that come next, the last one first
    QHash<QString, std::shared_ptr<Context>> m_contexts;
    QHash<QString, std::shared_ptr<Source>> m_sources;
    QHash<QString, std::shared_ptr<InkmlFormat>> m_formats;
    QHash<QString, double> m_timestamps; ///< milliseconds since 1970
    QHash<QString, std::vector<InkmlTraceText>> m_stored; ///< traces of definitions, by their ids and those of groups
    std::shared_ptr<Context> m_current; ///< for traces that name none
    std::shared_ptr<InkmlFormat> m_last; ///< for contexts without a format
    std::shared_ptr<Source> m_lastSource;
    const std::shared_ptr<const InkmlFormat> m_plain = std::make_shared<InkmlFormat>(InkmlFormat::plain());
    int m_storedCount = 0;
    qint64 m_viewed = 0; ///< bytes of traces that were seen through views
};

#endif
