#include "signdesk.h"

#include "outsidecommand.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QProgressDialog>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstring>

SignDesk::SignDesk()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    qputenv("XDG_STATE_HOME", file("state").toLocal8Bit());
    openWindow();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 60000));
}

SignDesk::~SignDesk()
{
    window.reset();
    settle();
}

void SignDesk::openWindow()
{
    window = std::make_unique<signdesk::DeskWindow>();
    window->acceptAnyDriver();
    window->keepConfirmed();
    window->show();
}

QString SignDesk::nameOf(const Family &family)
{
    return QString::fromLatin1(family.prefix + 2, static_cast<int>(std::strlen(family.prefix)) - 3);
}

void SignDesk::choose(const Family &family)
{
    auto *const models = labelled<QComboBox>("Model");
    ASSERT_TRUE(models != nullptr);
    models->setFocus();
    QTest::keyClick(models, Qt::Key_Home);
    while (models->currentText() != nameOf(family) && models->currentIndex() + 1 < models->count())
        QTest::keyClick(models, Qt::Key_Down);
    ASSERT_EQ(models->currentText(), nameOf(family));
}

QAbstractButton *SignDesk::button(const QString &text) const
{
    for (QAbstractButton *found : window->findChildren<QAbstractButton *>())
        if (found->isVisible() && found->text().remove('&') == text)
            return found;
    return nullptr;
}

QWidget *SignDesk::buddyOf(const QString &text) const
{
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->buddy() != nullptr && label->text().remove('&') == text)
            return label->buddy();
    return nullptr;
}

void SignDesk::click(const QString &buttonText) const
{
    const auto isReady = [&] { return button(buttonText) != nullptr && button(buttonText)->isEnabled(); };
    ASSERT_TRUE(until(isReady)) << buttonText.toStdString();
    QTest::mouseClick(button(buttonText), Qt::LeftButton);
}

void SignDesk::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    window->activateWindow(); // a dialog may have left the window without focus
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 60000));
    QWidget *focus = window->focusWidget();
    QTest::keyClick(focus == nullptr ? window.get() : focus, key, modifiers);
}

QString SignDesk::note() const
{
    return window->findChild<QLabel *>("note")->text();
}

bool SignDesk::showsState(const QString &text) const
{
    for (const QLabel *label : window->findChildren<QLabel *>())
        if (label->isVisible() && label->text() == text)
            return true;
    return false;
}

bool SignDesk::until(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        QTest::qWait(10);
    }
    return true;
}

void SignDesk::whenDialogComes(const std::function<void(QDialog &)> &work)
{
    ++m_awaited;
    const QPointer<QWidget> before = QApplication::activeModalWidget();
    auto *const look = new QTimer(window.get());
    QObject::connect(look, &QTimer::timeout, window.get(), [=] {
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == before || !dialog->isVisible()
            || qobject_cast<QProgressDialog *>(dialog) != nullptr) // which only says that something takes its time
            return;
        look->deleteLater();
        look->stop();
        ++m_dialogs;
        work(*dialog);
    });
    look->start(10);
}

void SignDesk::giveFile(QDialog &dialog, const QString &path)
{
    ASSERT_TRUE(qobject_cast<QFileDialog *>(&dialog) != nullptr) << dialog.windowTitle().toStdString();
    auto *const name = dialog.findChild<QLineEdit *>("fileNameEdit");
    ASSERT_TRUE(name != nullptr);
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

void SignDesk::acceptProposal(QDialog &dialog)
{
    auto *const name = dialog.findChild<QLineEdit *>("fileNameEdit");
    ASSERT_TRUE(name != nullptr) << dialog.windowTitle().toStdString();
    QTest::keyClick(name, Qt::Key_Return);
}

void SignDesk::save(const QString &path)
{
    whenDialogComes([&](QDialog &dialog) { giveFile(dialog, path); });
    click("Save page...");
    ASSERT_TRUE(happened());
}

QString SignDesk::written(const QString &name, const QByteArray &content) const
{
    QFile made(file(name));
    EXPECT_TRUE(made.open(QIODevice::WriteOnly));
    made.write(content);
    return made.fileName();
}

QString SignDesk::printedPdf(const QString &name, const QStringList &texts) const
{
    QPdfWriter writer(file(name));
    writer.setResolution(72);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(QSizeF(400, 500), QPageSize::Point, QString(), QPageSize::ExactMatch));
    QPainter painter(&writer);
    QFont font = painter.font();
    font.setPixelSize(12);
    painter.setFont(font);
    for (const QString &text : texts) {
        if (&text != &texts.first())
            writer.newPage();
        painter.drawText(40, 60, text);
        painter.fillRect(0, 480, 400, 20, QColor(20, 20, 120));
    }
    return file(name);
}

