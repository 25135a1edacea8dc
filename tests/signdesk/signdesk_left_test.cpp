// A confirmed signature outlasts the desk: whatever ends the program, the next one goes on with it.
#include "outsidecommand.h"
#include "safekeeping.h"
#include "signdesk.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <csignal>
#include <sys/stat.h>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";
const char *const kGoOn = "Go on with it";

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

mode_t modeOf(const QString &path)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(path.toLocal8Bit().constData(), &status), 0) << path.toStdString();
    return status.st_mode & 07777;
}

class LeftSignatures : public SignDesk
{
protected:
    QString copyOf(const QString &source, const QString &name)
    {
        EXPECT_TRUE(QFile::copy(source, file(name)));
        return file(name);
    }

    QString openedNote()
    {
        const QString path = copyOf(kNote, "note.pdf");
        EXPECT_TRUE(window->openPage(path));
        return path;
    }

    QString folder() const { return file("state/kv-sign-desk"); }
    QStringList kept() const { return QDir(folder()).entryList({"signature-*"}, QDir::Files); }

    /// The window goes as it does when its program is killed: it does nothing more. Then another desk starts.
    void restart()
    {
        window.reset();
        settle();
        openWindow();
    }

    /// Answers the questions that the new desk asks, one after the other.
    bool offered(const QStringList &answers)
    {
        told.clear();
        await(answers);
        const bool isThere = window->offerLeft();
        EXPECT_TRUE(happened());
        return isThere;
    }

    void await(const QStringList &answers)
    {
        if (answers.isEmpty())
            return;
        whenDialogComes([=](QDialog &dialog) {
            await(answers.mid(1));
            answer(dialog, answers.first());
            told << said;
        });
    }

    /// Whether another desk that starts now would have nothing to offer.
    static bool isNothingOffered()
    {
        signdesk::Counter counter;
        QStringList damaged;
        return signdesk::SafeKeeping(counter).left(damaged).empty() && damaged.isEmpty();
    }

    void startAgain(double height)
    {
        click("Start signing");
        write(kS300Family, 0.2, height, 0.8, height);
        tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
        ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    }

    /// The saved document as others draw it.
    QImage saved(const QString &name)
    {
        save(file(name));
        return drawnPdf(file(name));
    }

    QStringList told;
};

TEST_F(LeftSignatures, OutlastAKilledProgram)
{
    // The program writes its picture into a pipe that nobody reads, so that it waits after the confirmation.
    const QString note = copyOf(kNote, "note.pdf"), pipe = file("picture.png");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("KVSIM_RECORDING", "signature");
    environment.insert("KVSIM_SPEED", "20");
    environment.insert("XDG_CONFIG_HOME", file("config"));
    QProcess desk;
    desk.setProcessEnvironment(environment);
    desk.setProcessChannelMode(QProcess::ForwardedChannels);
    desk.start(KV_SIGNDESK,
        {"--model", "S300", "--unsafe-driver", "--driver-directory", QDir::currentPath(), "--screenshot", pipe, note});
    EXPECT_TRUE(until([&] { return kept() == QStringList("signature-1"); }));
    EXPECT_TRUE(isNothingOffered()) << "the other desk still runs";
    desk.kill(); // SIGKILL
    ASSERT_TRUE(desk.waitForFinished(60000));
    ASSERT_EQ(desk.exitStatus(), QProcess::CrashExit);

    EXPECT_TRUE(offered({kGoOn}));
    EXPECT_TRUE(told.value(0).startsWith("note.pdf was signed on ")) << said.toStdString();
    EXPECT_EQ(window->windowTitle(), "note.pdf[*] - Sign Desk");
    EXPECT_TRUE(window->isWindowModified());
    save(file("signed.pdf"));
    EXPECT_TRUE(bytesOf(file("signed.pdf")).startsWith(bytesOf(note)));
    EXPECT_NE(drawnPdf(file("signed.pdf")), drawnPdf(note));
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(kept(), QStringList());
}

TEST_F(LeftSignatures, AreTheSameOnThePage)
{
    openedNote();
    signAndConfirm(kS300Family);
    restart();
    ASSERT_TRUE(offered({kGoOn}));
    const QImage after = saved("after.pdf");
    click("Done, next customer");
    signAndConfirm(kS300Family);
    EXPECT_EQ(after, saved("straight.pdf"));
}

