#include "editor/core/RtfDocument.h"

#include <algorithm>

namespace tessaro {

namespace {

// The colour-table index of every character: 0 (automatic) outside the runs.
std::vector<int> colourIndexes(qsizetype length, const std::vector<RtfColourRun> &runs,
                               std::vector<ColourValue> *table)
{
    std::vector<int> index(size_t(length), 0);
    for (const RtfColourRun &run : runs) {
        auto known = std::find(table->begin(), table->end(), run.colour);
        if (known == table->end())
            known = table->insert(table->end(), run.colour);
        const int n = int(known - table->begin()) + 1;
        const qsizetype from = qBound<qsizetype>(0, run.start, length);
        const qsizetype to = qBound<qsizetype>(from, run.start + run.length, length);
        std::fill(index.begin() + from, index.begin() + to, n);
    }
    return index;
}

void appendCharacter(QString &out, char16_t c)
{
    switch (c) {
    case u'\\': out += QLatin1String("\\\\"); return;
    case u'{': out += QLatin1String("\\{"); return;
    case u'}': out += QLatin1String("\\}"); return;
    case u'\t': out += QLatin1String("\\tab "); return;
    default: break;
    }
    if (c >= 0x20 && c < 0x80) {
        out += QChar(c);
    } else if (c < 0x100) {
        out += QStringLiteral("\\'%1").arg(int(c), 2, 16, QLatin1Char('0'));
    } else {
        out += QStringLiteral("\\u%1?").arg(int(qint16(c)));
    }
}

} // namespace

QString writeRtf(const QString &text, const std::vector<RtfColourRun> &runs)
{
    std::vector<ColourValue> table;
    const std::vector<int> colourAt = colourIndexes(text.size(), runs, &table);
    if (table.empty())
        table.push_back(0); // black, for colourers that replace the table

    QString out = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033"
                                 "{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 Courier New;}}\r\n"
                                 "{\\colortbl ;");
    for (ColourValue colour : table)
        out += QStringLiteral("\\red%1\\green%2\\blue%3;")
                   .arg(colour & 0xFF)
                   .arg((colour >> 8) & 0xFF)
                   .arg((colour >> 16) & 0xFF);
    out += QStringLiteral("}\\viewkind4\\uc1\\pard\\f0\\fs20\r\n");

    int current = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i <= n; ++i) {
        const char16_t c = i < n ? text.at(i).unicode() : 0;
        if (i == n || c == u'\r' || c == u'\n') {
            out += QLatin1String("\\par\r\n");
            if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
                ++i;
            continue;
        }
        if (colourAt[size_t(i)] != current) {
            current = colourAt[size_t(i)];
            out += QStringLiteral("\\cf%1 ").arg(current);
        }
        appendCharacter(out, c);
    }
    return out + QLatin1Char('}');
}

} // namespace tessaro
