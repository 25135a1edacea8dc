// Documents whose pages were changed behind a signature in ways that hide it: verify finds each of them, and a
// document that was prepared for such a change before it was signed gets no further.
#include "signeddocuments.h"

#include <documents/problem.h>
#include <documents/verify.h>

#include <QRegularExpression>

namespace {

using namespace signeddocuments;

const char *const kCatalogue = "<< /Type /Catalog /Pages 2 0 R >>";
const char *const kPages = "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>";
const char *const kPage = "<< /Type /Page /Parent 2 0 R /Contents 4 0 R >>";
const char *const kBlack = "<< /Length 15 >>\nstream\n0 0 400 500 re f\nendstream";
const char *const kSmall = "<< /Length 15 >>\nstream\n9 9 100 100 re f\nendstream";
const char *const kForm = "<< /Subtype /Form /BBox [0 0 400 500] /Length 15 >>\nstream\n9 9 100 100 re f\nendstream";
const char *const kBlackForm =
    "<< /Subtype /Form /BBox [0 0 400 500] /Length 15 >>\nstream\n0 0 400 500 re f\nendstream";

/// An object as somebody writes it who does not keep to the rules.
struct Odd
{
    int number;
    QByteArray body;
    int generation = 0;
    bool isListed = true; ///< in the cross-references
};

class DocumentAttack : public Documents
{
protected:
    // The certificates of the system have no say in this, and would be read again for each document.
    DocumentAttack() { qputenv("SSL_CERT_FILE", "/dev/null"); }
    ~DocumentAttack() override { qunsetenv("SSL_CERT_FILE"); }

    static documents::VerifyReport looked(const QByteArray &bytes)
    {
        documents::Document document(documents::Content{bytes, "document"});
        return documents::verify(document, {People::get().authority()}, [](qint64, qint64) {});
    }

    /// Signs a document with a certificate, by default on no content of its page.
    void makeSigned(const Objects &objects, const QStringList &options = {}) const
    {
        writeDocument("prepared.pdf", objects);
        signAs(People::get().anna(), "prepared.pdf", "signed.pdf", options);
        EXPECT_TRUE(looked(read("signed.pdf")).isValid());
    }

    /// What verify says was changed after Anna's signature; the document must not be valid.
    std::string changed(const QByteArray &bytes) const
    {
        write("changed.pdf", bytes);
        const documents::VerifyReport report = looked(bytes);
        EXPECT_FALSE(report.isValid());
        for (const documents::SignatureReport &row : report.signatures) {
            if (row.field != "Signature1" && row.field != "here")
                continue;
            EXPECT_TRUE(row.isIntact) << row.problem.toStdString();
            return row.changed.join("; ").toStdString();
        }
        return "no signature";
    }

    std::string changedBy(const Objects &objects) const
    {
        appendRevision("signed.pdf", "revised.pdf", objects);
        return changed(read("revised.pdf"));
    }

    /// A catalogue or page that still has what the signature added to it.
    QByteArray merged(int number, QByteArray object, const QByteArray &annotation = {}) const
    {
        const QByteArray bytes = read("signed.pdf");
        const int begin = bytes.lastIndexOf("\n" + QByteArray::number(number) + " 0 obj\n");
        static const QRegularExpression added("/AcroForm (<< [^>]*>>|\\d+ 0 R)|/Annots \\[[^\\]]*");
        QString entry =
            added.match(QString::fromLatin1(bytes.mid(begin, bytes.indexOf("endobj", begin) - begin))).captured();
        EXPECT_FALSE(entry.isEmpty()) << begin;
        if (entry.startsWith("/Annots"))
            entry += annotation + "]";
        object.chop(2);
        return object + entry.toLatin1() + " >>";
    }

