#include "editor/core/CaselessPattern.h"

#include <array>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tessaro {

namespace {

struct CaseTables
{
    std::array<unsigned char, 256> lower{};
    std::array<unsigned char, 256> upper{};

    CaseTables()
    {
        for (int c = 0; c < 256; ++c) {
            lower[c] = static_cast<unsigned char>(c);
            upper[c] = static_cast<unsigned char>(c);
        }
        for (int c = 0; c < 256; ++c) {
            const bool asciiCapital = c >= 'A' && c <= 'Z';
            const bool latin1Capital = c >= 0xC0 && c <= 0xDE && c != 0xD7;
            if (asciiCapital || latin1Capital) {
                lower[c] = static_cast<unsigned char>(c + 0x20);
                upper[c + 0x20] = static_cast<unsigned char>(c);
            }
        }
    }
};

const CaseTables &tables()
{
    static const CaseTables instance;
    return instance;
}

// Folds a character of either width; characters above 0xFF stay as they are, so
// they never equal a folded pattern character.
inline unsigned fold(const std::array<unsigned char, 256> &lower, unsigned c)
{
    return c < 256 ? lower[c] : c;
}

// Whether the pattern's inner characters (all but the first and the last, which the
// caller has tested) match at s.
template <typename Char>
inline bool innerMatches(const std::array<unsigned char, 256> &lower, const Char *s,
                         const unsigned char *p, qsizetype m)
{
    for (qsizetype k = 1; k + 1 < m; ++k)
        if (fold(lower, s[k]) != p[k])
            return false;
    return true;
}

#if defined(__SSE2__)
inline __m128i equalsEither(__m128i block, __m128i a, __m128i b, unsigned char)
{
    return _mm_or_si128(_mm_cmpeq_epi8(block, a), _mm_cmpeq_epi8(block, b));
}
inline __m128i equalsEither(__m128i block, __m128i a, __m128i b, char16_t)
{
    return _mm_or_si128(_mm_cmpeq_epi16(block, a), _mm_cmpeq_epi16(block, b));
}
inline __m128i splat(unsigned char c, unsigned char)
{
    return _mm_set1_epi8(char(c));
}
inline __m128i splat(unsigned char c, char16_t)
{
    return _mm_set1_epi16(short(c));
}
#endif

// The first match of the folded pattern p (length m >= 1) in s[0, size), or -1.
template <typename Char>
qsizetype scan(const Char *s, qsizetype size, const unsigned char *p, qsizetype m)
{
    if (size < m)
        return -1;
    const CaseTables &t = tables();
    const unsigned char first = p[0];
    const unsigned char last = p[m - 1];
    const qsizetype lastStart = size - m;
    qsizetype i = 0;
#if defined(__SSE2__)
    // Sixteen bytes a block: 16 positions for 8-bit text, 8 for UTF-16.
    constexpr qsizetype lanes = 16 / qsizetype(sizeof(Char));
    const __m128i first0 = splat(first, Char());
    const __m128i first1 = splat(t.upper[first], Char());
    const __m128i last0 = splat(last, Char());
    const __m128i last1 = splat(t.upper[last], Char());
    for (; i + lanes - 1 <= lastStart; i += lanes) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + i));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i *>(s + i + m - 1));
        const __m128i both = _mm_and_si128(equalsEither(a, first0, first1, Char()),
                                           equalsEither(b, last0, last1, Char()));
        unsigned mask = unsigned(_mm_movemask_epi8(both));
        if (sizeof(Char) == 2)
            mask &= 0x5555u; // one bit a lane
        while (mask != 0) {
            const qsizetype at = i + qsizetype(__builtin_ctz(mask)) / qsizetype(sizeof(Char));
            if (innerMatches(t.lower, s + at, p, m))
                return at;
            mask &= mask - 1;
        }
    }
#endif
    for (; i <= lastStart; ++i) {
        if (fold(t.lower, s[i]) == first && fold(t.lower, s[i + m - 1]) == last &&
            innerMatches(t.lower, s + i, p, m))
            return i;
    }
    return -1;
}

} // namespace

unsigned char foldLatin1(unsigned char c)
{
    return tables().lower[c];
}

CaselessPattern::CaselessPattern(const QString &text)
{
    m_folded.reserve(text.size());
    for (QChar ch : text) {
        if (ch.unicode() > 0xFF) {
            m_matchable = false;
            m_folded.clear();
            return;
        }
        m_folded.append(char(foldLatin1(static_cast<unsigned char>(ch.unicode()))));
    }
}

qsizetype CaselessPattern::indexIn(const char *data, qsizetype size) const
{
    if (!m_matchable)
        return -1;
    if (m_folded.isEmpty())
        return 0;
    return scan(reinterpret_cast<const unsigned char *>(data), size,
                reinterpret_cast<const unsigned char *>(m_folded.constData()), m_folded.size());
}

qsizetype CaselessPattern::indexIn(QStringView text, qsizetype from, qsizetype to) const
{
    from = qMax<qsizetype>(from, 0);
    to = qMin(to, text.size());
    if (!m_matchable || from > to)
        return -1;
    if (m_folded.isEmpty())
        return from;
    const qsizetype found =
        scan(text.utf16() + from, to - from,
             reinterpret_cast<const unsigned char *>(m_folded.constData()), m_folded.size());
    return found < 0 ? -1 : from + found;
}

} // namespace tessaro
