/// @file
/// Reads a JSON text token by token and keeps only one token in memory. Qt's own reader keeps the whole document.
#ifndef JSONTOKENS_H
#define JSONTOKENS_H

#include "../failure.h"

#include <QByteArray>
#include <QIODevice>

class JsonTokens
{
public:
    enum class Kind
    {
        Structure, ///< one of []{}:, in the text
        String,
        Word, ///< a number, true, false or null
        End
    };

    JsonTokens(QIODevice &device, const QString &name);

    Kind kind() const { return m_kind; }

    /// The bracket, colon or comma; the content of a string; the characters of a number or word.
    const QByteArray &text() const { return m_text; }
    bool is(char structure) const { return m_kind == Kind::Structure && m_text.at(0) == structure; }

    void next();

    /// Reads this bracket, colon or comma, or throws.
    void expect(char structure);

    /// Skips the value that begins here, whatever it is.
    void skipValue();

    /// A Failure with this reason and the place of the token read last.
    Failure broken(const QString &what) const;

private:
    int take();
    int peek();
    void readString();
    void readEscape();
    void readWord(char first);

    QIODevice &m_device;
    QString m_name;
    QByteArray m_piece;
    int m_place = 0;
    Kind m_kind = Kind::End;
    QByteArray m_text;
    qint64 m_line = 1, m_column = 0; ///< of the character that was taken last
    qint64 m_tokenLine = 1, m_tokenColumn = 1;
};

#endif
