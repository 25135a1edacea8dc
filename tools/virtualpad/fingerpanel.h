/// @file
/// The fingers that can be laid on the pad's sensor.
#ifndef FINGERPANEL_H
#define FINGERPANEL_H

#include <QTemporaryDir>
#include <QWidget>

class QComboBox;
class QPushButton;
class QSpinBox;

namespace virtualpad {

class FingerPanel : public QWidget
{
    Q_OBJECT
public:
    explicit FingerPanel(QWidget *parent = nullptr);

    /// Does what a press of the panel's button does.
    void layOn();

signals:
    /// A file for the driver: the name of a built-in one, or the absolute path of a PGM file.
    void fingerLaidOn(const QString &file, int score);

private:
    void chooseFinger();
    void choosePicture();

    QComboBox *m_finger;
    QSpinBox *m_score;
    QPushButton *m_touch;
    /// For pictures that were converted to PGM. Not in TMPDIR, whose path may have blanks, which the protocol cannot
    /// carry.
    QTemporaryDir m_directory{QStringLiteral("/tmp/kv-virtualpad-XXXXXX")};
    int m_chosen = 0;
    int m_pictures = 0;
};

} // namespace virtualpad

#endif