void SignDesk::openInVain(const QString &path, const QString &why)
{
    const QString before = window->windowTitle();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
    EXPECT_FALSE(window->openPage(path));
    EXPECT_TRUE(happened());
    const QString expected =
        path + " cannot be opened: " + why + "\nChoose another file; the page shown before is still there.";
    EXPECT_EQ(said.toStdString(), expected.toStdString());
    EXPECT_EQ(window->windowTitle(), before);
}

void SignDesk::answer(QDialog &dialog, const QString &buttonText)
{
    auto *const box = qobject_cast<QMessageBox *>(&dialog);
    ASSERT_TRUE(box != nullptr) << dialog.windowTitle().toStdString();
    said = box->text() + "\n" + box->informativeText();
    for (QAbstractButton *choice : box->buttons())
        if (choice->text().remove('&') == buttonText)
            return QTest::mouseClick(choice, Qt::LeftButton);
    ADD_FAILURE() << "no button " << buttonText.toStdString();
    dialog.reject();
}

signdesk::PageView &SignDesk::sheet() const
{
    return *window->findChild<signdesk::PageView *>();
}

QWidget *SignDesk::signWidget() const
{
    for (QWidget *child : sheet().findChildren<QWidget *>())
        if (child->accessibleName() == "Signature" && child->isVisible())
            return child;
    return nullptr;
}

void SignDesk::write(const Family &family, double fromX, double fromY, double toX, double toY)
{
    std::vector<Share> shares;
    for (int i = 0; i <= 40; ++i) {
        const double share = i / 40.0;
        shares.push_back({fromX + (toX - fromX) * share, fromY + (toY - fromY) * share, 0.5});
    }
    driver.send(stroke(family.type, shares));
}

void SignDesk::signAndConfirm(const Family &family)
{
    choose(family);
    click("Start signing");
    ASSERT_TRUE(signWidget() != nullptr);
    write(family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
}

QImage onPaper(QWidget &widget)
{
    QImage paper(widget.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    widget.render(&painter, {}, {}, QWidget::DrawChildren);
    return paper;
}

QImage drawnPdf(const QString &path, int page)
{
    const QTemporaryDir directory;
    const QString number = QString::number(page);
    const CommandResult result = runProgram(
        {"pdftoppm", "-r", "144", "-f", number, "-l", number, "-singlefile", path, "page"}, directory.path());
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    return QImage(directory.filePath("page.ppm"));
}

QRectF inPoints(const QRect &dots)
{
    return {dots.x() / kDrawnScale, dots.y() / kDrawnScale, dots.width() / kDrawnScale, dots.height() / kDrawnScale};
}

QRect boxOf(const QImage &image, const std::function<bool(const QColor &)> &isTaken)
{
    int left = image.width(), top = image.height(), right = -1, bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if ((pixel & 0xffffff) == 0xffffff || !isTaken(QColor::fromRgba(pixel))) // most pixels are white: be quick
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = y;
        }
    }
    return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

testing::AssertionResult near(const QRectF &one, const QRectF &other, double tolerance)
{
    const bool isNear = std::abs(one.left() - other.left()) <= tolerance
        && std::abs(one.top() - other.top()) <= tolerance && std::abs(one.right() - other.right()) <= tolerance
        && std::abs(one.bottom() - other.bottom()) <= tolerance;
    if (isNear)
        return testing::AssertionSuccess();
    const auto told = [](const QRectF &box) {
        std::ostringstream text;
        text << box.left() << "," << box.top() << " to " << box.right() << "," << box.bottom();
        return text.str();
    };
    return testing::AssertionFailure() << told(one) << " is not near " << told(other);
}