TEST_F(LeftSignatures, LieWhereTheyWereMovedTo)
{
    openedNote();
    signAndConfirm(kS300Family);
    const QByteArray first = bytesOf(folder() + "/signature-1");
    sheet().setFocus();
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Up);
    ASSERT_TRUE(until([&] { return bytesOf(folder() + "/signature-1") != first; }));
    const QRectF field = sheet().field();
    restart();
    ASSERT_TRUE(offered({kGoOn}));
    const QImage after = saved("after.pdf"), plain = drawnPdf(kNote);
    const QRect box = QRectF(field.topLeft() * kDrawnScale, field.size() * kDrawnScale).toRect();
    EXPECT_NE(after.copy(box), plain.copy(box));
    QImage outside = after, outsidePlain = plain;
    for (QImage *image : {&outside, &outsidePlain})
        QPainter(image).fillRect(box, Qt::white);
    EXPECT_EQ(outside, outsidePlain);
}

TEST_F(LeftSignatures, HaveWhatWasConfirmedLast)
{
    openedNote();
    signAndConfirm(kS300Family);
    const QByteArray first = bytesOf(folder() + "/signature-1");
    write(kS300Family, 0.2, 0.2, 0.5, 0.2);
    ASSERT_TRUE(until([&] { return showsState("Changed since: confirm anew"); }));
    EXPECT_EQ(bytesOf(folder() + "/signature-1"), first) << "this was not confirmed";
    click("Confirm");
    ASSERT_TRUE(showsState("Confirmed"));
    EXPECT_NE(bytesOf(folder() + "/signature-1"), first);
    // Written and confirmed between two looks of the desk.
    const QByteArray second = bytesOf(folder() + "/signature-1");
    write(kS300Family, 0.2, 0.8, 0.5, 0.8);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return bytesOf(folder() + "/signature-1") != second; }));
    const QImage all = saved("all.pdf");
    write(kS300Family, 0.7, 0.8, 0.9, 0.8);
    ASSERT_TRUE(until([&] { return showsState("Changed since: confirm anew"); }));
    click("Confirm");
    restart();
    ASSERT_TRUE(offered({kGoOn}));
    EXPECT_NE(saved("after.pdf"), all);
}

TEST_F(LeftSignatures, MayBeSeveral)
{
    openedNote();
    signAndConfirm(kS300Family);
    startAgain(0.3);
    startAgain(0.7);
    restart();
    ASSERT_TRUE(offered({kGoOn}));
    save(file("signed.pdf"));
    EXPECT_EQ(bytesOf(file("signed.pdf")).count("startxref"), bytesOf(kNote).count("startxref") + 3);
}

TEST_F(LeftSignatures, AreUndoneOneByOne)
{
    openedNote();
    signAndConfirm(kS300Family);
    startAgain(0.3);
    restart();
    ASSERT_TRUE(offered({kGoOn}));
    press(Qt::Key_F8);
    EXPECT_EQ(kept().size(), 1);
    press(Qt::Key_F8);
    EXPECT_EQ(kept(), QStringList());
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_FALSE(button("Save page...")->isEnabled());
}

TEST_F(LeftSignatures, AreOnPicturesAndOnTheBlankSheetToo)
{
    QImage picture(600, 400, QImage::Format_RGB32);
    picture.fill(Qt::white);
    ASSERT_TRUE(picture.save(file("form.png")));
    for (const QString &path : {QString(), file("form.png")}) {
        if (!path.isEmpty()) {
            ASSERT_TRUE(window->openPage(path));
        }
        signAndConfirm(kS300Family);
        startAgain(0.3);
        const QImage before = saved("before.pdf");
        startAgain(0.7);
        restart();
        ASSERT_TRUE(offered({kGoOn}));
        EXPECT_TRUE(told.value(0).startsWith(path.isEmpty() ? "The blank sheet was signed" : "form.png was signed"));
        press(Qt::Key_F8);
        EXPECT_EQ(saved("after.pdf"), before);
        click("Done, next customer");
        QFile::remove(file("before.pdf"));
        QFile::remove(file("after.pdf"));
    }
}

