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

    /// As if its button were pressed.
    void layOn();

signals:
    /// A file that the driver can read: one that is built into it, or the whole path of a PGM file.
    void fingerLaidOn(const QString &file, int score);

private:
    void chooseFinger();
    void choosePicture();

    QComboBox *m_finger;
    QSpinBox *m_score;
    QPushButton *m_touch;
    /// For pictures of other formats. What the driver is told has no blank in it, whatever TMPDIR has.
    QTemporaryDir m_directory{QStringLiteral("/tmp/kv-virtualpad-XXXXXX")};
    int m_chosen = 0;
    int m_pictures = 0;
};

} // namespace virtualpad

#endif
