#include "passworddialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace signdesk {

namespace {

struct PasswordWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::PasswordDialog)
};

QLabel *sentence(const QString &text)
{
    auto *const label = new QLabel(text);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(320);
    return label;
}

} // namespace

std::optional<QByteArray> askForPassword(QWidget *parent, const QString &what, const QString &complaint)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(QApplication::applicationDisplayName());
    auto *const form = new QFormLayout(&dialog);
    form->addRow(sentence(what));
    if (!complaint.isEmpty()) {
        QLabel *const label = sentence(complaint);
        label->setObjectName(QStringLiteral("complaint"));
        label->setStyleSheet(QStringLiteral("font-weight: bold"));
        form->addRow(label);
    }
    auto *const password = new QLineEdit;
    password->setEchoMode(QLineEdit::Password);
    password->setAccessibleDescription(what + QLatin1Char(' ') + complaint);
    form->addRow(PasswordWords::tr("&Password or PIN"), password);
    auto *const buttons = new QDialogButtonBox;
    auto *const accept = buttons->addButton(PasswordWords::tr("&OK"), QDialogButtonBox::AcceptRole);
    accept->setDefault(true);
    buttons->addButton(PasswordWords::tr("&Cancel"), QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    form->addRow(buttons);
    password->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return password->text().toUtf8();
}

} // namespace signdesk
