/// @file
/// What the author of a form asks of a signature in one of its fields (the field's seed values).
#ifndef DOCUMENTS_SEEDVALUES_H
#define DOCUMENTS_SEEDVALUES_H

#include "signing.h"

#include <qpdf/QPDFObjectHandle.hh>

#include <optional>

namespace documents {

class SeedValues
{
public:
    /// @param field a signature field; it need not have any
    explicit SeedValues(QPDFObjectHandle field);

    /// Why the request is not what the field asks for, as a sentence that follows the field's name; empty when it is.
    QString refusal(const SigningRequest &request) const;

    /// The kind of message that the signature dictionary names: the usual one, unless only another is asked for.
    const char *subFilter() const;

private:
    bool needs(int flag) const;
    std::optional<QStringList> texts(const char *key) const;
    QString certificateRefusal(const SigningKey &key) const;

    QPDFObjectHandle m_values;
    long long m_flags = 0;
};

} // namespace documents

#endif