TEST_F(LeftSignatures, AreNotPutOnAChangedDocument)
{
    const QString note = openedNote();
    signAndConfirm(kS300Family);
    restart();
    const QByteArray as = bytesOf(note);
    for (const QByteArray &content : {as + "% more\n", as.left(as.size() - 1)}) {
        written("note.pdf", content);
        EXPECT_FALSE(offered({kGoOn, "Later"}));
        EXPECT_TRUE(told.value(1).startsWith(note + " has changed since it was signed.\n"))
            << told.value(1).toStdString();
        EXPECT_EQ(window->windowTitle(), "blank sheet[*] - Sign Desk");
        EXPECT_FALSE(window->isWindowModified());
        EXPECT_EQ(kept().size(), 1);
    }
    ASSERT_TRUE(QFile::remove(note));
    EXPECT_FALSE(offered({kGoOn, "Later"}));
    EXPECT_TRUE(told.value(1).startsWith(note + " is no longer there.\n")) << told.value(1).toStdString();
    // Its name does not matter.
    const QString moved = written("moved.pdf", as);
    await({kGoOn});
    whenDialogComes([&](QDialog &dialog) { // in place of an answer: the question opens a file dialog
        whenDialogComes([&](QDialog &chooser) { giveFile(chooser, moved); });
        answer(dialog, "Choose the document...");
    });
    EXPECT_TRUE(window->offerLeft());
    EXPECT_EQ(window->windowTitle(), "moved.pdf[*] - Sign Desk");
    EXPECT_NE(saved("signed.pdf"), drawnPdf(moved));
}

TEST_F(LeftSignatures, WaitUntilTheyAreWanted)
{
    const QString note = openedNote();
    signAndConfirm(kS300Family);
    restart();
    EXPECT_FALSE(offered({"Later"}));
    EXPECT_FALSE(window->isWindowModified());
    // When the clerk opens the document, the desk asks again.
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &question) { answer(question, kGoOn); });
        giveFile(dialog, note);
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(kept().size(), 1);
    window.reset();
    openWindow();
    EXPECT_FALSE(offered({"Discard"}));
    EXPECT_EQ(kept(), QStringList());
    EXPECT_TRUE(isNothingOffered());
}

TEST_F(LeftSignatures, GoWithTheirSignature)
{
    const auto signAnew = [&] {
        signAndConfirm(kS300Family);
        ASSERT_EQ(kept().size(), 1);
    };
    openedNote();
    signAnew();
    save(file("one.pdf"));
    EXPECT_EQ(kept(), QStringList()) << "saved";
    click("Done, next customer");
    signAnew();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    click("Done, next customer");
    EXPECT_EQ(kept(), QStringList()) << "the next customer";
    signAnew();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    click("Clear");
    EXPECT_EQ(kept(), QStringList()) << "cleared";
    click("Cancel");
    signAnew();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    click("Cancel");
    EXPECT_EQ(kept(), QStringList()) << "cancelled";
    signAnew();
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &chooser) { giveFile(chooser, kNote); });
        answer(dialog, "Discard");
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    EXPECT_EQ(kept(), QStringList()) << "another document";
    signAnew();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    EXPECT_TRUE(window->close());
    EXPECT_EQ(kept(), QStringList()) << "closed";
}

TEST_F(LeftSignatures, AreForTheirUserAlone)
{
    signAndConfirm(kS300Family);
    EXPECT_EQ(modeOf(folder()), 0700u);
    for (const QFileInfo &found : QDir(folder()).entryInfoList(QDir::Files))
        EXPECT_EQ(modeOf(found.filePath()), 0600u) << found.filePath().toStdString();
    // One that others could read is closed.
    ASSERT_EQ(::chmod(folder().toLocal8Bit().constData(), 0755), 0);
    restart();
    EXPECT_EQ(modeOf(folder()), 0700u);
}

TEST_F(LeftSignatures, DoNotFollowLinks)
{
    // The folder itself leads elsewhere, as somebody who may write beside it could arrange.
    ASSERT_TRUE(QDir().mkpath(file("state")) && QDir().mkpath(file("elsewhere")));
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    ASSERT_TRUE(QFile::link(file("elsewhere"), folder()));
    restart();
    signAndConfirm(kS300Family);
    EXPECT_TRUE(note().startsWith("Save or print it now: ")) << note().toStdString();
    EXPECT_TRUE(QDir(file("elsewhere")).isEmpty());
    ASSERT_TRUE(QFile::remove(folder()));
    // A link for the file, which is replaced, and one for the file beside it.
    ASSERT_TRUE(QDir().mkpath(folder()));
    written("mine.txt", "mine");
    ASSERT_TRUE(QFile::link(file("mine.txt"), folder() + "/signature-1.new"));
    save(file("one.pdf"));
    click("Done, next customer");
    signAndConfirm(kS300Family);
    EXPECT_FALSE(QFileInfo(folder() + "/signature-1").isSymLink());
    EXPECT_EQ(kept().size(), 1);
    EXPECT_EQ(bytesOf(file("mine.txt")), "mine");
    save(file("two.pdf"));
    ASSERT_TRUE(QFile::link(file("mine.txt"), folder() + "/signature-5"));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
    EXPECT_FALSE(window->offerLeft());
    EXPECT_TRUE(said.startsWith("An earlier Sign Desk left a signature that was not saved, but its file is damaged."));
}

