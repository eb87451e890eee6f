#include "editor/core/DynHighlight.h"

#include "editor/core/BasicText.h"
#include "platform/core/MsgBox.h"

namespace tessaro {

DynHighlight::DynHighlight() : lines(definitions, colours) {}

qint32 DynHighlight::colourDocumentRtf(DocumentCaption &document, const QString &rtfIn,
                                       QString &rtfOut)
{
    static const QString lineBreak = QStringLiteral("\r\n");
    static const QString paragraphEnd = QStringLiteral("\\par\r\n");

    const QString rtf = replaceColourTable(rtfIn, colours.buildTable());
    if (!definitions.buildJoinedLists())
        MsgBox(QStringLiteral("Error highlighting file"), mb::OKOnly | mb::Exclamation);
    const qint32 lineCount = basictext::countOccurrences(rtf, lineBreak); // counted, not used
    Q_UNUSED(lineCount);

    const QString caption = document.caption();
    document.setCaption(caption + QStringLiteral(" - Color Coding..."));

    QString out;
    out.reserve(rtf.size() * 2);
    qsizetype from = 0;
    for (qsizetype at = rtf.indexOf(lineBreak); at >= 0; at = rtf.indexOf(lineBreak, from)) {
        const QStringView piece = QStringView(rtf).mid(from, at + 2 - from);
        if (piece.endsWith(paragraphEnd))
            out += lines.colourLine(piece.chopped(paragraphEnd.size()).toString()) + paragraphEnd;
        else
            out += piece;
        from = at + 2;
    }
    out += QLatin1Char('}');
    rtfOut = out;
    return 0;
}

QString DynHighlight::colourWithSectionFile(DocumentCaption &document, const QString &sectionFile,
                                            const QString &rtf)
{
    definitions.clear();
    definitions.load(sectionFile); // a missing file leaves no lists; colouring goes on
    const QString caption = document.caption();
    QString coloured;
    colourDocumentRtf(document, rtf, coloured);
    document.setCaption(caption);
    definitions.clear();
    return coloured;
}

DynHighlight &dynHighlight()
{
    static DynHighlight module;
    return module;
}

} // namespace tessaro
