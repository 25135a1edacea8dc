/// @file
/// A sign desk's window on the simulated driver, used as a person would: by clicks, by keys, by reading the screen.
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

class SignDesk : public testing::Test
{
protected:
    SignDesk();
    ~SignDesk() override;

    /// Opens and shows a new window. It accepts a driver that others could replace, because a build directory may be
    /// writable for others.
    void openWindow();

    /// The model's name in the window, such as "S300".
    static QString nameOf(const Family &family);

    void choose(const Family &family);

    /// The button or check box with that text; labelled() finds other controls by their label. The text is given
    /// without its mnemonic.
    QAbstractButton *button(const QString &text) const;
    template <class Widget>
    Widget *labelled(const QString &text) const
    {
        return dynamic_cast<Widget *>(buddyOf(text));
    }

    /// Waits until the button is enabled, then clicks it.
    void click(const QString &buttonText) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    /// The line below the page; and whether the line beside the light shows this state.
    QString note() const;
    bool showsState(const QString &text) const;

    /// Waits for the condition while the window keeps handling its events.
    static bool until(const std::function<bool()> &condition);

    /// Call this before opening a dialog: `work` runs in the next dialog that opens. `happened` tells whether one did.
    void whenDialogComes(const std::function<void(QDialog &)> &work);
    bool happened() const { return m_dialogs == m_awaited; }

    /// Enters the path in a save or open dialog and accepts it.
    static void giveFile(QDialog &dialog, const QString &path);

    /// Saves the signed page through the button and its dialog.
    void save(const QString &path);

    /// Presses a button of a message box. What the box said is then in `said`.
    void answer(QDialog &dialog, const QString &buttonText);
    QString said;

    QWidget *signWidget() const;
    signdesk::PageView &sheet() const;

    /// Lets the signer write a line; positions are fractions of the writing area's width and height.
    void write(const Family &family, double fromX = 0.2, double fromY = 0.5, double toX = 0.8, double toY = 0.5);
    void tap(int status) { driver.send(1, 1, 0, status); }

    /// Chooses the model, starts, writes a level line across the middle, and taps the pad's confirm button.
    void signAndConfirm(const Family &family);

    QString file(const QString &name) const { return m_directory.filePath(name); }

    /// Writes a file and returns its path.
    QString written(const QString &name, const QByteArray &content) const;

    /// Writes a PDF with a page of 400 by 500 points for each text, which begins 40 points from its left and 60 from
    /// its top. The text is in letters of 12 points, and each page has a broad dark bar at its lower edge.
    QString printedPdf(const QString &name, const QStringList &texts) const;

    /// Whether every page in sight is drawn as it is.
    bool isDrawn() const { return window->isDrawn(); }

    /// Expects that the path is not opened, that a message says why, and that the page stays.
    void openInVain(const QString &path, const QString &why);

    SimulatedDriver driver;
    std::unique_ptr<signdesk::DeskWindow> window;

    /// Answers the save dialog with the name that it proposes.
    static void acceptProposal(QDialog &dialog);

private:
    QWidget *buddyOf(const QString &text) const;

    QTemporaryDir m_directory;
    QTemporaryDir m_settings; ///< of the desk
    int m_awaited = 0;
    int m_dialogs = 0;
};

/// A page, counted from 1, as pdftoppm draws it at 144 dots an inch.
QImage drawnPdf(const QString &path, int page = 1);
constexpr double kDrawnScale = 2; ///< dots of drawnPdf's picture for each point of the page

QRectF inPoints(const QRect &dots);

/// A widget as it looks on white paper.
QImage onPaper(QWidget &widget);

/// The smallest box around the pixels that meet the condition.
QRect boxOf(const QImage &image, const std::function<bool(const QColor &)> &isTaken);
inline bool isInk(const QColor &colour)
{
    return colour.lightness() < 128;
}

/// Whether each side of one rectangle is within the tolerance of the same side of the other.
testing::AssertionResult near(const QRectF &one, const QRectF &other, double tolerance);

#endif
