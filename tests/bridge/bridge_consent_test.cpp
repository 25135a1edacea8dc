// The person at the desk is asked before a page gets the pad.
#include "bridgerun.h"

#include "consentlist.h"

#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

using bridgerun::until;

namespace {

class BridgeConsent : public BridgeTest
{
protected:
    BridgeConsent() { settings.asksConsent = true; }

    QMessageBox *window() const { return running->consentDesk().window(); }

    /// Clicks a button of the question, once it takes clicks.
    void click(const char *name) const
    {
        ASSERT_TRUE(until([this] { return window() != nullptr; }));
        auto *button = window()->findChild<QPushButton *>(QLatin1String(name));
        ASSERT_NE(button, nullptr);
        ASSERT_TRUE(until([&] { return button->isEnabled(); }));
        button->click();
    }

    static QByteArray wish() { return R"({"op":"open","id":1,"model":"S300","width":80,"height":45})"; }
};

} // namespace

TEST_F(BridgeConsent, TheWindowNamesThePage)
{
    start();
    const auto shop = page();
    shop->say(wish());
    shop->next("event", "asking");
    ASSERT_TRUE(until([this] { return window() != nullptr; }));
    EXPECT_EQ(window()->text(), "https://shop.example wants to use the signature pad.");
    EXPECT_EQ(window()->textFormat(), Qt::PlainText);
    EXPECT_EQ(window()->defaultButton()->objectName(), "no") << "whoever types on says no";
    EXPECT_FALSE(window()->findChild<QPushButton *>("always")->isEnabled()) << "a click meant for something else";
    click("no");
    EXPECT_EQ(shop->next("id")["error"], "denied");
}

TEST_F(BridgeConsent, ALongNameIsSeenToItsEnd)
{
    const QByteArray longest = "https://bank.example." + QByteArray(63, 'a') + '.' + QByteArray(63, 'b') + '-'
        + QByteArray(30, 'c') + '.' + QByteArray(63, 'd') + ".evil.example";
    settings.origins.append(longest);
    start();
    const auto evil = page(longest);
    evil->say(wish());
    ASSERT_TRUE(until([this] { return window() != nullptr; }));
    QTest::qWait(50);
    const auto *text = window()->findChild<QLabel *>("qt_msgbox_label");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text().remove(QChar(0x200b)).toLatin1(), longest + " wants to use the signature pad.");
    EXPECT_LE(window()->width(), window()->screen()->availableSize().width());
    const QRect needed = text->fontMetrics().boundingRect(text->contentsRect(), Qt::TextWordWrap, text->text());
    EXPECT_LE(needed.width(), text->contentsRect().width());
    EXPECT_LE(needed.height(), text->contentsRect().height());
}

TEST_F(BridgeConsent, OnceIsForThisConnection)
{
    start();
    auto shop = page();
    shop->say(wish());
    click("once");
    EXPECT_TRUE(shop->next("id")["ok"].toBool());
    shop->ask(R"({"op":"close","id":2})");
    EXPECT_EQ(shop->errorOf(wish()), "") << "the same connection is not asked again";
    shop = page();
    shop->say(wish());
    shop->next("event", "asking");
}

TEST_F(BridgeConsent, AlwaysIsKeptUntilItIsRevoked)
{
    start();
    auto shop = page();
    shop->say(wish());
    click("always");
    EXPECT_TRUE(shop->next("id")["ok"].toBool());
    shop = page();
    EXPECT_EQ(shop->errorOf(wish()), "");

    bridge::Consents elsewhere(bridge::Consents::standardPath());
    bridge::ConsentList list(elsewhere);
    auto *names = list.findChild<QListWidget *>();
    ASSERT_EQ(names->count(), 1);
    EXPECT_EQ(names->item(0)->text(), kShop);
    names->setCurrentRow(0);
    for (QPushButton *button : list.findChildren<QPushButton *>())
        if (button->text() == "&Revoke")
            button->click();
    EXPECT_TRUE(shop->ends()) << "who has the pad loses it";
    EXPECT_TRUE(until([&] { return names->count() == 0; }));
    shop = page();
    shop->say(wish());
    shop->next("event", "asking");
}

TEST_F(BridgeConsent, WhoWasDeniedDoesNotAskAgainAtOnce)
{
    start();
    auto shop = page();
    shop->say(wish());
    click("no");
    EXPECT_EQ(shop->next("id")["error"], "denied");
    shop = page();
    EXPECT_EQ(shop->errorOf(wish()), "denied");
    EXPECT_EQ(window(), nullptr);
}

TEST_F(BridgeConsent, APageThatGoesTakesItsQuestionAlong)
{
    start();
    auto shop = page(kShop);
    shop->say(wish());
    ASSERT_TRUE(until([this] { return window() != nullptr; }));
    shop.reset();
    EXPECT_TRUE(until([this] { return window() == nullptr; }));
    const auto bank = page(kBank);
    bank->say(wish());
    ASSERT_TRUE(until([this] { return window() != nullptr; }));
    EXPECT_EQ(window()->text(), "https://bank.example wants to use the signature pad.");
}

TEST_F(BridgeConsent, WhoClosesTakesTheQuestionBack)
{
    start();
    const auto shop = page();
    for (int i = 0; i < 5; ++i) {
        shop->say(wish());
        shop->next("event", "asking");
        shop->ask(R"({"op":"close","id":2})");
        EXPECT_EQ(window(), nullptr);
    }
    shop->say(wish());
    click("no");
    EXPECT_EQ(shop->next("id", 1)["error"], "denied");
    EXPECT_EQ(window(), nullptr) << "the questions from before are gone";
}

TEST_F(BridgeConsent, ClosingTheWindowIsNo)
{
    start();
    const auto shop = page();
    shop->say(wish());
    ASSERT_TRUE(until([this] { return window() != nullptr; }));
    window()->close();
    EXPECT_EQ(shop->next("id")["error"], "denied");
}

TEST_F(BridgeConsent, WithoutAScreenNobodyIsLetIn)
{
    start(false);
    EXPECT_EQ(page()->open(), "denied");
}

TEST_F(BridgeConsent, AProgramWithTheTokenIsNotAskedAbout)
{
    start();
    EXPECT_EQ(program()->open(), "");
    EXPECT_EQ(window(), nullptr);
}
