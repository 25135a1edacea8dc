// kvsign sign: puts ink into a PDF, with a digital signature or without.
#include "captured.h"
#include "documentwork.h"
#include "headlesspad.h"
#include "interruption.h"
#include "keptink.h"
#include "outputfile.h"
#include "passwords.h"
#include "pictureoptions.h"
#include "progress.h"
#include "signingink.h"
#include "subcommands.h"
#include "terminal.h"

#include <documents/seal.h>
#include <documents/signing.h>
#include <documents/source.h>

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QLocale>
#include <QRegularExpression>

#include <optional>
#include <sys/stat.h>

namespace {

constexpr Option kPageOption{"page p", "N", "The page to sign, from 1. Without it the last one.", nullptr, nullptr};
constexpr Option kFieldOption{"field", "X,Y,WxH",
    "Where the ink goes, in millimetres from the top left of the page as it is shown, such as 120,240,70x40. Without it "
    "the form's only empty signature field, or the page's lower right corner.",
    nullptr, nullptr};
constexpr Option kFormFieldOption{
    "form-field", "NAME", "The empty signature field of the form that takes the ink.", nullptr, nullptr};
constexpr Option kInkOption{"ink i", "FILE", "Ink to sign with; see convert for its formats.", nullptr, nullptr};
constexpr Option kCaptureOption{
    "capture", "MODEL", "Sign on a pad now: auto, or one of @MODELS@.", nullptr, "auto @MODELS@"};
constexpr Option kFingerprintOption{
    "fingerprint", "FILE", "A picture of a fingerprint beside the ink; its white is transparent.", nullptr, nullptr};
constexpr Option kCertificateOption{"certificate", "FILE",
    "Sign digitally with this PKCS#12 file, or a token's certificate by its pkcs11: URI. Without it the ink becomes a "
    "part of the page.",
    nullptr, nullptr};
constexpr Option kPasswordFileOption{"password-file", "FILE",
    "A file whose first line is the certificate's password or PIN. Without it the terminal is asked.", nullptr,
    nullptr};
constexpr Option kNameOption{"name", "TEXT", "Who signs. Without it as the certificate says.", nullptr, nullptr};
constexpr Option kReasonOption{"reason", "TEXT", "Why it is signed.", nullptr, nullptr};
constexpr Option kLocationOption{"location", "TEXT", "Where it is signed.", nullptr, nullptr};
constexpr Option kTimestampOption{
    "timestamp", "URL", "Ask this server (RFC 3161) for a time stamp of the digital signature.", nullptr, nullptr};
constexpr Option kSealOption{"seal", "FILE",
    "Keep the pen data too (pressure and times), encrypted for this certificate (PEM). Pen data is biometric: ask the "
    "signer for consent.",
    nullptr, nullptr};
constexpr Option kFlattenOption{
    "flatten", nullptr, "Make form fields a part of the page before the first signature.", nullptr, nullptr};
constexpr Option kSignOptions[] = {kPageOption, kFieldOption, kFormFieldOption, kInkOption, kFromOption, kCaptureOption,
    kTimeoutOption, kModelOption, kPenWidthOption, kNoPressureOption, kColourOption, kClipOption, kFingerprintOption,
    kCertificateOption, kPasswordFileOption, kNameOption, kReasonOption, kLocationOption, kTimestampOption, kSealOption,
    kFlattenOption, kDocumentPasswordOption, kDriverOption, kUnsafeDriverOption, kJsonOption};
constexpr Option kInkFileOptions[] = {kFromOption, kModelOption};
constexpr Option kPadOptions[] = {kTimeoutOption, kDriverOption, kUnsafeDriverOption};
constexpr Positional kSignPositionals[] = {
    {"INPUT", "The PDF to sign.", 1, 1}, {"OUTPUT", "The signed PDF; - is standard output.", 1, 1}};

constexpr double kUsualWidth = 70, kUsualHeight = 40, kUsualMargin = 15; // millimetres

QRectF parsedField(const QString &text)
{
    static const QRegularExpression form(R"(^(\d+(?:\.\d+)?),(\d+(?:\.\d+)?),(\d+(?:\.\d+)?)x(\d+(?:\.\d+)?)$)");
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        throw misused(QString("--field takes millimetres such as 120,240,70x40, not \"%1\"").arg(text));
    const auto number = [&](int index) { return match.captured(index).toDouble(); };
    return {number(1), number(2), number(3), number(4)};
}

/// Also by another name: a link, or one of several names of a file.
bool isSameFile(const QString &one, const QString &other)
{
    struct stat first = {}, second = {};
    return stat(QFile::encodeName(one).constData(), &first) == 0
        && stat(QFile::encodeName(other).constData(), &second) == 0 && first.st_dev == second.st_dev
        && first.st_ino == second.st_ino;
}

void checkSignOptions(const Arguments &arguments)
{
    if (arguments.isSet(kInkOption) == arguments.isSet(kCaptureOption))
        throw misused("one of --ink and --capture says where the ink comes from");
    if (arguments.isSet(kCaptureOption))
        arguments.refuseIdle(kInkFileOptions, "without --ink");
    else
        arguments.refuseIdle(kPadOptions, "without --capture");
    if (arguments.isSet(kFormFieldOption) && (arguments.isSet(kFieldOption) || arguments.isSet(kPageOption)))
        throw misused("--form-field has a place of its own; it does not go with --page and --field");
    for (const Option *option : {&kPasswordFileOption, &kTimestampOption, &kReasonOption, &kLocationOption}) {
        if (arguments.isSet(*option) && !arguments.isSet(kCertificateOption))
            throw misused(QString("--%1 needs --certificate").arg(namesOf(*option).first()));
    }
    if (arguments.isSet(kJsonOption) && arguments.positionals().at(1) == "-")
        throw misused("--json and an output on standard output do not go together");
    if (isSameFile(arguments.positionals().at(0), arguments.positionals().at(1)))
        throw misused(QString("%1 is the document itself; name another file").arg(arguments.positionals().at(1)));
    arguments.wholeNumber(kTimeoutOption, 0, 86400);
    arguments.choice(kModelOption);
    if (arguments.isSet(kCaptureOption))
        arguments.choice(kCaptureOption);
    colour(arguments, kColourOption);
    clipMargin(arguments);
    penWidth(arguments, *kModelRows[0]);
}

/// The only empty signature field; an empty name when there are several or none.
QString onlyEmptyField(const documents::Document &document)
{
    QStringList names;
    for (const documents::SignatureFieldFacts &field : document.signatureFields()) {
        if (!field.isSigned && field.page >= 0)
            names += field.name;
    }
    return names.size() == 1 ? names.first() : QString();
}

void choosePlace(const Arguments &arguments, const documents::Document &document, documents::SigningRequest &request)
{
    request.formField = arguments.value(kFormFieldOption);
    const bool isFree = !arguments.isSet(kFieldOption) && !arguments.isSet(kPageOption);
    if (request.formField.isEmpty() && isFree)
        request.formField = onlyEmptyField(document);
    if (!request.formField.isEmpty())
        return;
    request.page = document.pageCount() - 1;
    if (arguments.isSet(kPageOption))
        request.page = arguments.wholeNumber(kPageOption, 1, document.pageCount()) - 1;
    if (arguments.isSet(kFieldOption)) {
        request.place = parsedField(arguments.value(kFieldOption));
        return;
    }
    const QSizeF page = document.page(request.page).size;
    const double fit = std::min(
        {1.0, page.width() / (kUsualWidth + 2 * kUsualMargin), page.height() / (kUsualHeight + 2 * kUsualMargin)});
    const QSizeF size = QSizeF(kUsualWidth, kUsualHeight) * fit;
    const double margin = kUsualMargin * fit;
    request.place = QRectF(QPointF(page.width() - margin - size.width(), page.height() - margin - size.height()), size);
}

QString alternativeText(const documents::SigningRequest &request)
{
    QString name = request.name;
    if (name.isEmpty() && request.key != nullptr)
        name = request.key->owner();
    const QString day = QLocale::c().toString(request.time.date(), "d MMMM yyyy");
    return name.isEmpty() ? QString("Signature, %1").arg(day) : QString("Signature of %1, %2").arg(name, day);
}

/// The picture in a file; none without a path.
QImage pictureIn(const QString &path)
{
    if (path.isEmpty())
        return {};
    const documents::Source source(path); // refuses a named pipe, for whose other end QImageReader would wait
    QFile file(path);
    if (!file.open(source.descriptor(), QIODevice::ReadOnly))
        throw failed(QString("%1: %2").arg(path, file.errorString()));
    QImageReader reader(&file);
    QImage picture = reader.read();
    if (picture.isNull())
        throw failed(QString("%1: %2").arg(path, reader.errorString()));
    return picture;
}

/// Puts the picture beside the ink, in the right third of the canvas.
void addFingerprint(const QImage &picture, documents::Ink &ink)
{
    ink.picture = picture;
    const QRectF third(ink.canvas.width() * 2 / 3, 0, ink.canvas.width() / 3, ink.canvas.height());
    QSizeF size = ink.picture.size();
    size.scale(third.size(), Qt::KeepAspectRatio);
    ink.picturePlace = QRectF(QPointF(0, 0), size);
    ink.picturePlace.moveCenter(third.center());
}

QJsonObject summary(
    const documents::SigningResult &result, const documents::SigningRequest &request, const OutputFile &output)
{
    return {{"result", "signed"}, {"file", output.name()}, {"bytes", result.size},
        {"added", result.size - result.originalSize}, {"page", result.page + 1},
        {"place",
            QJsonObject{{"x", result.place.x()}, {"y", result.place.y()}, {"width", result.place.width()},
                {"height", result.place.height()}}},
        {"field", result.field.isEmpty() ? QJsonValue() : result.field},
        {"signer", request.key == nullptr ? QJsonValue() : request.key->owner()},
        {"rewritten", !result.rewriteReason.isEmpty()}, {"rewriteReason", result.rewriteReason},
        {"flattened", result.flattened}, {"sealed", !request.sealed.isEmpty()},
        {"timestamp", !request.timestampUrl.isEmpty()}, {"notes", QJsonArray::fromStringList(result.notes)}};
}

void tell(const documents::SigningResult &result, const documents::SigningRequest &request, const OutputFile &output)
{
    const QString how = request.key == nullptr ? QString("ink on page %1").arg(result.page + 1)
                                               : QString("signed by %1 in the field \"%2\" on page %3")
                                                     .arg(request.key->owner(), result.field)
                                                     .arg(result.page + 1);
    say(QString("%1: %2").arg(output.name(), how));
    if (result.rewriteReason.isEmpty())
        say(QString("%1 bytes added to %2")
                .arg(grouped(result.size - result.originalSize), grouped(result.originalSize)));
    else
        say(QString("%1 bytes; the document was written anew, for %2").arg(grouped(result.size), result.rewriteReason));
    if (result.flattened > 0)
        say(QString("%1 form fields became a part of their pages").arg(result.flattened));
    for (const QString &note : result.notes)
        say(QString("note: %1").arg(note));
}

/// Makes an option's path absolute, because a capture changes the working directory.
QString absolute(const Arguments &arguments, const Option &option)
{
    return arguments.isSet(option) ? QFileInfo(arguments.value(option)).absoluteFilePath() : QString();
}

/// What is used besides the ink.
struct Beside
{
    QString seal; ///< the certificate's file
    QImage print;
};

/// Adds the ink to the request, and the fingerprint and the sealed pen data if they are wanted.
void fillIn(const Arguments &arguments, const std::optional<Captured> &captured, const Beside &beside,
    documents::SigningRequest &request, Progress &progress)
{
    std::optional<CapturedInk> file;
    if (captured.has_value())
        file.emplace(captured->record);
    InkInput input(file.has_value() ? file->path() : arguments.value(kInkOption),
        file.has_value() ? QString("ink") : arguments.value(kFromOption), progress);
    const QString model = captured.has_value() ? captured->model : arguments.choice(kModelOption);
    request.ink = inkLines(input, inkSettings(arguments, input, model, 1));
    if (!beside.print.isNull())
        addFingerprint(beside.print, request.ink);
    if (!beside.seal.isEmpty())
        request.sealed = documents::sealFor(beside.seal, inkml(input));
    request.time = QDateTime::currentDateTime();
    request.alternativeText = alternativeText(request);
}

int sign(const Arguments &arguments)
{
    Progress progress;
    documents::Document document(arguments.positionals().at(0), documentPassword(arguments));
    documents::SigningRequest request;
    choosePlace(arguments, document, request);
    request.name = arguments.value(kNameOption);
    request.reason = arguments.value(kReasonOption);
    request.location = arguments.value(kLocationOption);
    request.timestampUrl = arguments.value(kTimestampOption);
    request.flatten = arguments.isSet(kFlattenOption);
    std::unique_ptr<documents::SigningKey> key;
    if (arguments.isSet(kCertificateOption)) {
        key = documents::openSigningKey(arguments.value(kCertificateOption),
            [&](const QString &what) { return passwordOf(what, arguments, kPasswordFileOption); });
        documents::needFit(*key);
        request.key = key.get();
    }
    documents::checkRequest(document, request);
    const QString name = arguments.positionals().at(1);
    OutputFile output(name);
    // What is wrong with these files is said now rather than after somebody has signed.
    const Beside beside{absolute(arguments, kSealOption), pictureIn(arguments.value(kFingerprintOption))};
    if (!beside.seal.isEmpty())
        documents::sealFor(beside.seal, "probe");
    const auto finish = [&](const std::optional<Captured> &captured) {
        fillIn(arguments, captured, beside, request, progress);
        const documents::SigningResult result =
            documents::sign(document, request, output.device(), [&](qint64 done, qint64 total) {
                throwIfInterrupted();
                progress.show("signing", done, total);
            });
        progress.clear();
        OutputFile::commit({&output}, [&] {
            if (arguments.isSet(kJsonOption))
                sayJson(summary(result, request, output));
            else if (name != "-")
                tell(result, request, output);
        });
    };
    if (arguments.isSet(kCaptureOption)) {
        const QString place = QFileInfo(name == "-" ? QString("signature") : name).absoluteFilePath();
        const Captured captured = captureRecord(arguments, arguments.choice(kCaptureOption));
        keepingInk(captured.record, place, [&] { finish(captured); });
    } else {
        finish(std::nullopt);
    }
    return kDone;
}

int runSign(const Arguments &arguments)
{
    checkSignOptions(arguments);
    return withDocuments([&] { return sign(arguments); });
}

} // namespace

const Subcommand kSignSubcommand{"sign", "Put ink into a PDF, with a digital signature or without.", kSignOptions,
    kSignPositionals, runSign, nullptr};
