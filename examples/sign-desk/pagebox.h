/// @file
/// "Page 3 of 12": says which page is seen, and shows another one.
#ifndef PAGEBOX_H
#define PAGEBOX_H

#include <QLabel>
#include <QSpinBox>

namespace signdesk {

class PageBox : public QWidget
{
    Q_OBJECT
public:
    explicit PageBox(QWidget *parent = nullptr);

    /// Pages count from 0 here.
    void setPageCount(int count);
    void setPage(int page);

    /// Lets the clerk type a number.
    void begin();

signals:
    void pageChosen(int page);

private:
    QSpinBox *m_page;
    QLabel *m_count;
};

} // namespace signdesk

#endif
