/// @file
/// What was signed and confirmed but neither saved nor printed yet, as it is kept beyond the program's end.
#ifndef UNSAVEDSIGNATURE_H
#define UNSAVEDSIGNATURE_H

#include "signingwork.h"

#include <QDateTime>

#include <optional>
#include <vector>

namespace signdesk {

/// A signature that is a part of the document already.
struct AddedSignature
{
    QByteArray bytes; ///< that follow the document before it, or the whole document
    bool isAppended = true;
    QString formField; ///< that it is in; empty for none
};

struct UnsavedSignature
{
    QString path; ///< of the document; empty for the blank sheet
    QByteArray digest; ///< of the document's file as it was signed (SHA-256)
    QDateTime time; ///< when it was kept
    QByteArray base; ///< what the first signature was added to, when that is not the document's file itself
    std::vector<AddedSignature> added;
    int saved = 0; ///< so many of those added were saved
    std::optional<SignatureWish> confirmed; ///< one that is not added yet; without its signatory
    QString signer; ///< whose certificate that one is to be made with; empty for ink alone
};

/// As a file, which says itself whether it is whole.
QByteArray packed(const UnsavedSignature &signature);

/// Nothing when the file is not whole, or of another version.
std::optional<UnsavedSignature> unpacked(const QByteArray &file);

} // namespace signdesk

#endif
