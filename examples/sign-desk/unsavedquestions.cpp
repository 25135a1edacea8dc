#include "unsavedquestions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace signdesk {

namespace {

struct LeftWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::LeftSignature)
};

/// Return and Escape choose the harmless answers: what is left is discarded only by its own button.
LeftAnswer ask(QWidget *parent, const QString &what, const QString &question, const QString &goOn)
{
    QMessageBox box(QMessageBox::Question, QApplication::applicationDisplayName(), what, QMessageBox::NoButton, parent);
    box.setInformativeText(question);
    QPushButton *const yes = box.addButton(goOn, QMessageBox::AcceptRole);
    QPushButton *const later = box.addButton(LeftWords::tr("&Later"), QMessageBox::RejectRole);
    const QAbstractButton *const discard = box.addButton(LeftWords::tr("&Discard"), QMessageBox::DestructiveRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(later);
    box.exec();
    if (box.clickedButton() == discard)
        return LeftAnswer::Discard;
    return box.clickedButton() == yes ? LeftAnswer::GoOn : LeftAnswer::Later;
}

} // namespace

LeftAnswer askAboutLeft(QWidget *parent, const UnsavedSignature &left)
{
    const QString time = QLocale().toString(left.time, QLocale::ShortFormat);
    const QString what = left.path.isEmpty()
        ? LeftWords::tr("The blank sheet was signed on %1, but neither saved nor printed: Sign Desk ended before.")
              .arg(time)
        : LeftWords::tr("%1 was signed on %2, but neither saved nor printed: Sign Desk ended before.")
              .arg(QFileInfo(left.path).fileName(), time);
    return ask(parent, what, LeftWords::tr("The signature is still here. Shall it be put on the document again?"),
        LeftWords::tr("&Go on with it"));
}

LeftAnswer askAboutLost(QWidget *parent, const UnsavedSignature &left, const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    const QString what = !QFileInfo::exists(path) ? LeftWords::tr("%1 is no longer there.").arg(shown)
        : path == left.path                       ? LeftWords::tr("%1 has changed since it was signed.").arg(shown)
                                                  : LeftWords::tr("%1 is not the document that was signed.").arg(shown);
    return ask(parent, what,
        LeftWords::tr("The signature is not put on another document than its signer saw. It is still here: choose the "
                      "document as it was signed, or bring it back and start again."),
        LeftWords::tr("&Choose the document..."));
}

} // namespace signdesk
