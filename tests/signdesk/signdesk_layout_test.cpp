// The sign desk's look at the scale factor that the environment sets: no text is cut off. Pictures of it are kept.
#include "signdesk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTranslator>

namespace {

class Layout : public SignDesk, public testing::WithParamInterface<const char *>
{
protected:
    Layout()
    {
        window.reset();
        if (*GetParam() != '\0') {
            EXPECT_TRUE(m_translator.load(GetParam()));
            QCoreApplication::installTranslator(&m_translator);
        }
        openWindow();
        window->resize(960, 540); // a screen of 1920 x 1080 at scale 2; the offscreen one has 400 x 400 then
        window->setModel(*familyOfName("S310X"));
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 60000));
    }
    ~Layout() override
    {
        window.reset();
        QCoreApplication::removeTranslator(&m_translator);
    }

    /// Checks that every control is large enough for what it shows, and lies entirely inside its parent.
    void expectRoom() const
    {
        settle();
        int looked = 0;
        for (const QWidget *widget : window->findChildren<QWidget *>()) {
            const auto *const box = qobject_cast<const QComboBox *>(widget);
            const bool isText = qobject_cast<const QLabel *>(widget) || qobject_cast<const QAbstractButton *>(widget)
                || box || qobject_cast<const QAbstractSpinBox *>(widget) || qobject_cast<const QGroupBox *>(widget);
            if (!widget->isVisible() || !isText)
                continue;
            ++looked;
            const QSize wish = widget->minimumSizeHint();
            EXPECT_GE(widget->width(), wish.width()) << describe(*widget);
            EXPECT_GE(widget->height(), std::max(wish.height(), widget->heightForWidth(widget->width())))
                << describe(*widget);
            const QWidget *parent = widget->parentWidget();
            EXPECT_TRUE(parent->rect().contains(widget->geometry())) << describe(*widget);
            if (box != nullptr) {
                EXPECT_GE(box->width(), box->sizeHint().width()) << describe(*widget); // its longest choice fits
            }
        }
        EXPECT_GE(looked, 30);
    }

    /// Only the middle of the field has to be visible, because a small window may not have room for all of it.
    void expectFieldInSight() const
    {
        EXPECT_TRUE(sheet().viewport()->rect().contains(sheet().fieldPixels().center()));
    }

    static std::string describe(const QWidget &widget)
    {
        return widget.metaObject()->className() + (" " + widget.property("text").toString()).toStdString();
    }

    void keepPicture(const QString &name) const
    {
        const QPixmap picture = window->grab();
        EXPECT_EQ(picture.size(), (QSizeF(window->size()) * window->devicePixelRatioF()).toSize());
        EXPECT_TRUE(picture.save(pictureName(name)));
    }

    QString pictureName(const QString &name) const
    {
        EXPECT_TRUE(QDir().mkpath(KV_SIGNDESK_PICTURES));
        const QString scale = QString::number(window->devicePixelRatioF()).replace('.', '_');
        const QString language = *GetParam() == '\0' ? "en" : "de";
        return QStringLiteral(KV_SIGNDESK_PICTURES "/%1-%2-%3.png").arg(name, language, scale);
    }

private:
    QTranslator m_translator;
};

TEST_P(Layout, NoTextIsCut)
{
    EXPECT_NEAR(window->devicePixelRatioF(), qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble(), 0.001);
    expectRoom();
    expectFieldInSight();
    keepPicture("before");
    ASSERT_TRUE(window->openPage(KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf"));
    window->start();
    write(kS310XFamily, 0.1, 0.3, 0.9, 0.6);
    ASSERT_TRUE(until([&] { return window->state() == signdesk::SigningState::Writing; }));
    expectRoom();
    driver.setResult("GetDevicePartsVersion", KVSPDARI_LIBUSB_SENT_CMD_FAIL); // unplugged for a while
    ASSERT_TRUE(until([&] { return window->isPadAway(); }));
    expectRoom();
    keepPicture("unplugged");
    driver.setResult("GetDevicePartsVersion", KVSPDARI_SUCCESS);
    ASSERT_TRUE(until([&] { return !window->isPadAway(); }));
    whenDialogComes([&](QDialog &dialog) {
        EXPECT_TRUE(dialog.grab().save(pictureName("doubt")));
        auto &question = dynamic_cast<QMessageBox &>(dialog);
        for (QAbstractButton *choice : question.buttons())
            if (choice != question.defaultButton())
                return QTest::mouseClick(choice, Qt::LeftButton);
    });
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return window->state() == signdesk::SigningState::Confirmed; }));
    expectRoom();
    keepPicture("confirmed");
    window->resize(700, 420); // on a low screen the panel scrolls
    settle();
    expectRoom();
    expectFieldInSight();
    keepPicture("small");
}

TEST_P(Layout, ThePageIsAsSharpAsTheScreen)
{
    ASSERT_TRUE(window->openPage(KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf"));
    const double ratio = window->devicePixelRatioF();
    const std::unique_ptr<signdesk::Pages> pages = signdesk::openPages(KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf");
    // Once the page has been redrawn at its final size, the text in the dark band at its top matches the rendered page
    // pixel by pixel. A page that was only scaled up would be blurred.
    const auto isSharp = [&] {
        sheet().showPage(0);
        const QPoint corner = (sheet().pagePixels(0).topLeft() * ratio).toPoint();
        const QImage shown = sheet().viewport()->grab().toImage();
        const QImage page = pages->render(0, sheet().scale() * ratio);
        const QRect band(0, 0, page.width(), page.height() / 22);
        int different = 0;
        for (int y = band.top(); y < band.bottom(); ++y)
            for (int x = band.left(); x < band.right(); ++x)
                different += std::abs(qGray(page.pixel(x, y)) - qGray(shown.pixel(corner + QPoint(x, y)))) > 60;
        return different < band.width() * band.height() / 200;
    };
    EXPECT_TRUE(until(isSharp));
}

INSTANTIATE_TEST_SUITE_P(Languages, Layout, testing::Values("", KV_SIGNDESK_GERMAN),
    [](const auto &row) { return std::string(*row.param == '\0' ? "English" : "German"); });

} // namespace
