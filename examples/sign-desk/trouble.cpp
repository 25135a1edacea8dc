#include "trouble.h"

#include <QApplication>
#include <QMessageBox>

namespace signdesk {

void showTrouble(QWidget *parent, const Trouble &trouble)
{
    QMessageBox box(
        QMessageBox::Warning, QApplication::applicationDisplayName(), trouble.what, QMessageBox::NoButton, parent);
    box.setInformativeText(trouble.cure);
    box.addButton(QApplication::translate("signdesk::Trouble", "OK"), QMessageBox::AcceptRole);
    box.exec();
}

} // namespace signdesk
