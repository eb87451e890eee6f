#include "editor/core/WordScanner.h"

namespace tessaro {

WordScanner::WordScanner(const ScanRequest &request, std::vector<ColourStretch> &out,
                         qsizetype begin, qsizetype end)
    : m_request(request), m_out(out),
      m_chars(reinterpret_cast<const char16_t *>(request.text.utf16())),
      m_range(QStringView(request.text).left(end)), m_pos(begin), m_end(end)
{
}

WordScanner::~WordScanner() = default;

void WordScanner::interruptWord(qsizetype at)
{
    if (m_pieceStart >= 0) {
        m_pieces.emplace_back(m_pieceStart, at - m_pieceStart);
        m_pieceStart = -1;
    }
}

void WordScanner::discardWord()
{
    m_wordStart = -1;
    m_pieceStart = -1;
    m_pieces.clear();
}

WordScanner::Found WordScanner::endWord(qsizetype at, QString *word)
{
    if (m_wordStart < 0)
        return Found::None;
    interruptWord(at);

    // One piece is a view into the text; several are joined into the buffer.
    QStringView collected;
    if (m_pieces.size() == 1) {
        collected = QStringView(m_chars + m_pieces[0].first, m_pieces[0].second);
    } else {
        m_buffer.clear();
        for (const auto &[start, length] : m_pieces)
            m_buffer.append(QStringView(m_chars + start, length));
        collected = m_buffer;
    }
    if (word)
        *word = collected.toString();

    Found found = Found::None;
    QString spelling;
    if (m_request.black.find(collected, &spelling))
        found = Found::Black;
    else if (m_request.blue.find(collected, &spelling))
        found = Found::Blue;

    if (found != Found::None) {
        const qsizetype start = m_pieces.front().first;
        const qsizetype end = m_pieces.back().first + m_pieces.back().second;
        if (m_pieces.size() > 1) {
            // The stretch holds skipped characters between the pieces: those stay,
            // and the word's own characters take the list's spelling in place.
            QString inPlace = QStringView(m_chars + start, end - start).toString();
            qsizetype next = 0;
            for (const auto &[pieceStart, length] : m_pieces) {
                inPlace.replace(pieceStart - start, length, spelling.mid(next, length));
                next += length;
            }
            spelling = inPlace;
        }
        m_out.push_back(ColourStretch{
            start, end - start, found == Found::Blue ? StretchKind::Keyword : StretchKind::Text,
            spelling});
    }
    discardWord();
    return found;
}

qsizetype WordScanner::comment(qsizetype start, qsizetype stop)
{
    discardWord();
    m_out.push_back(ColourStretch{start, stop - start, StretchKind::Comment, QString()});
    return stop;
}

qsizetype WordScanner::afterQuote(qsizetype at, bool backslashEscapes) const
{
    qsizetype close = find(u'"', at + 1);
    while (backslashEscapes && close > 0 && m_chars[close - 1] == u'\\')
        close = find(u'"', close + 1);
    return (close < 0 ? m_end : close) + 1;
}

qsizetype WordScanner::lineEnd(qsizetype from) const
{
    const qsizetype at = find(u"\r\n", from);
    return at < 0 ? m_end : at;
}

qsizetype WordScanner::find(QStringView what, qsizetype from, Qt::CaseSensitivity cs) const
{
    if (from >= m_end)
        return -1;
    return m_range.indexOf(what, from, cs);
}

qsizetype WordScanner::find(char16_t what, qsizetype from) const
{
    if (from >= m_end)
        return -1;
    return m_range.indexOf(QChar(what), from);
}

} // namespace tessaro
