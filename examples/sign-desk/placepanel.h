/// @file
/// The part of the side panel that says where on the page the signature goes.
#ifndef PLACEPANEL_H
#define PLACEPANEL_H

#include "fingerprintplacing.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>

namespace signdesk {

class PlacePanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit PlacePanel(QWidget *parent = nullptr);

    void setPageCount(int count);
    int page() const { return m_page->value() - 1; }
    void setPage(int page);

    /// Offers empty fields of the document's form by name.
    void setFormFields(const QStringList &names);

    /// Empty for a free place.
    QString formField() const;
    void setFormField(const QString &name);
    void setFirstFormField() { m_formField->setCurrentIndex(1); }
    bool hasFormFields() const { return m_formField->count() > 1; }

    /// Chooses the field when there is exactly one.
    void setOnlyFormField() { m_formField->setCurrentIndex(m_formField->count() == 2 ? 1 : 0); }

    /// In points.
    void setField(const QRectF &field, const QSizeF &page);

    FingerprintPlace fingerprintPlace() const;
    void setHasFingerprintSensor(bool has);

    /// While there is a signature the field moves, but stays on its page.
    void setLocked(bool isLocked);

signals:
    void formFieldChosen(const QString &name);
    void pageChosen(int page);
    void fieldChosen(const QRectF &field);
    void fingerprintPlaceChosen(signdesk::FingerprintPlace place);

private:
    QDoubleSpinBox *addLength(const QString &label, const QString &description);
    void chooseField();

    void enable();

    QFormLayout *m_form;
    QComboBox *m_formField;
    bool m_isLocked = false;
    QSpinBox *m_page;
    QLabel *m_pageCount;
    QDoubleSpinBox *m_left = nullptr;
    QDoubleSpinBox *m_top = nullptr;
    QDoubleSpinBox *m_width = nullptr;
    QComboBox *m_fingerprint;
};

} // namespace signdesk

#endif
