// A document's file that changes or vanishes while it is open, and documents in memory.
#include "signeddocuments.h"

#include <documents/problem.h>
#include <documents/signing.h>
#include <documents/verify.h>

#include <QBuffer>

namespace {

using namespace signeddocuments;

class DocumentChanging : public Documents
{
protected:
    DocumentChanging() { write("a.pdf", contentOf(given("cairo.pdf"))); }

    static documents::SigningRequest request()
    {
        documents::SigningRequest request;
        request.place = QRectF(20, 20, 60, 30);
        request.ink.canvas = {80, 40};
        request.ink.lines = {{{10, 10}, {70, 30}, 2}};
        request.alternativeText = "Signature";
        return request;
    }

    /// What is written, or the message of the Problem.
    static QByteArray signedBytes(documents::Document &document)
    {
        QBuffer output;
        output.open(QIODevice::WriteOnly);
        try {
            documents::sign(document, request(), output, [](qint64, qint64) {});
        } catch (const documents::Problem &problem) {
            return problem.message.toUtf8();
        }
        return output.data();
    }
};

TEST_F(DocumentChanging, IsNoticed)
{
    for (const char *how : {"longer", "shorter", "other"}) {
        SCOPED_TRACE(how);
        write("a.pdf", contentOf(given("cairo.pdf")));
        documents::Document document(file("a.pdf"));
        QByteArray content = read("a.pdf");
        if (QByteArray(how) == "longer")
            content += "\n";
        else if (QByteArray(how) == "shorter")
            content.chop(2000);
        else
            content[1000] = static_cast<char>(content[1000] ^ 1);
        write("a.pdf", content);
        const QByteArray said = signedBytes(document);
        EXPECT_TRUE(said.contains("a.pdf: was changed while it was open") || said.contains("became shorter"))
            << said.left(200).toStdString();
    }
}

TEST_F(DocumentChanging, MayVanish)
{
    documents::Document document(file("a.pdf"));
    QFile::remove(file("a.pdf"));
    write("signed.pdf", signedBytes(document));
    EXPECT_TRUE(read("signed.pdf").startsWith(contentOf(given("cairo.pdf"))));
    needSound("signed.pdf");
}

TEST_F(DocumentChanging, IsSignedInMemoryAgainAndAgain)
{
    QByteArray bytes = read("a.pdf");
    for (int i = 0; i < 3; ++i) {
        documents::Document document(documents::Content{bytes, "the note"});
        const QByteArray next = signedBytes(document);
        EXPECT_TRUE(next.startsWith(bytes));
        EXPECT_GT(next.size(), bytes.size());
        bytes = next;
    }
    write("signed.pdf", bytes);
    needSound("signed.pdf");
    try {
        documents::Document none(documents::Content{"nothing", "the note"});
        FAIL();
    } catch (const documents::Problem &problem) {
        EXPECT_EQ(problem.message.toStdString(), "the note: is no PDF");
    }
}

TEST_F(DocumentChanging, IsLeftAsItIsWhenTheWorkIsCancelled)
{
    struct Cancelled
    {
    };
    // The second is written anew, which takes a step of its own.
    for (const char *name : {"cairo.pdf", "encrypted-256.pdf"}) {
        SCOPED_TRACE(name);
        documents::Document document(given(name), "reader");
        QBuffer output;
        output.open(QIODevice::WriteOnly);
        EXPECT_THROW(
            documents::sign(document, request(), output, [](qint64, qint64) { throw Cancelled{}; }), Cancelled);
        EXPECT_EQ(output.data().size(), 0);
        EXPECT_THROW(documents::sign(document, request(), output, [](qint64, qint64) {}), documents::Problem);
    }
    documents::Document document(given("encrypted-256.pdf"), "reader");
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    int before = 0;
    documents::sign(document, request(), output, [&](qint64, qint64) { before += output.pos() == 0 ? 1 : 0; });
    EXPECT_GT(before, 1);
}

} // namespace
