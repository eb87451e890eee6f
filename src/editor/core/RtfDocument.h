#pragma once

#include "editor/core/ColourTable.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace tessaro {

// A stretch of a document's text in one colour from the RTF colour table.
struct RtfColourRun
{
    qsizetype start = 0;
    qsizetype length = 0;
    ColourValue colour = 0;

    bool operator==(const RtfColourRun &o) const
    {
        return start == o.start && length == o.length && colour == o.colour;
    }
};

// A document as plain text (line breaks as CR LF) with the stretches that carry a
// colour of their own; the rest has the automatic colour.
struct RtfDocument
{
    QString text;
    std::vector<RtfColourRun> runs;
};

// Writes a text in the rich-edit box's shape: a header line, a colour-table line
// (which also sets the paragraph's font), one line per paragraph ending in "\par"
// + CR LF, and "}". CR LF, LF and CR each end a paragraph. Runs colour parts of the
// text (positions in `text`); without runs the table holds black alone and no
// colour switch is written.
QString writeRtf(const QString &text, const std::vector<RtfColourRun> &runs = {});

// Reads any RTF into text and colour runs: "\par" and "\line" become CR LF (the
// "\par" that closes the last paragraph adds none), "\tab" a tab, "\'hh" and "\uN"
// their characters; tables, pictures and other destinations are skipped; "\cfN"
// picks a colour of the table. Malformed input never fails: what can be read is read.
RtfDocument readRtf(QStringView rtf);

// Whether a file's text is rich text (it starts with "{\rtf").
bool isRichText(QStringView text);

} // namespace tessaro
