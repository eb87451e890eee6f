#pragma once

#include <QColor>
#include <QList>
#include <QTextLayout>

class QTextBlock;
class QTextDocument;

namespace tessaro {

// The colours and the state the editor keeps on each line of its document.
//
// Colours are laid over a line as its layout's own formats (the way a syntax
// highlighter shows them), never written into the document: a colour change is no
// edit of the text, takes no room in the undo history and leaves the redo steps
// alone. The line's user state holds what belongs to the line's end: its break as
// loaded (LineEnd, two bits) and whether it ends inside a block comment. Qt keeps
// the state of the second line when two lines are joined, and the layout and user
// data of the first, so a line that carries colours is marked by its user data.
//
// Changes of colour are collected and the document's layout is told of them at
// once in finish(), so a run over many lines costs one notice, not one a line.
class ColouredLines
{
public:
    using Ranges = QList<QTextLayout::FormatRange>;

    explicit ColouredLines(QTextDocument *document) : m_doc(document) {}
    ~ColouredLines() { finish(); }
    ColouredLines(const ColouredLines &) = delete;
    ColouredLines &operator=(const ColouredLines &) = delete;

    // Gives a line these colours (positions in the line); nothing happens when it
    // has them already. Returns whether anything changed.
    bool setColours(QTextBlock &block, const Ranges &ranges);
    // Tells the document's layout of the lines whose colours changed.
    void finish();

    // The colours a line carries (an empty list when it carries none).
    static Ranges colours(const QTextBlock &block);
    // The colour a character of a line shows in: its line's colour, else the
    // colour of its own format, else the given text colour.
    static QColor shownColour(const QTextBlock &block, int positionInLine,
                              const QColor &textColour);
    // Moves a line's colours along with an edit of its text at `at` that removed and
    // added characters, as formats of the text would move: the colours of removed
    // characters go, later ones shift, and inserted text takes the colour of the
    // character before it (of the one after it at the start of the line).
    static Ranges shifted(const Ranges &ranges, int at, int removed, int added);

    // ---- Line state -----------------------------------------------------------------
    static constexpr int LineEndMask = 3;
    static constexpr int CommentOpenBit = 4;
    static int lineEndBits(const QTextBlock &block);
    static bool endsInComment(const QTextBlock &block);
    // False for a new line, and for a line whose state Qt dropped (Undo and Redo that
    // split or join lines do).
    static bool stateKnown(const QTextBlock &block);
    static bool hasColours(const QTextBlock &block);
    static void setLineEnd(QTextBlock &block, int lineEnd);
    static void setEndsInComment(QTextBlock &block, bool inComment);

private:
    static void setStateBits(QTextBlock &block, int mask, int bits);

    QTextDocument *m_doc;
    int m_dirtyFrom = -1;
    int m_dirtyTo = -1;
};

} // namespace tessaro
