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

    /// In points.
    void setField(const QRectF &field, const QSizeF &page);

    FingerprintPlace fingerprintPlace() const;
    void setHasFingerprintSensor(bool has);

    /// While there is a signature the field moves, but stays on its page and keeps its size.
    void setLocked(bool isLocked);

signals:
    void pageChosen(int page);
    void fieldChosen(const QRectF &field);
    void fingerprintPlaceChosen(signdesk::FingerprintPlace place);

private:
    QDoubleSpinBox *addLength(const QString &label, const QString &description);
    void chooseField();

    QFormLayout *m_form;
    QSpinBox *m_page;
    QLabel *m_pageCount;
    QDoubleSpinBox *m_left;
    QDoubleSpinBox *m_top;
    QDoubleSpinBox *m_width;
    QComboBox *m_fingerprint;
};

} // namespace signdesk

#endif