TEST_F(LeftSignatures, ThatCannotBeKeptAreToldAboutAndSaved)
{
    const auto warning = [](const QString &path) {
        return "Save or print it now: if the computer or Sign Desk stopped, the signature would be lost, for " + path
            + " cannot be written.";
    };
    openedNote();
    choose(kS300Family);
    click("Start signing");
    write(kS300Family);
    {
        const SmallDisk disk(100);
        click("Confirm");
        EXPECT_EQ(note(), warning(folder() + "/signature-1"));
        EXPECT_EQ(kept(), QStringList());
    }
    save(file("one.pdf"));
    EXPECT_NE(drawnPdf(file("one.pdf")), drawnPdf(kNote));
    EXPECT_FALSE(window->isWindowModified());

    ASSERT_TRUE(QDir(file("state")).removeRecursively());
    written("state", "a file where the folder should be");
    restart();
    signAndConfirm(kS300Family);
    EXPECT_EQ(note(), warning(folder()));
    save(file("two.pdf"));
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(LeftSignatures, OfSeveralDesksStayApart)
{
    openedNote();
    signAndConfirm(kS300Family);
    const std::unique_ptr<signdesk::DeskWindow> first = std::move(window);
    openWindow();
    EXPECT_TRUE(isNothingOffered()) << "the first desk still has it";
    EXPECT_EQ(kept(), QStringList("signature-1"));
}

TEST_F(LeftSignatures, ThatAreDamagedAreToldAbout)
{
    openedNote();
    signAndConfirm(kS300Family);
    window.reset();
    QFile left(folder() + "/signature-1");
    ASSERT_TRUE(left.resize(left.size() - 1));
    openWindow();
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
    EXPECT_FALSE(window->offerLeft());
    EXPECT_TRUE(happened());
    EXPECT_TRUE(said.startsWith("An earlier Sign Desk left a signature that was not saved, but its file is damaged.\n"
                                "It was put aside as "
        + folder() + "/signature-1.damaged-"))
        << said.toStdString();
    EXPECT_TRUE(isNothingOffered());
}

TEST(UnsavedSignature, IsReadWholeOrNotAtAll)
{
    signdesk::UnsavedSignature unsaved;
    unsaved.path = "/a/b.pdf";
    unsaved.digest = QByteArray(32, 'd');
    unsaved.base = "base";
    unsaved.added = {{"appended", true, "customer"}, {"whole", false, {}}};
    unsaved.saved = 1;
    signdesk::SignatureWish wish;
    wish.page = 3;
    wish.place = {1, 2, 3, 4};
    wish.pageSize = {595, 842};
    wish.formField = "driver";
    wish.ink.canvas = {800, 400};
    wish.ink.lines = {{{1.25, 2.5}, {3, 4}, 5}, {{3, 4}, {6, 7}, 0.1}};
    wish.ink.colour = Qt::blue;
    wish.ink.picture = QImage(3, 2, QImage::Format_ARGB32);
    wish.ink.picture.fill(Qt::red);
    wish.ink.picturePlace = {7, 8, 9, 10};
    unsaved.confirmed = wish;
    unsaved.signer = "Anna";
    const QByteArray file = packed(unsaved);
    const std::optional<signdesk::UnsavedSignature> read = signdesk::unpacked(file);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->path, unsaved.path);
    EXPECT_EQ(read->digest, unsaved.digest);
    EXPECT_EQ(read->base, unsaved.base);
    ASSERT_EQ(read->added.size(), 2u);
    EXPECT_EQ(read->added[0].bytes, "appended");
    EXPECT_TRUE(read->added[0].isAppended);
    EXPECT_EQ(read->added[0].formField, "customer");
    EXPECT_FALSE(read->added[1].isAppended);
    EXPECT_EQ(read->saved, 1);
    ASSERT_TRUE(read->confirmed.has_value());
    EXPECT_TRUE(*read->confirmed == wish);
    EXPECT_EQ(read->confirmed->pageSize, wish.pageSize);
    EXPECT_EQ(read->signer, "Anna");
    for (int at = 0; at < file.size(); ++at) {
        QByteArray flipped = file;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        EXPECT_FALSE(signdesk::unpacked(flipped).has_value()) << at;
        EXPECT_FALSE(signdesk::unpacked(file.left(at)).has_value()) << at;
    }
}

} // namespace
