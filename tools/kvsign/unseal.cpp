// kvsign unseal: takes sealed pen data out of a PDF, for the owner of the key.
#include "documentwork.h"
#include "ink/inkformats.h"
#include "outputfile.h"
#include "passwords.h"
#include "subcommands.h"
#include "terminal.h"

#include <documents/problem.h>
#include <documents/seal.h>

#include <QBuffer>

#include <optional>

namespace {

constexpr Option kKeyOption{
    "key k", "FILE", "The private key (PEM or PKCS#12) of the certificate that it was sealed for.", nullptr, nullptr};
constexpr Option kKeyPasswordFileOption{"password-file", "FILE",
    "A file whose first line is the key's password. Without it the terminal is asked.", nullptr, nullptr};
constexpr Option kNumberOption{
    "number n", "N", "Which of several, from 1. Without it the only one that the key opens.", nullptr, nullptr};
constexpr Option kUnsealOptions[] = {
    kKeyOption, kKeyPasswordFileOption, kNumberOption, kDocumentPasswordOption, kJsonOption};
constexpr Positional kUnsealPositionals[] = {{"INPUT", "The PDF with sealed pen data.", 1, 1},
    {"OUTPUT", "The ink, in the format that the suffix says; without it the ink record on standard output.", 0, 1}};

/// The password is asked for once, however often the key is opened.
class Password
{
public:
    explicit Password(const Arguments &arguments)
        : m_arguments(arguments)
    {
    }

    QByteArray operator()(const QString &what)
    {
        if (!m_password.has_value())
            m_password = passwordOf(what, m_arguments, kKeyPasswordFileOption);
        return *m_password;
    }

private:
    const Arguments &m_arguments;
    std::optional<QByteArray> m_password;
};

QByteArray opened(const std::vector<QByteArray> &sealed, const Arguments &arguments)
{
    Password password(arguments);
    const auto ask = [&](const QString &what) { return password(what); };
    const QString key = arguments.value(kKeyOption), name = arguments.positionals().at(0);
    if (sealed.empty())
        throw failed(QString("%1: there is no sealed pen data in it").arg(name));
    if (arguments.isSet(kNumberOption)) {
        const int number = arguments.wholeNumber(kNumberOption, 1, static_cast<int>(sealed.size()));
        return documents::unseal(sealed[static_cast<size_t>(number) - 1], key, ask);
    }
    QStringList numbers;
    QByteArray found;
    std::optional<documents::Problem> why;
    for (size_t i = 0; i < sealed.size(); ++i) {
        try {
            found = documents::unseal(sealed[i], key, ask);
            numbers += QString::number(i + 1);
        } catch (const documents::Problem &problem) {
            why = problem;
        }
    }
    if (numbers.isEmpty())
        throw *why;
    if (numbers.size() > 1)
        throw misused(QString("the key opens several of them; say --number with one of %1").arg(numbers.join(", ")));
    return found;
}

const InkFormat &formatFor(const QString &path)
{
    const InkFormat *const format = path == "-" ? formatOfName("ink") : formatOfPath(path);
    if (format == nullptr || format->write == nullptr)
        throw misused(
            QString("%1: the suffix says none of the formats %2").arg(path, readableFormatNames().join(", ")));
    return *format;
}

int unseal(const Arguments &arguments)
{
    const QString path = arguments.positionals().value(1, "-");
    const InkFormat &format = formatFor(path);
    if (!arguments.isSet(kKeyOption))
        throw misused("--key is missing");
    if (arguments.isSet(kJsonOption) && path == "-")
        throw misused("--json and an output on standard output do not go together");
    const documents::Document document(arguments.positionals().at(0), documentPassword(arguments));
    OutputFile output(path);
    QBuffer content;
    content.setData(opened(documents::sealedIn(document), arguments));
    content.open(QIODevice::ReadOnly);
    const std::unique_ptr<PointSink> sink = format.write(output.device());
    pour(*formatOfName("inkml")->read(content, "the sealed pen data"), *sink);
    OutputFile::commit({&output}, [&] {
        if (arguments.isSet(kJsonOption))
            sayJson(
                {{"result", "unsealed"}, {"file", output.name()}, {"format", format.name}, {"bytes", output.size()}});
    });
    return kDone;
}

int runUnseal(const Arguments &arguments)
{
    return withDocuments([&] { return unseal(arguments); });
}

} // namespace

const Subcommand kUnsealSubcommand{
    "unseal", "Open the pen data that is sealed in a PDF.", kUnsealOptions, kUnsealPositionals, runUnseal, nullptr};