    /// The signed document with a revision of odd objects.
    QByteArray withOdd(const QList<Odd> &objects, const QByteArray &trailer = {}) const
    {
        QByteArray bytes = read("signed.pdf"), table;
        int size = numberBehind(bytes, "/Size ");
        const int before = bytes.lastIndexOf("startxref") + 10;
        const QByteArray previous = bytes.mid(before, bytes.indexOf('\n', before) - before);
        for (const Odd &object : objects) {
            const QByteArray number = QByteArray::number(object.number),
                             generation = QByteArray::number(object.generation);
            if (object.isListed)
                size = std::max(size, object.number + 1);
            if (object.isListed)
                table += number + " 1\n" + QByteArray::number(bytes.size()).rightJustified(10, '0') + " "
                    + generation.rightJustified(5, '0') + " n \n";
            bytes += number + " " + generation + " obj\n" + object.body + "\nendobj\n";
        }
        const QByteArray place = QByteArray::number(bytes.size());
        return bytes + "xref\n" + (table.isEmpty() ? "0 0\n" : table) + "trailer\n<< /Size " + QByteArray::number(size)
            + " /Root 1 0 R /Prev " + previous + " " + trailer + " >>\nstartxref\n" + place + "\n%%EOF\n";
    }
};

// Any object can become the page's list of annotations, and lose what it was before.
TEST_F(DocumentAttack, TurnsContentIntoAList)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    const QByteArray bytes = read("signed.pdf");
    const int list = bytes.lastIndexOf("/Annots [ ") + 10;
    const QByteArray widget = bytes.mid(list, bytes.indexOf(']', list) - list);
    EXPECT_EQ(
        changedBy({{3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Annots 4 0 R >>"}, {4, "[" + widget + "]"}}),
        "something that it covers (object 4)");
}

// Most programs look for an object by its number alone.
TEST_F(DocumentAttack, ReplacesAnObjectByOneOfAnotherGeneration)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, "<< /Type /Page /Parent 2 0 R /Contents 5 0 R >>"}, {4, kSmall},
        {5, "[4 0 R 90 0 R]"}});
    for (const int number : {4, 5})
        EXPECT_EQ(changed(withOdd({{number, kBlack, 1}})),
            "something that it covers (object " + std::to_string(number) + ")");
    EXPECT_EQ(changed(withOdd({{90, kBlack, 1}})), "objects of the document were taken away or filled in behind it");
}

// A program that repairs a file takes the last object of each number, whatever the cross-references say.
TEST_F(DocumentAttack, HidesObjectsFromTheCrossReferences)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    EXPECT_EQ(changed(withOdd({{4, kBlack, 0, false}})), "bytes that belong to none of its revisions");
    EXPECT_EQ(changed(read("signed.pdf") + "4 0 obj\n" + kBlack + "\nendobj\n"),
        "bytes that belong to none of its revisions");
    EXPECT_EQ(
        changed(withOdd({}) + "4 % a\n 0 obj\n" + kBlack + "\nendobj\n"), "bytes that belong to none of its revisions");
    EXPECT_EQ(changed(withOdd({}) + "trailer << /Root 7 0 R >>"), "bytes that belong to none of its revisions");
    EXPECT_EQ(changed(withOdd({{4, kSmall}, {4, kBlack, 0, false}, {90, "null"}})),
        "bytes that belong to none of its revisions; something that it covers (object 4)");
    EXPECT_TRUE(looked(withOdd({})).isValid());
    EXPECT_TRUE(looked(read("signed.pdf") + "\n").isValid());
    EXPECT_TRUE(looked(withOdd({{90, "null"}}) + "\r\n" + QByteArray(2, '\0')).isValid());
}

// An object that ends behind the signed revision: what follows becomes a part of it.
TEST_F(DocumentAttack, ContinuesAnObject)
{
    const QByteArray content = "<< /Length 60000 >>\nstream\n9 9 100 100 re f\nendstream";
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, "<< /Type /Page /Parent 2 0 R /Contents [5 0 R 4 0 R] >>"},
        {4, content}, {5, kSmall}});
    QByteArray bytes = withOdd({});
    const int begin = bytes.indexOf("stream\n9 9") + 7;
    bytes.resize(read("signed.pdf").size());
    bytes += QByteArray(begin + 60000 - bytes.size() - 16, ' ') + "0 0 400 500 re f\nendstream\nendobj\n";
    bytes += withOdd({})
                 .mid(read("signed.pdf").size())
                 .replace("startxref\n" + QByteArray::number(read("signed.pdf").size()),
                     "startxref\n" + QByteArray::number(bytes.size()));
    EXPECT_EQ(changed(bytes), "something that it covers (object 4)");
}

