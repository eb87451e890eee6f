#include "editor/core/RtfDocument.h"

#include <optional>

namespace tessaro {

namespace {

bool isLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}
bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}
qint64 clamp(qint64 value, qint64 low, qint64 high)
{
    return qMax(low, qMin(value, high));
}

int hexValue(char16_t c)
{
    if (isDigit(c))
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

// Groups whose content is not document text.
bool isSkippedDestination(QStringView word)
{
    static const char16_t *const names[] = {u"fonttbl",
                                            u"stylesheet",
                                            u"info",
                                            u"pict",
                                            u"object",
                                            u"header",
                                            u"headerl",
                                            u"headerr",
                                            u"headerf",
                                            u"footer",
                                            u"footerl",
                                            u"footerr",
                                            u"footerf",
                                            u"footnote",
                                            u"fldinst",
                                            u"listtable",
                                            u"listoverridetable",
                                            u"revtbl",
                                            u"rsidtbl",
                                            u"generator",
                                            u"filetbl",
                                            u"xmlnstbl",
                                            u"themedata",
                                            u"colorschememapping",
                                            u"datastore",
                                            u"latentstyles",
                                            u"pgdsctbl",
                                            u"bkmkstart",
                                            u"bkmkend",
                                            u"author",
                                            u"operator",
                                            u"title",
                                            u"subject",
                                            u"comment",
                                            u"keywords"};
    for (const char16_t *name : names)
        if (word == QStringView(name))
            return true;
    return false;
}

class RtfReader
{
public:
    explicit RtfReader(QStringView rtf) : m_in(rtf) {}

    RtfDocument read()
    {
        const qsizetype n = m_in.size();
        while (m_i < n) {
            const char16_t c = m_in[m_i].unicode();
            switch (c) {
            case u'{':
                openGroup();
                ++m_i;
                break;
            case u'}':
                closeGroup();
                ++m_i;
                break;
            case u'\\': control(); break;
            case u'\r':
            case u'\n': ++m_i; break;
            default:
                ++m_i;
                if (m_state.table)
                    tableCharacter(c);
                else
                    character(c);
                break;
            }
        }
        // The paragraph mark that closes the last paragraph adds no line break.
        for (int k = 1; k < m_pendingBreaks; ++k)
            appendText(u"\r\n");
        return std::move(m_doc);
    }

private:
    struct State
    {
        int colour = 0;
        bool skip = false;
        bool table = false;
        int unicodeSkip = 1;
    };

    // Deep nesting is counted, not stored, so hostile input cannot exhaust memory.
    static constexpr size_t maxDepth = 4096;

    void openGroup()
    {
        m_pendingSkip = 0;
        if (m_stack.size() >= maxDepth) {
            ++m_excessDepth;
            return;
        }
        m_stack.push_back(m_state);
        m_groupStart = true;
    }

    void closeGroup()
    {
        m_pendingSkip = 0;
        if (m_excessDepth > 0) {
            --m_excessDepth;
            return;
        }
        if (m_state.table)
            finishTableEntry(false);
        if (!m_stack.empty()) {
            m_state = m_stack.back();
            m_stack.pop_back();
        }
        m_groupStart = false;
    }

    void control()
    {
        const qsizetype n = m_in.size();
        ++m_i; // the backslash
        if (m_i >= n)
            return;
        const char16_t c = m_in[m_i].unicode();
        const bool atGroupStart = m_groupStart;
        m_groupStart = false;
        if (isLetter(c)) {
            const qsizetype start = m_i;
            while (m_i < n && isLetter(m_in[m_i].unicode()))
                ++m_i;
            // Longer words are not RTF: read whole, known by their first 32 letters.
            const QStringView word = m_in.mid(start, qMin<qsizetype>(m_i - start, 32));
            std::optional<qint64> parameter;
            bool negative = false;
            if (m_i < n && m_in[m_i] == u'-' && m_i + 1 < n && isDigit(m_in[m_i + 1].unicode())) {
                negative = true;
                ++m_i;
            }
            if (m_i < n && isDigit(m_in[m_i].unicode())) {
                qint64 value = 0;
                for (int digits = 0; m_i < n && isDigit(m_in[m_i].unicode()); ++m_i, ++digits)
                    if (digits < 10)
                        value = value * 10 + (m_in[m_i].unicode() - u'0');
                parameter = negative ? -value : value;
            }
            if (m_i < n && m_in[m_i] == u' ')
                ++m_i;
            controlWord(word, parameter, atGroupStart);
            return;
        }
        ++m_i;
        switch (c) {
        case u'\'': {
            const int high = m_i < n ? hexValue(m_in[m_i].unicode()) : -1;
            const int low = m_i + 1 < n ? hexValue(m_in[m_i + 1].unicode()) : -1;
            if (high >= 0 && low >= 0) {
                m_i += 2;
                character(char16_t(high * 16 + low));
            }
            break;
        }
        case u'\\':
        case u'{':
        case u'}': m_state.table ? tableCharacter(c) : character(c); break;
        case u'~': character(u'\u00a0'); break;
        case u'_': character(u'-'); break;
        case u'*': m_state.skip = true; break;
        case u'\r':
        case u'\n': paragraph(); break;
        default: break;
        }
    }

    void controlWord(QStringView word, std::optional<qint64> parameter, bool atGroupStart)
    {
        const qint64 value = parameter.value_or(-1);
        if (m_pendingSkip > 0) { // a fallback of "\u", counted as one character
            --m_pendingSkip;
            return;
        }
        if (word == u"colortbl") {
            m_state.table = true;
            m_table.clear();
            m_entry = {};
            return;
        }
        if (m_state.table) {
            int *component = word == u"red"     ? &m_entry.red
                             : word == u"green" ? &m_entry.green
                             : word == u"blue"  ? &m_entry.blue
                                                : nullptr;
            if (component) {
                *component = int(clamp(value, 0, 255));
                m_entry.any = true;
            }
            return;
        }
        if (atGroupStart && isSkippedDestination(word)) {
            m_state.skip = true;
            return;
        }
        if (word == u"par") {
            paragraph();
        } else if (word == u"line") {
            character(u'\r');
            character(u'\n');
        } else if (word == u"tab") {
            character(u'\t');
        } else if (word == u"cf") {
            m_state.colour = int(clamp(0, parameter.value_or(0), 1 << 20));
        } else if (word == u"plain") {
            m_state.colour = 0;
        } else if (word == u"uc") {
            m_state.unicodeSkip = int(clamp(0, parameter.value_or(1), 16));
        } else if (word == u"u" && parameter) {
            character(char16_t(*parameter & 0xFFFF));
            m_pendingSkip = m_state.unicodeSkip;
        } else if (word == u"bin" && parameter) {
            m_i += clamp(0, *parameter, m_in.size() - m_i);
        } else if (word == u"emdash") {
            character(u'\u2014');
        } else if (word == u"endash") {
            character(u'\u2013');
        } else if (word == u"bullet") {
            character(u'\u2022');
        } else if (word == u"lquote") {
            character(u'\u2018');
        } else if (word == u"rquote") {
            character(u'\u2019');
        } else if (word == u"ldblquote") {
            character(u'\u201c');
        } else if (word == u"rdblquote") {
            character(u'\u201d');
        }
    }

    void paragraph()
    {
        if (m_state.skip || m_state.table)
            return;
        ++m_pendingBreaks;
    }

    void character(char16_t c)
    {
        if (m_pendingSkip > 0) {
            --m_pendingSkip;
            return;
        }
        if (m_state.skip || m_state.table)
            return;
        for (; m_pendingBreaks > 0; --m_pendingBreaks)
            appendText(u"\r\n");
        appendText(QStringView(&c, 1));
    }

    void appendText(QStringView text)
    {
        const std::optional<ColourValue> colour = colourOf(m_state.colour);
        const qsizetype at = m_doc.text.size();
        m_doc.text += text;
        // Line breaks carry no colour: a run never spans two lines.
        if (!colour || text.front() == u'\r' || text.front() == u'\n')
            return;
        if (!m_doc.runs.empty()) {
            RtfColourRun &last = m_doc.runs.back();
            if (last.colour == *colour && last.start + last.length == at) {
                last.length += text.size();
                return;
            }
        }
        m_doc.runs.push_back(RtfColourRun{at, text.size(), *colour});
    }

    std::optional<ColourValue> colourOf(int index) const
    {
        if (index <= 0 || size_t(index) >= m_table.size())
            return std::nullopt;
        return m_table[size_t(index)];
    }

    // Inside the colour table, ";" ends an entry; an entry without components is the
    // automatic colour.
    void tableCharacter(char16_t c)
    {
        if (c == u';')
            finishTableEntry(true);
    }

    void finishTableEntry(bool always)
    {
        if (!always && !m_entry.any)
            return;
        if (m_table.size() < 65536) {
            if (m_entry.any)
                m_table.push_back(ColourValue(m_entry.red) | ColourValue(m_entry.green) << 8 |
                                  ColourValue(m_entry.blue) << 16);
            else
                m_table.push_back(std::nullopt);
        }
        m_entry = {};
    }

    struct Entry
    {
        int red = 0, green = 0, blue = 0;
        bool any = false;
    };

    QStringView m_in;
    qsizetype m_i = 0;
    State m_state;
    std::vector<State> m_stack;
    size_t m_excessDepth = 0;
    bool m_groupStart = false;
    int m_pendingBreaks = 0;
    int m_pendingSkip = 0;
    std::vector<std::optional<ColourValue>> m_table;
    Entry m_entry;
    RtfDocument m_doc;
};

} // namespace

RtfDocument readRtf(QStringView rtf)
{
    return RtfReader(rtf).read();
}

bool isRichText(QStringView text) { return text.startsWith(u"{\\rtf"); }

} // namespace tessaro
