// Encrypted documents: what the owner forbids is refused, unless the owner's password is given.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentOwner : public Documents
{
protected:
    DocumentOwner()
    {
        write("reader", "reader\n");
        write("owner", "owner\n");
    }

    CommandResult signWith(const QString &password, const QStringList &options) const
    {
        QFile::remove(file("b.pdf"));
        return run(QStringList{"sign", "--ink", "a.ink", "--document-password-file", password} + options
            + QStringList{"locked.pdf", "b.pdf"});
    }

    void needAnswer(const CommandResult &result, const QString &forbidden) const
    {
        EXPECT_EQ(result.exitCode, forbidden.isEmpty() ? 0 : 1) << testing::PrintToString(result);
        EXPECT_EQ(exists("b.pdf"), forbidden.isEmpty());
        if (!forbidden.isEmpty()) {
            EXPECT_TRUE(
                result.errors.contains("its owner forbids " + forbidden + "; with the owner's password it can be done"))
                << testing::PrintToString(result);
        }
    }
};

struct Row
{
    const char *modify; ///< what qpdf calls the permission
    const char *page; ///< what is refused, for ink on the page, a new field, and a field of the form; empty: nothing
    const char *newField;
    const char *field;
};

const Row kRows[] = {{"none", "changes of its pages", "new signature fields", "signatures"},
    {"assembly", "changes of its pages", "new signature fields", "signatures"},
    {"form", "changes of its pages", "new signature fields", ""},
    {"annotate", "changes of its pages", "new signature fields", ""}, {"all", "", "", ""}};

TEST_F(DocumentOwner, DecidesWhatMayBeDone)
{
    const QStringList certificate{"--certificate", People::get().anna(), "--password-file", People::get().password()};
    for (const Row &row : kRows) {
        SCOPED_TRACE(row.modify);
        says({"qpdf", "--encrypt", "reader", "owner", "256", QString("--modify=%1").arg(row.modify), "--",
            given("written-form.pdf"), "locked.pdf"});
        needAnswer(signWith("reader", {"--page", "1"}), row.page);
        needAnswer(signWith("reader", certificate + QStringList{"--page", "1"}), row.newField);
        needAnswer(signWith("reader", certificate + QStringList{"--form-field", "driver"}), row.field);
        for (const QStringList &options : {QStringList{"--page", "1"}, certificate + QStringList{"--page", "1"}})
            needAnswer(signWith("owner", options), "");
    }
}

TEST_F(DocumentOwner, KeepsWhatIsForbidden)
{
    says({"qpdf", "--encrypt", "reader", "owner", "256", "--modify=none", "--print=low", "--", given("cairo.pdf"),
        "locked.pdf"});
    needAnswer(signWith("owner", {}), "");
    for (const char *password : {"--password=reader", "--password=owner"})
        EXPECT_EQ(says({"qpdf", "--show-encryption", password, "b.pdf"}),
            says({"qpdf", "--show-encryption", password, "locked.pdf"}));
}

} // namespace