// The signature's own bytes do not cover a dictionary that came later, with a reason that nobody gave.
TEST_F(DocumentAttack, BorrowsASignature)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}}, {"--reason", "Goods received"});
    const QByteArray bytes = read("signed.pdf");
    const int range = bytes.lastIndexOf("/ByteRange"), contents = bytes.lastIndexOf("/Contents <");
    const QByteArray ranges = bytes.mid(range, bytes.indexOf(']', range) + 1 - range);
    const QByteArray message = bytes.mid(contents, bytes.indexOf('>', contents) + 1 - contents);
    const int fields = bytes.lastIndexOf("/Fields [") + 9;
    const QByteArray first = bytes.mid(fields, bytes.indexOf(']', fields) - fields);
    const QByteArray borrowed =
        "<< /Type /Sig /Filter /Adobe.PPKLite /SubFilter /ETSI.CAdES.detached /Reason (All of it) " + ranges + " "
        + message + " >>";
    appendRevision("signed.pdf", "revised.pdf",
        {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /SigFlags 3 /Fields [" + first + " 90 0 R] >> >>"},
            {90, "<< /FT /Sig /T (second) /V 91 0 R >>"}, {91, borrowed}});
    const documents::VerifyReport report = looked(read("revised.pdf"));
    ASSERT_EQ(report.signatures.size(), 2U);
    EXPECT_FALSE(report.isValid());
    EXPECT_TRUE(report.signatures[0].isValid());
    EXPECT_EQ(report.signatures[1].problem.toStdString(), "it is not in the revision that it covers");
}

// The same bytes, with the message at another place between them.
TEST_F(DocumentAttack, MovesTheMessage)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    QByteArray bytes = read("signed.pdf");
    const int gap = bytes.lastIndexOf("/Contents <") + 10, behind = bytes.indexOf('>', gap) + 1;
    const QByteArray message = bytes.mid(gap, behind - gap);
    bytes.remove(gap, message.size());
    const int moved = bytes.indexOf("stream\n9 9") + 7;
    bytes.insert(moved, message);
    const QByteArray numbers = QByteArray::number(moved) + " " + QByteArray::number(moved + message.size()) + " "
        + QByteArray::number(bytes.size() - moved - message.size());
    write("signed.pdf", bytes);
    const QByteArray dictionary = "<< /Type /Sig /Filter /Adobe.PPKLite /SubFilter /ETSI.CAdES.detached /ByteRange [0 "
        + numbers + "] /Contents " + message + " >>";
    write("moved.pdf",
        bytes
            + "1 0 obj\n<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [90 0 R] >> >>\nendobj\n"
              "90 0 obj\n<< /FT /Sig /T (Signature1) /V 91 0 R >>\nendobj\n91 0 obj\n"
            + dictionary
            + "\nendobj\n"
              "trailer\n<< /Root 1 0 R >>\nstartxref\n0\n%%EOF\n");
    EXPECT_FALSE(looked(read("moved.pdf")).isValid());
}

TEST_F(DocumentAttack, ForgesTheRanges)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    const QByteArray bytes = read("signed.pdf");
    const int begin = bytes.lastIndexOf("/ByteRange [") + 11, end = bytes.indexOf(']', begin) + 1;
    const int gap = bytes.lastIndexOf("/Contents <") + 10, behind = bytes.indexOf('>', gap) + 1;
    const auto ranges = [](const QList<qint64> &numbers) {
        QByteArray text = "[";
        for (const qint64 number : numbers)
            text += QByteArray::number(number) + " ";
        return text + "]";
    };
    const QByteArray nonsense = "its ranges of bytes make no sense",
                     more = "it leaves out more of the file than itself", changed = "the signed bytes were changed";
    const qint64 rest = bytes.size() - behind;
    const QPair<QByteArray, QByteArray> rows[] = {{"null", nonsense}, {"[]", nonsense}, {"(0 1 2 3)", nonsense},
        {ranges({0, 0, 0, 0}), nonsense}, {ranges({0, gap, behind, rest, 0, 0}), nonsense},
        {ranges({0, gap, behind}), nonsense}, {ranges({-1, gap, behind, rest}), nonsense},
        {ranges({1, gap, behind, rest}), nonsense}, {ranges({0, behind, gap, rest}), nonsense},
        {ranges({0, gap, gap, rest}), nonsense}, {ranges({0, gap, behind, -rest}), nonsense},
        {ranges({0, gap, behind, 9223372036854775807}), nonsense}, {"[0.0 1.5 2.5 3]", nonsense},
        {"[0 (a) 9 9]", nonsense}, {ranges({0, gap - 20, behind, rest}), more},
        {ranges({0, gap, behind + 5, rest - 5}), more}, {ranges({0, gap + 1, behind - 1, rest + 1}), more},
        {ranges({0, 20, 60, rest}), more},
        {ranges({0, gap, behind, rest + 1}), "the file is shorter than what was signed"},
        {ranges({0, gap, behind, 0}), changed}, {ranges({0, gap, behind, rest - 1}), changed}};
    for (const auto &row : rows) {
        const QByteArray forged = QByteArray(bytes).replace(begin, end - begin, row.first.leftJustified(end - begin));
        const documents::VerifyReport report = looked(forged);
        ASSERT_EQ(report.signatures.size(), 1U);
        EXPECT_FALSE(report.isValid()) << row.first.toStdString();
        EXPECT_EQ(report.signatures[0].problem.toStdString(), row.second.toStdString()) << row.first.toStdString();
    }
    for (const QByteArray &contents : {QByteArray("null"), QByteArray("<>"), QByteArray("()"), QByteArray("<00>"),
             QByteArray("<30") + QByteArray(100, '0') + ">", "<" + QByteArray(behind - gap - 2, '0') + ">",
             QByteArray("6 0 R")}) {
        const QByteArray forged = QByteArray(bytes).replace(gap, behind - gap, contents.leftJustified(behind - gap));
        const documents::VerifyReport report = looked(forged);
        EXPECT_FALSE(report.isValid()) << contents.left(9).toStdString();
        EXPECT_FALSE(report.signatures[0].problem.isEmpty()) << contents.left(9).toStdString();
    }
}

