/// @file
/// The fields of a document's form.
#ifndef DOCUMENTS_FORMFIELDS_H
#define DOCUMENTS_FORMFIELDS_H

#include <QString>

#include <qpdf/QPDF.hh>

#include <string>
#include <vector>

namespace documents {

/// A field that has a value of its own, with the widgets that show it.
struct FormField
{
    std::string name; ///< full, in UTF-8
    std::string type; ///< "/Sig", "/Tx", ...; inherited too
    QPDFObjectHandle field;
    std::vector<QPDFObjectHandle> widgets; ///< the field itself when it is its own widget

    bool isSignature() const { return type == "/Sig"; }

    /// A push button has no value: it only shows something.
    bool isPushButton() const;

    /// The signature dictionary; null when the field is not signed.
    QPDFObjectHandle signature() const;
};

/// A field's value in quotation marks, shortened when it is long.
QString shownValue(QPDFObjectHandle value);

/// The fields in the order of the form. Loops and hostile depths end the search.
std::vector<FormField> fieldsOf(QPDF &pdf);

} // namespace documents

#endif
