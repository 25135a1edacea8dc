/// @file
/// The line below the pages where the clerk types a text to be found.
#ifndef FINDBAR_H
#define FINDBAR_H

#include "textsearch.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace signdesk {

class FindBar : public QWidget
{
    Q_OBJECT
public:
    /// The search lives as long as this bar.
    explicit FindBar(TextSearch &search, QWidget *parent = nullptr);

    /// Shows the bar, ready to type.
    void begin();

    /// To the next place of the text, or to the one before it; opens the bar when there is nothing to be found yet.
    void go(bool isForward);

    /// Hides the bar and forgets what was found.
    void end();

signals:
    /// The clerk wants that text to be looked for.
    void wanted(const QString &text);
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *addButton(Qt::ArrowType arrow, const QString &name, const QString &description);
    void want();
    void tell();

    TextSearch &m_search;
    QLineEdit *m_text;
    QLabel *m_outcome;
    QTimer m_typed;
};

} // namespace signdesk

#endif
