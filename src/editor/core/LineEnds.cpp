#include "editor/core/LineEnds.h"

#include "platform/core/Prefault.h"

#include <QByteArray>

#include <algorithm>

#include <array>
#include <cstring>
#include <type_traits>

namespace tessaro {

QString lineEndText(LineEnd end)
{
    switch (end) {
    case LineEnd::LF: return QStringLiteral("\n");
    case LineEnd::CR: return QStringLiteral("\r");
    case LineEnd::CRLF:
    case LineEnd::Unknown: break;
    }
    return QStringLiteral("\r\n");
}

namespace {

// Collects a text's breaks in order and settles the usual kind at the end.
class BreakTally
{
public:
    void add(LineEnd kind)
    {
        m_ends.breaks.push_back(kind);
        ++m_counts[static_cast<std::size_t>(kind)];
    }
    qsizetype count(LineEnd kind) const { return m_counts[static_cast<std::size_t>(kind)]; }
    LineEnds finish()
    {
        // Ties prefer CR LF, the break a new source file gets, then LF.
        const std::array<LineEnd, 3> order{LineEnd::CRLF, LineEnd::LF, LineEnd::CR};
        qsizetype best = 0;
        for (LineEnd kind : order) {
            if (count(kind) > best) {
                best = count(kind);
                m_ends.usual = kind;
            }
        }
        m_ends.uniform = best == static_cast<qsizetype>(m_ends.breaks.size());
        return std::move(m_ends);
    }

private:
    LineEnds m_ends;
    std::array<qsizetype, 4> m_counts{};
};

template <typename Char> LineEnds scanBreaks(const Char *p, qsizetype n)
{
    BreakTally tally;
    for (qsizetype i = 0; i < n; ++i) {
        const Char c = p[i];
        LineEnd kind;
        if (c == Char('\n')) {
            kind = LineEnd::LF;
        } else if (c == Char('\r')) {
            if (i + 1 < n && p[i + 1] == Char('\n')) {
                kind = LineEnd::CRLF;
                ++i;
            } else {
                kind = LineEnd::CR;
            }
        } else {
            continue;
        }
        tally.add(kind);
    }
    return tally.finish();
}

} // namespace

LineEnds scanLineEnds(const QString &text)
{
    return scanBreaks(reinterpret_cast<const char16_t *>(text.constData()), text.size());
}

namespace {

// Calls `onBreak(at, kind, after)` for every line break of 8-bit text in order: the
// break's position, its kind and the position after it. The breaks are found with
// memchr, which reads a large text many bytes at a time.
template <typename OnBreak> void forEachBreak(QByteArrayView text, OnBreak onBreak)
{
    const char *const begin = text.data();
    const char *const end = begin + text.size();
    auto next = [end](const char *from, char c) {
        const void *found = from < end ? std::memchr(from, c, std::size_t(end - from)) : nullptr;
        return found ? static_cast<const char *>(found) : end;
    };
    const char *lf = next(begin, '\n');
    const char *cr = next(begin, '\r');
    for (;;) {
        const char *at = std::min(lf, cr);
        if (at == end)
            return;
        LineEnd kind = LineEnd::LF;
        const char *after = at + 1;
        if (at == cr) {
            kind = after < end && *after == '\n' ? LineEnd::CRLF : LineEnd::CR;
            if (kind == LineEnd::CRLF)
                ++after;
        }
        onBreak(at - begin, kind, after - begin);
        if (lf < after)
            lf = next(after, '\n');
        if (cr < after)
            cr = next(after, '\r');
    }
}

} // namespace

LineEnds scanLineEnds(QByteArrayView text)
{
    BreakTally tally;
    forEachBreak(text, [&](qsizetype, LineEnd kind, qsizetype) { tally.add(kind); });
    return tally.finish();
}

LineEnds lineEndsWithUsual(const QString &text, LineEnd usual)
{
    LineEnds ends = scanLineEnds(text);
    ends.usual = usual;
    ends.uniform = std::all_of(ends.breaks.begin(), ends.breaks.end(),
                               [usual](LineEnd end) { return end == usual; });
    return ends;
}

template <typename Text> Text withCrLfBreaks(const Text &text)
{
    using Char = std::remove_cv_t<std::remove_pointer_t<decltype(text.constData())>>;
    const Char *data = text.constData();
    const qsizetype n = text.size();

    // Most files already hold CR LF alone (or no break at all): skip to the first
    // break that needs rewriting, and give the text back untouched if there is none.
    auto isBreak = [](Char c) { return c == Char(u'\r') || c == Char(u'\n'); };
    qsizetype first = 0;
    for (; first < n; ++first) {
        if (!isBreak(data[first]))
            continue;
        if (data[first] == Char(u'\r') && first + 1 < n && data[first + 1] == Char(u'\n'))
            ++first;
        else
            break;
    }
    if (first == n)
        return text;

    static const Char crlf[2] = {Char(u'\r'), Char(u'\n')};
    Text result;
    result.reserve(n + n / 16 + 2);
    result.append(data, first);
    qsizetype from = first;
    for (qsizetype i = first; i < n; ++i) {
        if (!isBreak(data[i]))
            continue;
        result.append(data + from, i - from);
        result.append(crlf, 2);
        if (data[i] == Char(u'\r') && i + 1 < n && data[i + 1] == Char(u'\n'))
            ++i;
        from = i + 1;
    }
    result.append(data + from, n - from);
    return result;
}

template QString withCrLfBreaks(const QString &);

template <> QByteArray withCrLfBreaks(const QByteArray &text)
{
    QByteArray result = text;
    toCrLfBreaks(result);
    return result;
}

LineEnds toCrLfBreaks(QByteArray &text)
{
    // One pass finds the breaks and writes the text with CR LF breaks, room made for a
    // break every eight bytes (more grows the buffer); a text whose breaks are all
    // CR LF already stays as it is.
    const qsizetype size = text.size();
    QByteArray out(size + size / 8 + 2, Qt::Uninitialized);
    qsizetype written = 0;
    const char *in = text.constData();
    qsizetype from = 0;
    BreakTally tally;
    forEachBreak(text, [&](qsizetype at, LineEnd kind, qsizetype after) {
        tally.add(kind);
        const qsizetype length = at - from;
        if (written + length + 2 + (size - at) > out.size())
            out.resize(std::max(out.size() * 2, written + length + 2 + (size - at)));
        char *o = out.data() + written;
        std::memcpy(o, in + from, std::size_t(length));
        o[length] = '\r';
        o[length + 1] = '\n';
        written += length + 2;
        from = after;
    });
    LineEnds result = tally.finish();
    if (tally.count(LineEnd::CRLF) == qsizetype(result.breaks.size()))
        return result;
    if (written + (size - from) > out.size())
        out.resize(written + (size - from));
    std::memcpy(out.data() + written, in + from, std::size_t(size - from));
    out.truncate(written + (size - from));
    text = std::move(out);
    return result;
}

CrLfTextDecoder::CrLfTextDecoder(qsizetype expectedBytes)
{
    // Room for a CR before one line feed in sixteen bytes, as in C sources with LF ends.
    m_text.reserve(expectedBytes + expectedBytes / 16 + 2);
    // A large text is written from end to end right away: back it in one go.
    if (expectedBytes >= 256 * 1024)
        prefaultForWriting(m_text.data(), m_text.capacity() * qsizetype(sizeof(QChar)));
}

void CrLfTextDecoder::add(QByteArrayView piece)
{
    const char *data = piece.data();
    const qsizetype n = piece.size();
    qsizetype from = 0;
    // The LF of a CR LF whose CR ended the last piece is written already.
    if (m_afterCr && n > 0 && data[0] == '\n')
        from = 1;
    if (n > 0)
        m_afterCr = false;
    for (qsizetype i = from; i < n; ++i) {
        const char c = data[i];
        if (c != '\r' && c != '\n')
            continue;
        m_text.append(QLatin1StringView(data + from, i - from));
        m_text.append(QLatin1StringView("\r\n", 2));
        if (c == '\r') {
            if (i + 1 == n)
                m_afterCr = true;
            else if (data[i + 1] == '\n')
                ++i;
        }
        from = i + 1;
    }
    m_text.append(QLatin1StringView(data + from, n - from));
}

} // namespace tessaro
