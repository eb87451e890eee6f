#include "editor/core/EditorPositions.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace tessaro {
namespace positions {

qsizetype toPublic(const QTextDocument &doc, int docPos)
{
    const int last = std::max(0, doc.characterCount() - 1);
    docPos = std::clamp(docPos, 0, last);
    const QTextBlock block = doc.findBlock(docPos);
    if (!block.isValid())
        return docPos;
    return qsizetype(docPos) + block.blockNumber();
}

int toDocument(const QTextDocument &doc, qsizetype pubPos)
{
    if (pubPos <= 0)
        return 0;
    // The last block whose public start is at or before the position: the public
    // start of block n is its document position + n.
    int lo = 0;
    int hi = doc.blockCount() - 1;
    while (lo < hi) {
        const int mid = lo + (hi - lo + 1) / 2;
        const QTextBlock b = doc.findBlockByNumber(mid);
        if (qsizetype(b.position()) + mid <= pubPos)
            lo = mid;
        else
            hi = mid - 1;
    }
    const QTextBlock block = doc.findBlockByNumber(lo);
    const qsizetype offset = pubPos - (qsizetype(block.position()) + lo);
    const int textLength = block.length() - 1;
    return block.position() + int(std::min<qsizetype>(offset, textLength));
}

qsizetype publicLength(const QTextDocument &doc)
{
    return qsizetype(doc.characterCount() - 1) + (doc.blockCount() - 1);
}

QString publicText(const QTextDocument &doc)
{
    return publicText(doc, 0, doc.characterCount() - 1);
}

QString publicText(const QTextDocument &doc, int docFrom, int docTo)
{
    QString raw = doc.toRawText();
    docTo = std::clamp(docTo, 0, int(raw.size()));
    docFrom = std::clamp(docFrom, 0, docTo);
    QString out;
    out.reserve(docTo - docFrom + (docTo - docFrom) / 16);
    const QChar *p = raw.constData();
    qsizetype runStart = docFrom;
    for (qsizetype i = docFrom; i < docTo; ++i) {
        if (p[i] == QChar::ParagraphSeparator) {
            out.append(p + runStart, i - runStart);
            out.append(QLatin1String("\r\n"));
            runStart = i + 1;
        }
    }
    out.append(p + runStart, docTo - runStart);
    return out;
}

} // namespace positions

} // namespace tessaro
