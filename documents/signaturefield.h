/// @file
/// A signature field with its widget, and the signature dictionary that is its value.
#ifndef DOCUMENTS_SIGNATUREFIELD_H
#define DOCUMENTS_SIGNATUREFIELD_H

#include "appearance.h"
#include "formfields.h"
#include "pageplace.h"
#include "structuretree.h"

#include <QDateTime>

namespace documents {

/// The texts of a signature dictionary.
struct SignatureWords
{
    QString name;
    QString reason;
    QString location;
    QDateTime time;
    const char *subFilter; ///< the kind of its message
};

/// The dictionary, with room for a message of `room` bytes. It begins with `mark`, by which byterange.h finds it.
QPDFObjectHandle signatureDictionary(const SignatureWords &words, const std::string &mark, int room);

/// A name that no field has: Signature1, Signature2, ...
QString freeFieldName(const std::vector<FormField> &fields);

class SignatureField
{
public:
    SignatureField(Revision &revision, const TreePage &page);

    /// A new field at a place in millimetres of the shown page.
    void create(const QString &name, const QRectF &place, const QPDFObjectHandle &form, const std::string &text,
        const QPDFObjectHandle &signature);

    /// An empty field of the form.
    void fill(const FormField &field, const QPDFObjectHandle &form, const std::string &text,
        const QPDFObjectHandle &signature);

private:
    void setFlags();

    Revision &m_revision;
    TreePage m_page;
};

} // namespace documents

#endif
