// The sign desk's texts: names for screen readers, keys for every control, and translations of everything.
#include "signdesk.h"

#include "outsidecommand.h"
#include "sidepanel.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>

#include <set>

namespace {

/// What a person can click or type into.
QList<QWidget *> controlsOf(QWidget &window)
{
    QList<QWidget *> controls;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isPart = qobject_cast<QAbstractSpinBox *>(widget->parentWidget()) != nullptr;
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && !isPart)
            controls << widget;
    }
    return controls;
}

/// Every text that a person sees, or hears from a screen reader.
QMultiMap<QString, QString> textsOf(QWidget &window)
{
    QMultiMap<QString, QString> texts;
    for (const QAction *action : window.findChildren<QAction *>()) {
        texts.insert("action", action->text());
        texts.insert("status tip", action->statusTip());
    }
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (qobject_cast<QAbstractSpinBox *>(widget->parentWidget()) != nullptr)
            continue;
        texts.insert("accessible name", widget->accessibleName());
        texts.insert("accessible description", widget->accessibleDescription());
        texts.insert("tool tip", widget->toolTip());
    }
    for (const QLabel *label : window.findChildren<QLabel *>())
        texts.insert("label", label->text());
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>())
        texts.insert("button", button->text());
    for (const QGroupBox *group : window.findChildren<QGroupBox *>())
        texts.insert("group", group->title());
    for (const QComboBox *box : window.findChildren<QComboBox *>())
        for (int i = 0; i < box->count(); ++i)
            texts.insert("choice", box->itemText(i));
    for (const QMenu *menu : window.findChildren<QMenu *>())
        texts.insert("menu", menu->title());
    for (const QAbstractSpinBox *box : window.findChildren<QAbstractSpinBox *>())
        texts.insert("suffix", box->property("suffix").toString());
    texts.insert("title", window.windowTitle());
    return texts;
}

/// A language that puts every translated text in quotation marks, so that untranslated ones stand out.
class MarkedLanguage : public QTranslator
{
public:
    MarkedLanguage() { QCoreApplication::installTranslator(this); }
    ~MarkedLanguage() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char * /*context*/, const char *text, const char * /*comment*/, int /*n*/) const override
    {
        return QStringLiteral("\u00ab") + QString::fromUtf8(text) + QStringLiteral("\u00bb");
    }
};

class German : public QTranslator
{
public:
    German()
    {
        EXPECT_TRUE(load(KV_SIGNDESK_GERMAN));
        QCoreApplication::installTranslator(this);
    }
    ~German() override { QCoreApplication::removeTranslator(this); }
};

/// The letter after the text's `&`; null if it has none.
QChar mnemonicOf(const QString &text)
{
    static const QRegularExpression mark("&([^&])");
    const QString letter = mark.match(text).captured(1);
    return letter.isEmpty() ? QChar() : letter.at(0).toUpper();
}

/// Checks that each text has a mnemonic and that no two share one.
void expectOwnLetters(const QStringList &texts)
{
    QMap<QChar, QString> owners;
    for (const QString &text : texts) {
        const QChar letter = mnemonicOf(text);
        EXPECT_FALSE(letter.isNull()) << text.toStdString() << " has no letter";
        if (letter.isNull())
            continue;
        EXPECT_FALSE(owners.contains(letter))
            << text.toStdString() << " and " << owners.value(letter).toStdString() << " share a letter";
        owners.insert(letter, text);
    }
}

void expectKeys(QMainWindow &window)
{
    QStringList shown;
    for (const QAction *menu : window.menuBar()->actions()) {
        shown << menu->text();
        QStringList items;
        for (const QAction *item : menu->menu()->actions())
            if (!item->isSeparator())
                items << item->text();
        expectOwnLetters(items);
    }
    for (const QWidget *control : controlsOf(window)) {
        if (const auto *const pressed = qobject_cast<const QAbstractButton *>(control))
            shown << pressed->text();
        for (const QLabel *label : window.findChildren<QLabel *>())
            if (label->buddy() == control)
                shown << label->text();
    }
    EXPECT_GE(shown.size(), 20);
    expectOwnLetters(shown);
}

TEST_F(SignDesk, EveryControlHasANameForScreenReaders)
{
    choose(kS310XFamily);
    click("Start signing");
    const QList<QWidget *> controls = controlsOf(*window);
    EXPECT_GE(controls.size(), 18);
    for (QWidget *control : controls) {
        QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(control);
        ASSERT_TRUE(heard != nullptr) << control->metaObject()->className();
        EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << control->metaObject()->className();
        EXPECT_FALSE(heard->text(QAccessible::Description).isEmpty())
            << heard->text(QAccessible::Name).toStdString() << " is not described";
    }
    EXPECT_EQ(signWidget()->accessibleDescription(), "Grows while the signer writes on the pad");
}

TEST_F(SignDesk, EveryControlHasALetterOfItsOwn)
{
    choose(kS310XFamily);
    expectKeys(*window);
    window.reset();
    const German german;
    openWindow();
    window->setModel(*familyOfName("S310X"));
    expectKeys(*window);
}

