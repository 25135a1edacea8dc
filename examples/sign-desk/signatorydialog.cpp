#include "signatorydialog.h"

#include "documenttrouble.h"
#include "passworddialog.h"

#include <documents/problem.h>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace signdesk {

namespace {

constexpr char kCertificate[] = "certificate";
constexpr char kReason[] = "reason";
constexpr char kLocation[] = "location";

/// The clerk does not want to type a password.
struct GivenUp
{
};

QByteArray ask(QWidget *parent, const QString &what, const QString &complaint)
{
    const QString name = what.startsWith(QLatin1Char('/')) ? QFileInfo(what).fileName() : what;
    const std::optional<QByteArray> typed =
        askForPassword(parent, SignatoryDialog::tr("The key of %1 is protected by a password.").arg(name), complaint);
    if (!typed.has_value())
        throw GivenUp();
    return *typed;
}

} // namespace

std::shared_ptr<documents::SigningKey> openKey(QWidget *parent, const QString &place)
{
    QString complaint;
    for (;;) {
        try {
            std::shared_ptr<documents::SigningKey> key =
                documents::openSigningKey(place, [&](const QString &what) { return ask(parent, what, complaint); });
            documents::needFit(*key);
            return key;
        } catch (const GivenUp &) {
            return nullptr;
        } catch (const documents::Problem &problem) {
            const Trouble trouble = troubleOf(problem);
            if (!isWrongPassword(problem))
                throw trouble;
            complaint = trouble.what + QLatin1Char(' ') + trouble.cure;
        }
    }
}

SignatoryDialog::SignatoryDialog(DeskSettings &settings, const Signatory &present, QWidget *parent)
    : QDialog(parent)
    , m_settings(settings)
    , m_signatory(present)
    , m_certificate(new QLineEdit(settings.value(kCertificate).toString()))
    , m_reason(new QLineEdit(settings.value(kReason).toString()))
    , m_location(new QLineEdit(settings.value(kLocation).toString()))
{
    setWindowTitle(tr("Digital signature"));
    makeFields();
    makeButtons();
}

void SignatoryDialog::makeFields()
{
    auto *const column = new QVBoxLayout(this);
    auto *const words =
        new QLabel(tr("With a certificate each signature on the page is a digital one too: it says whose "
                      "certificate signed, and shows whether the document was changed afterwards."));
    words->setWordWrap(true);
    column->addWidget(words);
    auto *const form = new QFormLayout;
    auto *const place = new QHBoxLayout;
    m_certificate->setMinimumWidth(300);
    m_certificate->setPlaceholderText(tr("file.p12 or pkcs11:token=..."));
    m_certificate->setAccessibleDescription(tr("A PKCS#12 file, or a token's address that begins with pkcs11:"));
    auto *const choose = new QPushButton(tr("&Browse..."));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &SignatoryDialog::browse);
    place->addWidget(m_certificate, 1);
    place->addWidget(choose);
    auto *const name = new QLabel(tr("&Certificate"));
    name->setBuddy(m_certificate);
    form->addRow(name, place);
    form->addRow(tr("&Reason"), m_reason);
    form->addRow(tr("&Place"), m_location);
    column->addLayout(form);
}

void SignatoryDialog::makeButtons()
{
    auto *const buttons = new QDialogButtonBox;
    auto *const use = buttons->addButton(tr("&Use certificate"), QDialogButtonBox::AcceptRole);
    use->setDefault(true);
    auto *const none = buttons->addButton(tr("&Ink alone"), QDialogButtonBox::DestructiveRole);
    buttons->addButton(tr("C&ancel"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &SignatoryDialog::take);
    connect(none, &QPushButton::clicked, this, &SignatoryDialog::takeNone);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

void SignatoryDialog::browse()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Certificate"), QFileInfo(m_certificate->text()).path(),
        tr("Certificates with their keys (*.p12 *.pfx)") + QStringLiteral(";;") + tr("All files (*)"));
    if (!path.isEmpty())
        m_certificate->setText(path);
}

void SignatoryDialog::take()
{
    const QString place = m_certificate->text().trimmed();
    try {
        if (place.isEmpty())
            throw Trouble{tr("No certificate is chosen."),
                tr("Choose its file, type a token's address, or sign with "
                   "ink alone.")};
        Signatory chosen{openKey(this, place), m_reason->text(), m_location->text()};
        if (chosen.key == nullptr)
            return;
        m_signatory = chosen;
    } catch (const Trouble &trouble) {
        showTrouble(this, trouble);
        return;
    }
    m_settings.setValue(kCertificate, place);
    m_settings.setValue(kReason, m_reason->text());
    m_settings.setValue(kLocation, m_location->text());
    accept();
}

void SignatoryDialog::takeNone()
{
    m_signatory = {};
    accept();
}

} // namespace signdesk
