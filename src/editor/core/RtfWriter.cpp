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

// What the last thing written leaves open: a control word that ends in letters
// (\tab) or in its number (\cf1). The next character may not continue it, and a
// blank is never used to end it inside a line: a tool that cuts lines at blanks
// (the section-file line colourer) would take that blank for text. "{}" ends a
// control word without adding anything.
enum class OpenWord { None, Letters, Number };

bool isAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool isAsciiDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

class RtfLineWriter
{
public:
    explicit RtfLineWriter(QString &out) : m_out(out) {}

    void colourSwitch(int index)
    {
        m_out += QStringLiteral("\\cf%1").arg(index);
        m_open = OpenWord::Number;
    }

    void character(char16_t c)
    {
        switch (c) {
        case u'\\': escaped(QStringLiteral("\\\\")); return;
        case u'{': escaped(QStringLiteral("\\{")); return;
        case u'}': escaped(QStringLiteral("\\}")); return;
        case u'\t':
            escaped(QStringLiteral("\\tab"));
            m_open = OpenWord::Letters;
            return;
        default: break;
        }
        if (c >= 0x20 && c < 0x80) {
            endOpenWordBefore(c);
            m_out += QChar(c);
            m_open = OpenWord::None;
        } else if (c < 0x100) {
            escaped(QStringLiteral("\\'%1").arg(int(c), 2, 16, QLatin1Char('0')));
        } else {
            escaped(QStringLiteral("\\u%1?").arg(int(qint16(c))));
        }
    }

    void paragraphEnd()
    {
        m_out += QLatin1String("\\par\r\n");
        m_open = OpenWord::None;
    }

private:
    // Text that starts with a backslash ends any open control word by itself.
    void escaped(const QString &text)
    {
        m_out += text;
        m_open = OpenWord::None;
    }

    void endOpenWordBefore(char16_t c)
    {
        const bool continues =
            c == u' ' || isAsciiDigit(c) ||
            (m_open == OpenWord::Letters && (isAsciiLetter(c) || c == u'-'));
        if (m_open != OpenWord::None && continues)
            m_out += QLatin1String("{}");
    }

    QString &m_out;
    OpenWord m_open = OpenWord::None;
};

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

    RtfLineWriter line(out);
    int current = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i <= n; ++i) {
        const char16_t c = i < n ? text.at(i).unicode() : 0;
        if (i == n || c == u'\r' || c == u'\n') {
            line.paragraphEnd();
            if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
                ++i;
            continue;
        }
        if (colourAt[size_t(i)] != current) {
            current = colourAt[size_t(i)];
            line.colourSwitch(current);
        }
        line.character(c);
    }
    return out + QLatin1Char('}');
}

} // namespace tessaro
