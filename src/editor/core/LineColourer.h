#pragma once

#include <QString>

namespace tessaro {

class SectionDefinitions;
class HighlightColours;

// Colours one RTF line at a time by putting colour switches into its text, with the
// section file's lists. Three flags carry over from line to line (and from one
// document to the next): inside a line comment, inside a string, inside a block
// comment.
class LineColourer
{
public:
    LineColourer(const SectionDefinitions &definitions, const HighlightColours &colours);

    // Colours a line's RTF text (without its "\par" and line break).
    QString colourLine(QString line);
    // Colours one piece of a line (a word with its blanks); `first` marks the line's
    // first piece.
    QString colourWord(const QString &word, bool first);

    bool inLineComment() const { return m_inLineComment; }
    bool inString() const { return m_inString; }
    bool inBlockComment() const { return m_inBlockComment; }
    void setFlags(bool lineComment, bool string, bool blockComment);

private:
    const QString &sw(int slot) const;

    const SectionDefinitions &m_definitions;
    const HighlightColours &m_colours;
    bool m_inLineComment = false;
    bool m_inString = false;
    bool m_inBlockComment = false;
};

} // namespace tessaro
