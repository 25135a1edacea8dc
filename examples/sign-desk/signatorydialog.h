/// @file
/// Chooses the certificate that signatures are made with, and opens it.
#ifndef SIGNATORYDIALOG_H
#define SIGNATORYDIALOG_H

#include "desksettings.h"
#include "signingwork.h"

#include <QDialog>
#include <QLineEdit>

namespace signdesk {

/// Opens the key in a PKCS#12 file or on a token (pkcs11: address), and asks for its password until that is right.
/// Null when the clerk gives up. Throws a Trouble.
std::shared_ptr<documents::SigningKey> openKey(QWidget *parent, const QString &place);

class SignatoryDialog : public QDialog
{
    Q_OBJECT
public:
    SignatoryDialog(DeskSettings &settings, const Signatory &present, QWidget *parent = nullptr);

    const Signatory &signatory() const { return m_signatory; }

private:
    void makeFields();
    void makeButtons();
    void browse();
    void take();
    void takeNone();

    DeskSettings &m_settings;
    Signatory m_signatory;
    QLineEdit *m_certificate;
    QLineEdit *m_reason;
    QLineEdit *m_location;
};

} // namespace signdesk

#endif
