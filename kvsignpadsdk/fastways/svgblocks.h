/// @file
/// What QSvgGenerator writes for one line: a text with gaps for the numbers.
#ifndef SVGBLOCKS_H
#define SVGBLOCKS_H

#include "svglines.h"

#include <QByteArray>

#include <vector>

/// One kind of block: a line, a dot, each of a pen with a width or with none.
class SvgBlock
{
public:
    /// Learns the block from two of Qt's texts: a drawing of one line, and the same `with` a marked line of this kind
    /// behind it. Returns false when they do not differ by one block.
    /// @param end number of characters behind the last line in each text.
    bool take(const QByteArray &without, const QByteArray &with, int end);

    void append(QByteArray &text, const svglines::Line &line) const;

    /// The line whose numbers are the marks.
    static svglines::Line marked(bool dot, bool hasWidth);

private:
    struct Place
    {
        QByteArray before; ///< text up to the number
        int number; ///< index of the mark
    };

    std::vector<Place> m_places;
    QByteArray m_rest;
    int m_longest = 0; ///< upper limit of the characters of this block
};

/// All kinds for one colour and resolution.
class SvgBlocks
{
public:
    /// Learns the blocks of all kinds. Returns false when this Qt's texts are not made of such blocks.
    bool take(const svglines::Drawing &drawing);

    void append(QByteArray &text, const svglines::Line &line) const;

    /// The text after the last line.
    const QByteArray &end() const { return m_end; }

private:
    SvgBlock m_blocks[4];
    QByteArray m_end;
};

#endif
