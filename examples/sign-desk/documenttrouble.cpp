#include "documenttrouble.h"

#include <documents/problem.h>

#include <QCoreApplication>

#include <new>

namespace signdesk {

namespace {

using Kind = documents::Problem::Kind;

struct TroubleWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Document)
};

/// A sentence of the library, known by a part of it, and what the clerk reads instead.
struct Known
{
    const char *part;
    const char *what;
    const char *cure;
};

constexpr const char *kAskAnother =
    QT_TRANSLATE_NOOP("signdesk::Document", "Ask for a copy of the document that is not locked.");
constexpr const char *kAnotherField =
    QT_TRANSLATE_NOOP("signdesk::Document", "Choose another field, or put the signature elsewhere on the page.");
constexpr const char *kAnotherCertificate =
    QT_TRANSLATE_NOOP("signdesk::Document", "Choose another certificate, or none.");
constexpr const char *kSeeCard =
    QT_TRANSLATE_NOOP("signdesk::Document", "See that the card is in its reader, and try again.");

constexpr Known kKnown[] = {
    {"which breaks its signatures",
        QT_TRANSLATE_NOOP("signdesk::Document",
            "The document is signed already, and encrypted or damaged: another signature would break the earlier "
            "ones."),
        kAskAnother},
    {"forbids every change",
        QT_TRANSLATE_NOOP(
            "signdesk::Document", "The document is certified, and its certification forbids every change."),
        kAskAnother},
    {"allows signatures but no ink",
        QT_TRANSLATE_NOOP("signdesk::Document",
            "The document is certified: it may be signed with a certificate, but not with ink alone."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Choose a certificate at the right, and sign with it.")},
    {"is signed already", QT_TRANSLATE_NOOP("signdesk::Document", "This field of the form is signed already."),
        kAnotherField},
    {"an earlier signature forbids",
        QT_TRANSLATE_NOOP("signdesk::Document", "An earlier signature forbids to sign this field."), kAnotherField},
    {"is too small for ink", QT_TRANSLATE_NOOP("signdesk::Document", "This field of the form is too small for ink."),
        kAnotherField},
    {"does not lie on page", QT_TRANSLATE_NOOP("signdesk::Document", "The signature's field does not lie on the page."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Move the field onto the page.")},
    {"the password is another one", QT_TRANSLATE_NOOP("signdesk::Document", "This is not the password."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Type it again.")},
    {"does not take the PIN", QT_TRANSLATE_NOOP("signdesk::Document", "The card does not take this PIN."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Type it again; too many wrong ones lock the card.")},
    {"is no PKCS#12 file", QT_TRANSLATE_NOOP("signdesk::Document", "The file is no certificate with a key."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Choose a PKCS#12 file; its name mostly ends with .p12 or .pfx.")},
    {"no key with a certificate",
        QT_TRANSLATE_NOOP("signdesk::Document", "There is no key with a certificate in the file."),
        kAnotherCertificate},
    {"no longer takes; export it anew",
        QT_TRANSLATE_NOOP("signdesk::Document", "The certificate's file is encrypted in a way that is no longer safe."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Export it anew from the program that it came from.")},
    {"No such file", QT_TRANSLATE_NOOP("signdesk::Document", "The certificate's file is not there."),
        kAnotherCertificate},
    {"there is no such token", QT_TRANSLATE_NOOP("signdesk::Document", "There is no such card or token."), kSeeCard},
    {"there is no such certificate",
        QT_TRANSLATE_NOOP("signdesk::Document", "There is no such certificate with a key on the token."),
        kAnotherCertificate},
    {"several such certificates",
        QT_TRANSLATE_NOOP("signdesk::Document", "There are several such certificates on the token."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Say which with object= or id= in its address.")},
    {"a PIN does not belong",
        QT_TRANSLATE_NOOP("signdesk::Document", "The token's address holds a PIN, where everyone can read it."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Leave it out; the desk asks for the PIN.")},
    {"for tokens cannot be loaded",
        QT_TRANSLATE_NOOP("signdesk::Document", "The module for the token cannot be loaded."),
        QT_TRANSLATE_NOOP(
            "signdesk::Document", "Have the token's software installed, and its path put into the address.")},
    {"expired on", QT_TRANSLATE_NOOP("signdesk::Document", "The certificate has expired."), kAnotherCertificate},
    {"is not valid before", QT_TRANSLATE_NOOP("signdesk::Document", "The certificate is not valid yet."),
        kAnotherCertificate},
    {"is not meant for signatures",
        QT_TRANSLATE_NOOP("signdesk::Document", "The certificate is not meant for signatures."), kAnotherCertificate},
    {"other keys cannot sign",
        QT_TRANSLATE_NOOP("signdesk::Document", "The certificate's key is of a kind that cannot sign a PDF."),
        kAnotherCertificate},
    {"refused to sign", QT_TRANSLATE_NOOP("signdesk::Document", "The key or its token refused to sign."), kSeeCard},
    {"more memory than there is",
        QT_TRANSLATE_NOOP("signdesk::Document", "The document needs more memory than there is."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Close other programs, and try again. The signature is still here.")},
    {"its password is another one",
        QT_TRANSLATE_NOOP("signdesk::Document", "The document is protected by another password."),
        QT_TRANSLATE_NOOP("signdesk::Document", "Open it anew with its password.")},
};

/// For sentences that are not known, by their kind.
const Known &ofKind(Kind kind)
{
    static constexpr Known document{"", QT_TRANSLATE_NOOP("signdesk::Document", "The document cannot be signed: %1"),
        QT_TRANSLATE_NOOP(
            "signdesk::Document", "Have it made anew where it comes from, or print it. The signature is still here.")};
    static constexpr Known refused{
        "", QT_TRANSLATE_NOOP("signdesk::Document", "The document does not allow it: %1"), kAskAnother};
    static constexpr Known key{
        "", QT_TRANSLATE_NOOP("signdesk::Document", "The certificate cannot be used: %1"), kAnotherCertificate};
    return kind == Kind::Key || kind == Kind::Server ? key : kind == Kind::Refused ? refused : document;
}

/// Without the file's name in front.
QString reasonOf(const documents::Problem &problem)
{
    return problem.message.mid(problem.message.indexOf(QLatin1String(": ")) + 1).trimmed();
}

} // namespace

Trouble troubleOf(const documents::Problem &problem)
{
    for (const Known &known : kKnown) {
        if (problem.message.contains(QLatin1String(known.part)))
            return {TroubleWords::tr(known.what), TroubleWords::tr(known.cure)};
    }
    const Known &row = ofKind(problem.kind);
    return {TroubleWords::tr(row.what).arg(reasonOf(problem)), TroubleWords::tr(row.cure)};
}

bool isWrongPassword(const documents::Problem &problem)
{
    return problem.kind == Kind::Key
        && (problem.message.contains(QLatin1String("the password is another one"))
            || problem.message.contains(QLatin1String("does not take the PIN")));
}

void withTroubles(const std::function<void()> &work)
{
    try {
        work();
    } catch (const documents::Problem &problem) {
        throw troubleOf(problem);
    } catch (const std::bad_alloc &) {
        throw troubleOf({Kind::File, QStringLiteral("document: needs more memory than there is")});
    }
}

} // namespace signdesk
