// What the search of the HTML site finds: docs/site/search.py on a small site, asked as Doxygen's script in the browser
// asks.
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// Takes the file of the first letter, and what begins with the text that was typed.
const char kAsk[] =
    "const fs = require('fs'), typed = process.argv[1].toLowerCase();\n"
    "const load = (file, name) => new Function(fs.readFileSync('html/search/' + file, 'utf8') + 'return ' + name)();\n"
    "const index = load('searchdata.js', 'indexSectionsWithContent')[0].indexOf(typed[0]);\n"
    "const key = [...typed].map(c => /[a-z0-9]/.test(c) ? c : '_' + c.charCodeAt().toString(16)).join('');\n"
    "const file = 'all_' + index.toString(16);\n"
    "if (index >= 0 && fs.readFileSync('html/search/' + file + '.html', 'utf8').includes('\"' + file + '.js\"'))\n"
    "    for (const [id, [text, [address, inPlace, page]]] of load(file + '.js', 'searchData'))\n"
    "        if (id.startsWith(key)) console.log(text, address, page);\n";

const char kPage[] =
    "<html><div class=\"title\">Keeping &amp; giving</div><div class=\"textblock\"><p>Where <b>umbrellas</b> go.</p>\n"
    "<h1><a class=\"anchor\" id=\"autotoc_md7\"></a>\nOn the shelf</h1><p>Never in a bathtub.</p>\n"
    "<table class=\"markdownTable\"><tr class=\"x\"><td class=\"markdownTableBodyNone\"><code>SHELF_WIDTH</code></td>\n"
    "<td class=\"markdownTableBodyNone\">ninety</td></tr></table></div></html>\n";

class SiteSearch : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(m_place.path()).mkpath("html/search"));
        write("html/keeping.html", kPage);
        write("html/dir_1234.html", "<html><div class=\"title\">Folder of umbrellas</div></html>");
        write("html/search/all_0.html", "<html><script src=\"all_0.js\"></script></html>");
        write("html/search/all_0.js", "var searchData=[];");
        write("html/search/searchdata.js", "var indexSectionsWithContent =\n{\n  0: \"k\",\n  1: \"k\"\n};\n");
        const CommandResult result =
            runProgram({KV_SOURCE_DIRECTORY "/docs/site/search.py", m_place.filePath("html")}, m_place.path());
        ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    }

    void write(const QString &name, const QByteArray &content)
    {
        QFile file(m_place.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void finds(const QString &typed, const QString &answer)
    {
        const CommandResult result = runProgram({"node", "-e", kAsk, typed}, m_place.path());
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        EXPECT_EQ(result.output.toStdString(), answer.toStdString()) << typed.toStdString();
    }

    QTemporaryDir m_place;
};

TEST_F(SiteSearch, KnowsEachWordOfATitle)
{
    finds("keeping & g", "Keeping &amp; giving ../keeping.html \n");
    finds("GIVING", "Keeping &amp; giving ../keeping.html \n");
}

TEST_F(SiteSearch, LeadsToTheHeadingAndThenToWhatIsBelowIt)
{
    finds("shelf",
        "On the shelf ../keeping.html#autotoc_md7 Keeping &amp; giving\n"
        "SHELF_WIDTH ../keeping.html#autotoc_md7 Keeping &amp; giving\n");
}

TEST_F(SiteSearch, KnowsNamesInTablesAndTheFirstParagraph)
{
    finds("SHELF_W", "SHELF_WIDTH ../keeping.html#autotoc_md7 Keeping &amp; giving\n");
    finds("umbrella", "Keeping &amp; giving ../keeping.html \n");
}

TEST_F(SiteSearch, KnowsFunctionsAsProgramsCallThem)
{
    finds("KVS310X_SaveDr", "KVS310X_SaveDrawingImage ../SaveDrawingImage.html \n");
}

TEST_F(SiteSearch, FindsNothingElse)
{
    for (const char *typed : {"the", "bathtub", "ninety", "folder", "zebra"})
        finds(typed, "");
}

} // namespace