/// Presses Tab once for every control, starting at the page: this reaches each control once, from top to bottom.
void expectTabOrder(QMainWindow &window, QWidget &page)
{
    QList<QWidget *> reachable;
    for (QWidget *control : controlsOf(window)) {
        if (control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus)
            reachable << control;
    }
    const QWidget *const panel = window.findChild<signdesk::SidePanel *>()->widget();
    page.setFocus();
    std::set<const QWidget *> reached;
    int lowest = 0;
    for (int i = 0; i < reachable.size(); ++i) {
        QWidget *const focused = window.focusWidget();
        reached.insert(focused);
        const int top = focused == &page ? 0 : focused->mapTo(panel, QPoint(0, 0)).y(); // even if the panel scrolled
        EXPECT_GE(top + 4, lowest) << "after something below it: " << focused->metaObject()->className();
        lowest = top;
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    for (const QWidget *control : reachable)
        EXPECT_EQ(reached.count(control), 1u) << control->metaObject()->className() << " is not reached";
    EXPECT_EQ(window.focusWidget(), &page); // back at the start
}

/// A shortcut has to work wherever the focus is, even in a text field, which has keys of its own.
TEST_F(SignDesk, ShortcutsWorkFromEveryControl)
{
    choose(kS310XFamily);
    QObject context;
    for (QAction *action : window->findChildren<QAction *>()) {
        const QKeySequence shortcut = action->shortcut();
        if (shortcut.isEmpty())
            continue;
        action->disconnect(); // the test needs to see the trigger only, not what the action does
        action->setEnabled(true);
        bool isTriggered = false;
        QObject::connect(action, &QAction::triggered, &context, [&] { isTriggered = true; });
        for (QWidget *control : controlsOf(*window)) {
            if (!control->isEnabled())
                continue;
            control->setFocus();
            isTriggered = false;
            QTest::keySequence(control, shortcut);
            EXPECT_TRUE(isTriggered) << shortcut.toString().toStdString() << " in "
                                     << control->metaObject()->className();
        }
        action->disconnect();
    }
}

TEST_F(SignDesk, TabReachesEveryControlFromTheTopDown)
{
    choose(kS310XFamily);
    expectTabOrder(*window, sheet());
    click("Start signing");
    write(kS310XFamily);
    ASSERT_TRUE(until([&] { return button("Confirm")->isEnabled(); }));
    expectTabOrder(*window, sheet());
    click("Confirm");
    expectTabOrder(*window, sheet());
}

TEST_F(SignDesk, EveryWordPassesTheTranslator)
{
    window.reset();
    const MarkedLanguage marked;
    openWindow();
    window->setModel(*familyOfName("S310X"));
    window->start();
    const QRegularExpression notWords("^(S210|S300|S310X|R800|M450|[^\\w]*)$");
    const QMultiMap<QString, QString> texts = textsOf(*window);
    EXPECT_GE(texts.size(), 100);
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const bool isMarked = text.value().contains(QStringLiteral("\u00ab"));
        EXPECT_TRUE(isMarked || notWords.match(text.value()).hasMatch())
            << text.key().toStdString() << ": " << text.value().toStdString();
    }
}

QMap<QString, QString> messagesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QMap<QString, QString> messages;
    QXmlStreamReader reader(&file);
    QString context, source;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText();
        else if (reader.name() == QLatin1String("source"))
            source = reader.readElementText();
        else if (reader.name() == QLatin1String("translation")) {
            const bool isDone = !reader.attributes().hasAttribute("type");
            messages[context + ": " + source] = isDone ? reader.readElementText() : QString();
        }
    }
    return messages;
}

TEST(SignDeskGerman, TranslatesEveryWord)
{
    const QDir sources(KV_SIGNDESK_SOURCES);
    const QTemporaryDir place;
    const QString found = place.filePath("found.ts");
    const CommandResult result = runProgram({KV_LUPDATE, "-silent", sources.path(), "-ts", found}, "/");
    ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    const QMap<QString, QString> wanted = messagesOf(found);
    const QMap<QString, QString> german = messagesOf(sources.filePath("translations/sign-desk_de.ts"));
    EXPECT_GE(wanted.size(), 150);
    EXPECT_EQ(wanted.keys(), german.keys());
    for (auto message = german.begin(); message != german.end(); ++message) {
        EXPECT_FALSE(message.value().isEmpty()) << message.key().toStdString();
        for (const char *part : {"%1", "%2"})
            EXPECT_EQ(message.key().count(part), message.value().count(part)) << message.key().toStdString();
    }
}

/// Who builds the desk without lrelease gets German too, so it is shipped compiled.
TEST(SignDeskGerman, IsShippedAsItIsWritten)
{
    const QString source = KV_SIGNDESK_SOURCES "/translations/sign-desk_de.ts";
    const QTemporaryDir place;
    const QString compiled = place.filePath("de.qm");
    const CommandResult result = runProgram({KV_LRELEASE, "-silent", source, "-qm", compiled}, "/");
    ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    QTranslator shipped, anew;
    ASSERT_TRUE(shipped.load(KV_SIGNDESK_GERMAN) && anew.load(compiled));
    const QMap<QString, QString> messages = messagesOf(source);
    for (auto message = messages.begin(); message != messages.end(); ++message) {
        const QByteArray context = message.key().section(": ", 0, 0).toUtf8();
        const QByteArray text = message.key().section(": ", 1).toUtf8();
        EXPECT_EQ(shipped.translate(context, text), message.value()) << message.key().toStdString();
        EXPECT_EQ(shipped.translate(context, text), anew.translate(context, text)) << message.key().toStdString();
    }
}

} // namespace
