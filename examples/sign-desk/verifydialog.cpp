#include "verifydialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace signdesk {

namespace {

using documents::SignatureReport;
using documents::Trust;

struct VerifyWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::VerifyDialog)
};

QString signerOf(const SignatureReport &report)
{
    const QString name = report.signer.isEmpty() ? VerifyWords::tr("Nobody knows") : report.signer;
    return report.page < 0 ? name : VerifyWords::tr("%1, on page %2").arg(name).arg(report.page + 1);
}

QString timeOf(const SignatureReport &report)
{
    const auto shown = [](const QDateTime &time) {
        return QLocale().toString(time.toLocalTime(), QLocale::ShortFormat);
    };
    if (report.stampedTime.isValid() && report.isStampTrusted)
        return VerifyWords::tr("%1, by a time stamp").arg(shown(report.stampedTime));
    return report.statedTime.isValid() ? VerifyWords::tr("%1, by the signer's clock").arg(shown(report.statedTime))
                                       : VerifyWords::tr("Not said");
}

QString changesOf(const SignatureReport &report)
{
    if (!report.isIntact)
        return VerifyWords::tr("What was signed was changed, or cannot be read");
    if (!report.changed.isEmpty())
        return VerifyWords::tr("Yes, and that is not allowed");
    return report.added.isEmpty() ? VerifyWords::tr("No") : VerifyWords::tr("Only what is allowed was added");
}

QString trustOf(const SignatureReport &report)
{
    switch (report.trust) {
    case Trust::Trusted:
        return VerifyWords::tr("Trusted, issued by %1").arg(report.issuer);
    case Trust::SelfSigned:
        return VerifyWords::tr("Not trusted: nobody but its owner vouches for it");
    case Trust::Unknown:
        return VerifyWords::tr("Not trusted: its issuer is not known here");
    case Trust::Expired:
        return VerifyWords::tr("Expired, and no time stamp says that it was valid");
    case Trust::Revoked:
        return VerifyWords::tr("Revoked by its issuer");
    case Trust::NotForSigning:
        return VerifyWords::tr("Not meant for signatures");
    }
    return {};
}

} // namespace

SignatureRow rowOf(const SignatureReport &report)
{
    SignatureRow row{signerOf(report), timeOf(report),
        report.coversWholeFile ? VerifyWords::tr("The whole file") : VerifyWords::tr("An earlier revision"),
        changesOf(report), trustOf(report), {}, report.isValid()};
    row.verdict = report.isValid() ? VerifyWords::tr("Valid")
        : report.isAlgorithmWeak   ? VerifyWords::tr("Not valid: made in a way that is too weak")
                                   : VerifyWords::tr("Not valid");
    return row;
}

QString verdictOf(const documents::VerifyReport &report)
{
    if (report.signatures.empty())
        return VerifyWords::tr("There is no digital signature in this document.");
    if (report.isValid())
        return VerifyWords::tr("All digital signatures of this document are valid.");
    return VerifyWords::tr("Not all digital signatures of this document are valid: see the last column.");
}

VerifyDialog::VerifyDialog(const QString &name, const documents::VerifyReport &report, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Digital signatures of %1").arg(name));
    auto *const column = new QVBoxLayout(this);
    auto *const words = new QLabel(verdictOf(report));
    words->setObjectName(QStringLiteral("verdict"));
    words->setWordWrap(true);
    column->addWidget(words);
    if (!report.signatures.empty())
        column->addWidget(table(report), 1);
    auto *const buttons = new QDialogButtonBox;
    buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    if (!report.signatures.empty())
        resize(880, 300);
}

QTableWidget *VerifyDialog::table(const documents::VerifyReport &report)
{
    const QStringList titles{
        tr("Signer"), tr("When"), tr("Covers"), tr("Changed since"), tr("Certificate"), tr("Verdict")};
    auto *const rows = new QTableWidget(static_cast<int>(report.signatures.size()), titles.size());
    rows->setHorizontalHeaderLabels(titles);
    rows->setAccessibleName(tr("Digital signatures"));
    rows->setEditTriggers(QAbstractItemView::NoEditTriggers);
    rows->setSelectionBehavior(QAbstractItemView::SelectRows);
    rows->setWordWrap(true);
    rows->verticalHeader()->hide();
    rows->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    for (int i = 0; i < rows->rowCount(); ++i) {
        const SignatureRow row = rowOf(report.signatures[static_cast<size_t>(i)]);
        const QStringList texts{row.signer, row.time, row.covers, row.changed, row.certificate, row.verdict};
        for (int j = 0; j < texts.size(); ++j) {
            auto *const cell = new QTableWidgetItem(texts[j]);
            cell->setToolTip(texts[j]);
            rows->setItem(i, j, cell);
        }
        QFont bold = rows->font();
        bold.setBold(true);
        rows->item(i, titles.size() - 1)->setFont(bold);
    }
    rows->resizeRowsToContents();
    return rows;
}

} // namespace signdesk
