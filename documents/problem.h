/// @file
/// Thrown when work on a document fails: one sentence for a person, and the kind of trouble.
#ifndef DOCUMENTS_PROBLEM_H
#define DOCUMENTS_PROBLEM_H

#include <QString>

namespace documents {

struct Problem
{
    enum class Kind
    {
        File, ///< cannot be read or written, or is not a PDF
        Password, ///< the document's password is missing or wrong
        Refused, ///< the document does not allow it, or a signature would break
        Key, ///< certificate, key, token, or the password of one
        Server, ///< the time-stamp server
        Request ///< what was asked for is not in the document
    };

    Kind kind;
    QString message;
};

} // namespace documents

#endif
