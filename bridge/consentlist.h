/// @file
/// The window that lists who may use the pad without a question, where it can be taken back.
#ifndef CONSENTLIST_H
#define CONSENTLIST_H

#include "consents.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace bridge {

class ConsentList : public QDialog
{
    Q_OBJECT

public:
    explicit ConsentList(Consents &consents);

private:
    void fill();
    void revokeChosen();

    Consents &m_consents;
    QListWidget *m_list;
    QPushButton *m_revoke;
};

} // namespace bridge

#endif
