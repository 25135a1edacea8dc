/// @file
/// A sign desk's window on the simulated driver, used as a person would: clicks, keys, what stands on the screen.
#ifndef SIGNDESK_H
#define SIGNDESK_H

#include "deskwindow.h"
#include "openpad.h"
#include "patience.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

class SignDeskTest : public testing::Test
{
protected:
    SignDeskTest();
    ~SignDeskTest() override;

    /// A new, shown window. It takes the simulated driver of a build directory that others may write too.
    void openWindow();

    /// The model as the window calls it: "S300".
    static QString nameOf(const Family &family);

    void choose(const Family &family);

    /// The button, check box or other control with that text, or with a label of that text, without its mnemonic.
    QAbstractButton *button(const QString &text) const;
    template <class Widget>
    Widget *labelled(const QString &text) const
    {
        return dynamic_cast<Widget *>(buddyOf(text));
    }

    /// Clicks as soon as the button can be clicked.
    void click(const QString &buttonText) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    /// The line below the page, and the one beside the light.
    QString note() const;
    bool showsState(const QString &text) const;

    /// Waits, with the window alive.
    static bool until(const std::function<bool()> &condition);

    /// Does something in the next dialog; the caller then does what opens it. `happened` proves that one came.
    void whenDialogComes(const std::function<void(QDialog &)> &work);
    bool happened() const { return m_dialogs == m_awaited; }

    /// As a save or open dialog: that path, then the button that accepts.
    static void giveFile(QDialog &dialog, const QString &path);

    /// Saves the signed page by its button and dialog.
    void save(const QString &path);

    /// Presses one of a message box's buttons, and keeps what the box says.
    void answer(QDialog &dialog, const QString &buttonText);
    QString said;

    QWidget *signWidget() const;
    signdesk::PageSheet &sheet() const;

    /// The signer writes from one place of the writing area to another, in shares of it.
    void write(const Family &family, double fromX = 0.2, double fromY = 0.5, double toX = 0.8, double toY = 0.5);
    void tap(int status) { driver.send(1, 1, 0, status); }

    /// Chooses, starts, writes a level line across the middle, and taps the pad's confirm button.
    void signAndConfirm(const Family &family);

    QString file(const QString &name) const { return m_directory.filePath(name); }

    SimulatedDriver driver;
    std::unique_ptr<signdesk::DeskWindow> window;

private:
    QWidget *buddyOf(const QString &text) const;

    QTemporaryDir m_directory;
    int m_awaited = 0;
    int m_dialogs = 0;
};

/// What pdftoppm draws of a page, counted from 1, at 144 dots per inch.
QImage drawnPdf(const QString &path, int page = 1);
constexpr double kDrawnScale = 2; ///< dots of it to the point

QRectF inPoints(const QRect &dots);

/// The box around the pixels that the condition takes.
QRect boxOf(const QImage &image, const std::function<bool(const QColor &)> &isTaken);
inline bool isInk(const QColor &colour)
{
    return colour.lightness() < 128;
}

/// Whether each side of one lies within the tolerance of the other's.
testing::AssertionResult near(const QRectF &one, const QRectF &other, double tolerance);

#endif
