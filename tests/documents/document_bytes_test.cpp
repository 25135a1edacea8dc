// One bit of what a signature covers: wherever it is turned, that is found. The library is asked itself, because a
// process for each byte would take minutes.
#include "signeddocuments.h"

#include <documents/problem.h>
#include <documents/verify.h>

namespace {

using namespace signeddocuments;

#ifdef KV_SANITIZED
constexpr int kStride = 7; // every byte takes minutes then
#else
constexpr int kStride = 1;
#endif

class DocumentBytes : public Documents
{
protected:
    // The certificates of the system have no say in this, and would be read again for each byte.
    DocumentBytes() { qputenv("SSL_CERT_FILE", "/dev/null"); }
    ~DocumentBytes() override { qunsetenv("SSL_CERT_FILE"); }

    static bool isValid(const QByteArray &bytes)
    {
        try {
            documents::Document document(documents::Content{bytes, "document"});
            return documents::verify(document, {People::get().authority()}, [](qint64, qint64) {}).isValid();
        } catch (const documents::Problem &) {
            return false;
        }
    }

    /// Turns one bit of each of these bytes.
    static void needFound(QByteArray bytes, int begin, int end)
    {
        for (int place = begin; place < end; place += kStride) {
            const char before = bytes[place];
            bytes[place] = static_cast<char>(before ^ (1 << place % 8)); // any stride but 8 comes to every bit
            EXPECT_FALSE(isValid(bytes)) << "byte " << place << " of " << bytes.size();
            bytes[place] = before;
        }
    }
};

TEST_F(DocumentBytes, AreAllCovered)
{
    signAs(People::get().anna(), given("written-hybrid.pdf"), "hybrid.pdf"); // written anew
    signAs(People::get().anna(), given("qpdf-object-streams.pdf"), "streams.pdf");
    for (const char *name : {"hybrid.pdf", "streams.pdf"}) {
        SCOPED_TRACE(name);
        const QByteArray bytes = read(name);
        ASSERT_TRUE(isValid(bytes));
        const int gap = bytes.lastIndexOf("/Contents <") + 10, behind = bytes.indexOf('>', gap) + 1;
        ASSERT_GT(behind, gap);
        needFound(bytes, 0, gap + 1);
        needFound(bytes, behind - 1, bytes.size());
    }
}

// Cut anywhere: what is left is no document, or no longer what was signed.
TEST_F(DocumentBytes, AreAllThere)
{
    signAs(People::get().anna(), given("qpdf-object-streams.pdf"), "streams.pdf");
    const QByteArray bytes = read("streams.pdf");
    for (int size = 0; size < bytes.size(); size += 23)
        EXPECT_FALSE(isValid(bytes.left(size))) << size;
    EXPECT_FALSE(isValid(bytes.left(bytes.size() - 1)));
    EXPECT_TRUE(isValid(bytes + "\n"));
}

} // namespace