// Kids of a signature field that are no widgets of it: they would pass for a part of the signature.
TEST_F(DocumentAttack, DisguisesANoteAsASignature)
{
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    const QByteArray bytes = read("signed.pdf");
    const int list = bytes.lastIndexOf("/Annots [ ") + 10, fields = bytes.lastIndexOf("/Fields [") + 9;
    const QByteArray widget = bytes.mid(list, bytes.indexOf(']', list) - list),
                     field = bytes.mid(fields, bytes.indexOf(']', fields) - fields);
    const std::string what =
        changedBy({{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /SigFlags 3 /Fields [" + field + " 90 0 R] >> >>"},
            {3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Annots [" + widget + " 91 0 R] >>"},
            {90, "<< /FT /Sig /T (second) /Kids [91 0 R] /V << /Type /Sig /ByteRange [0 1 2 3] /Contents <00> >> >>"},
            {91, "<< /Type /Annot /Subtype /Square /Rect [0 0 400 500] /IC [1 1 1] /Parent 90 0 R >>"}});
    EXPECT_EQ(what, "annotations were added to page 1");
    const std::string itself = changedBy({{1,
                                              "<< /Type /Catalog /Pages 2 0 R /AcroForm << /SigFlags 3 /Fields ["
                                                  + field + " 91 0 R] >> >>"},
        {3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Annots [" + widget + " 91 0 R] >>"},
        {91,
            "<< /Type /Annot /Subtype /Square /Rect [0 0 400 500] /IC [1 1 1] /FT /Sig /T (second) /V << /Type /Sig "
            "/ByteRange [0 1 2 3] /Contents <00> >> >>"}});
    EXPECT_EQ(itself, "annotations were added to page 1; fields were added to the form");
}

// One object in two parts: it may change as the one, and the page shows it as the other.
TEST_F(DocumentAttack, GivesAnObjectTwoParts)
{
    struct Row
    {
        const char *what;
        Objects prepared;
        Objects revised;
        const char *changed;
    };
    const QByteArray drawing = "<< /Length 11 >>\nstream\n/V Do /M Do \nendstream";
    const QByteArray page = "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Resources << /XObject ";
    const QByteArray field = "<< /FT /Tx /T (a) /Subtype /Widget /Rect [0 0 9 9] /V ";
    const Row rows[] = {
        {"a form field and names of pictures",
            {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [6 0 R] >> >>"}, {2, kPages},
                {3, page + "6 0 R >> >>"}, {4, "<< /Length 5 >>\nstream\n/V Do\nendstream"}, {6, field + "7 0 R >>"},
                {7, kForm}},
            {{6, field + "90 0 R >>"}, {90, kBlackForm}}, "something that it covers (object 6)"},
        {"a page and names of pictures",
            {{1, kCatalogue}, {2, kPages}, {3, page + "3 0 R >> /LastModified 7 0 R >>"},
                {4, "<< /Length 16 >>\nstream\n/LastModified Do\nendstream"}, {7, kForm}},
            {{3, page + "3 0 R >> /LastModified 90 0 R >>"}, {90, kBlackForm}}, "something that it covers (object 3)"},
        {"a catalogue and names of pictures",
            {{1, "<< /Type /Catalog /Pages 2 0 R /Metadata 7 0 R >>"}, {2, kPages}, {3, page + "1 0 R >> >>"},
                {4, "<< /Length 12 >>\nstream\n/Metadata Do\nendstream"}, {7, kForm}},
            {{1, "<< /Type /Catalog /Pages 2 0 R /Metadata 90 0 R >>"}, {90, kBlackForm}},
            "something that it covers (object 1)"},
        {"a form field of a state of another one",
            {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [6 0 R 8 0 R] >> >>"}, {2, kPages},
                {3, "<< /Type /Page /Parent 2 0 R /Annots [8 0 R] >>"}, {6, field + "7 0 R >>"}, {7, kForm},
                {8, "<< /FT /Btn /T (b) /Subtype /Widget /Rect [0 0 400 500] /AS /V /AP << /N 6 0 R >> >>"}},
            {{6, field + "90 0 R >>"}, {90, kBlackForm}}, "something that it covers (object 6)"},
    };
    for (const Row &entry : rows) {
        SCOPED_TRACE(entry.what);
        makeSigned(entry.prepared, {"--page", "1"});
        // The signature has changed the catalogue and the page: what it wrote is kept in the revision.
        Objects revised;
        for (const auto &object : entry.revised)
            revised.append({object.first,
                object.first == 1 || object.first == 3 ? merged(object.first, object.second) : object.second});
        EXPECT_EQ(changedBy(revised), entry.changed);
    }
}

// The stream that holds other objects, in the part of the metadata, which may change.
TEST_F(DocumentAttack, ReplacesAStreamOfObjects)
{
    const auto holding = [](const QByteArray &object) {
        return "<< /Type /ObjStm /N 1 /First 4 /Length " + QByteArray::number(4 + object.size()) + " >>\nstream\n5 0 "
            + object + "\nendstream";
    };
    writeDocument("prepared.pdf",
        {{1, "<< /Type /Catalog /Pages 2 0 R /Metadata 9 0 R >>"}, {2, kPages},
            {3, "<< /Type /Page /Parent 2 0 R /Contents 5 0 R >>"}, {4, kSmall}, {9, holding("[4 0 R]")}});
    QByteArray bytes = read("prepared.pdf");
    const QByteArray previous = QByteArray::number(bytes.indexOf("xref\n")), place = QByteArray::number(bytes.size());
    bytes += "10 0 obj\n<< /Type /XRef /Size 11 /Root 1 0 R /Prev " + previous
        + " /W [1 1 1] /Index [5 1] /Length 3 >>\nstream\n" + QByteArray("\x02\x09\x00", 3)
        + "\nendstream\nendobj\nstartxref\n" + place + "\n%%EOF\n";
    write("prepared.pdf", bytes);
    signAs(People::get().anna(), "prepared.pdf", "signed.pdf", {"--page", "1"});
    EXPECT_TRUE(looked(read("signed.pdf")).isValid());
    EXPECT_EQ(changed(withOdd({{9, holding("[90 0 R]")}, {90, kBlack}})), "something that it covers (object 9)");
}

TEST_F(DocumentAttack, ChangesWhatAFormShowsByOtherMeans)
{
    const QByteArray form = "<< /Fields [6 0 R 9 0 R] /DR << /Font << /Helv 5 0 R >> >> ";
    const QByteArray button = "<< /Type /Annot /Subtype /Widget /Parent 9 0 R /T (push) /Rect [0 0 400 500] /P 3 0 R ";
    makeSigned({{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm 8 0 R >>"}, {2, kPages},
        {3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Annots [6 0 R 7 0 R] >>"}, {4, kSmall},
        {5, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"},
        {6, "<< /Type /Annot /Subtype /Widget /FT /Sig /T (here) /Rect [0 0 100 50] /P 3 0 R >>"}, {7, button + ">>"},
        {8, form + ">>"}, {9, "<< /FT /Btn /Ff 65536 /T (all) /Kids [7 0 R] >>"}});
    EXPECT_EQ(changedBy({{7, button + "/AP << /N 90 0 R >> >>"}, {90, kBlackForm}}), "the form field \"all.push\"");
    const QByteArray other = "<< /Type /Font /Subtype /Type1 /BaseFont /ZapfDingbats >>";
    EXPECT_EQ(changedBy({{8, QByteArray(form).replace("/Helv 5", "/Helv 90") + "/SigFlags 3 >>"}, {90, other}}),
        "the form was changed");
    EXPECT_EQ(changedBy({{8, form + "/SigFlags 3 /NeedAppearances true >>"}}), "the form was changed");
    appendRevision("signed.pdf", "revised.pdf",
        {{8, QByteArray(form).replace("/Helv 5 0 R", "/Helv 5 0 R /ZaDb 90 0 R") + "/SigFlags 3 /DA (/Helv 0 Tf) >>"},
            {90, other}});
    EXPECT_TRUE(looked(read("revised.pdf")).isValid());
}

// Whoever hears a document instead of seeing it has its tags alone.
TEST_F(DocumentAttack, ChangesWhatIsReadAloud)
{
    const QByteArray element = "<< /Type /StructElem /S /P /P 7 0 R /Pg 3 0 R /K 0 /ActualText ";
    makeSigned(
        {{1, "<< /Type /Catalog /Pages 2 0 R /StructTreeRoot 7 0 R /MarkInfo << /Marked true >> >>"}, {2, kPages},
            {3, kPage}, {4, kSmall}, {6, element + "(100) >>"}, {7, "<< /Type /StructTreeRoot /K [6 0 R] >>"}});
    EXPECT_EQ(changedBy({{6, element + "(100000) >>"}}), "the tags that are read aloud");
    EXPECT_EQ(changedBy({{7, "<< /Type /StructTreeRoot /K [90 0 R] >>"}, {90, element + "(100000) >>"}}),
        "the tags that are read aloud");
    makeSigned({{1, kCatalogue}, {2, kPages}, {3, kPage}, {4, kSmall}});
    EXPECT_EQ(changedBy({{1, merged(1, "<< /Type /Catalog /Pages 2 0 R /StructTreeRoot 90 0 R >>")},
                  {90, "<< /Type /StructTreeRoot /K [91 0 R] >>"}, {91, element + "(100000) >>"}}),
        "the document's catalogue");
}

// A certification that nobody has signed allows nothing.
TEST_F(DocumentAttack, ClaimsACertification)
{
    const QByteArray claim =
        "/Perms << /DocMDP << /Type /Sig /Reference [ << /TransformMethod /DocMDP /TransformParams << "
        "/P 3 >> >> ] >> >>";
    makeSigned({{1, "<< /Type /Catalog /Pages 2 0 R " + claim + " >>"}, {2, kPages}, {3, kPage}, {4, kSmall}});
    EXPECT_EQ(changedBy({{3, merged(3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R >>", "90 0 R")},
                  {90, "<< /Type /Annot /Subtype /Square /Rect [0 0 400 500] /IC [1 1 1] >>"}}),
        "annotations were added to page 1");
}

TEST_F(DocumentAttack, IsToldInWordsWhenItIsAllowed)
{
    const QByteArray text = "<< /Type /Annot /Subtype /Widget /FT /Tx /T (sum) /Rect [100 100 242 171] /P 3 0 R ";
    makeSigned({{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [6 0 R] >> /Metadata 8 0 R >>"}, {2, kPages},
        {3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R /Annots [6 0 R] >>"}, {4, kSmall}, {6, text + "/V (100) >>"},
        {8, "<< /Type /Metadata /Subtype /XML /Length 4 >>\nstream\n<a/>\nendstream"}});
    appendRevision("signed.pdf", "revised.pdf",
        {{6, text + "/V (900) >>"}, {8, "<< /Type /Metadata /Subtype /XML /Length 4 >>\nstream\n<b/>\nendstream"}});
    const documents::VerifyReport report = looked(read("revised.pdf"));
    EXPECT_TRUE(report.isValid());
    EXPECT_EQ(report.signatures[0].added.join("; ").toStdString(),
        "the form field \"sum\" (page 1, 50 by 25 mm) was changed from \"100\" to \"900\"; the metadata");
    signAs(People::get().ben(), "signed.pdf", "twice.pdf", {"--page", "1", "--field", "10,10,60x30"});
    EXPECT_EQ(looked(read("twice.pdf")).signatures[0].added.join("; ").toStdString(),
        "a signature in the field \"Signature2\" (page 1, 60 by 30 mm)");
}

} // namespace
