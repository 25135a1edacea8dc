/// @file
/// What the digital signatures of a document are worth, a row for each.
#ifndef VERIFYDIALOG_H
#define VERIFYDIALOG_H

#include <documents/verify.h>

#include <QDialog>

class QTableWidget;

namespace signdesk {

/// The words of a row.
struct SignatureRow
{
    QString signer;
    QString time;
    QString covers;
    QString changed;
    QString certificate;
    QString verdict;
    bool isValid = false;
};

SignatureRow rowOf(const documents::SignatureReport &report);

/// All signatures in one sentence.
QString verdictOf(const documents::VerifyReport &report);

class VerifyDialog : public QDialog
{
    Q_OBJECT
public:
    VerifyDialog(const QString &name, const documents::VerifyReport &report, QWidget *parent = nullptr);

private:
    QTableWidget *table(const documents::VerifyReport &report);
};

} // namespace signdesk

#endif
