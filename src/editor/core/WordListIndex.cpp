#include "editor/core/CaseFold.h"
#include "editor/core/ColourScan.h"

#include <QVarLengthArray>

#include <cstring>
#include <vector>

namespace tessaro {

// The list text is cut at every asterisk into segments s0 * s1 * ... * sn. The text
// "*" + word + "*" occurs in it exactly when some run of enclosed segments
// (those with an asterisk on both sides, s1 .. s(n-1)) spells the word, its own
// asterisks standing between them. The index keeps the case-folded text and a hash
// table from each folded segment to its first occurrence; later occurrences of the
// same segment are chained, so a word holding asterisks can try each candidate in
// list order and the first match is the one a search of the text would find.
struct WordListIndex::Data
{
    QString text;
    std::vector<char16_t> folded;  // the folded text, unit for unit
    std::vector<qsizetype> start;  // start of enclosed segment k (k = 0 is s1)
    std::vector<qsizetype> length; // its length
    std::vector<int> nextSame;     // next enclosed segment with the same folded text
    std::vector<QString> spelling; // each segment's own text, shared with every hit
    std::vector<int> table;        // open addressing: segment number or -1
    std::vector<quint32> hashes;   // folded hash of each segment
    quint32 mask = 0;

    static quint32 hashOf(const char16_t *s, qsizetype n)
    {
        quint32 h = 2166136261u;
        for (qsizetype i = 0; i < n; ++i)
            h = (h ^ s[i]) * 16777619u;
        return h;
    }

    bool sameSegment(int k, const char16_t *foldedWord, qsizetype n) const
    {
        return length[k] == n &&
               std::memcmp(folded.data() + start[k], foldedWord, size_t(n) * sizeof(char16_t)) == 0;
    }

    // The first enclosed segment whose folded text equals the folded word, or -1.
    int firstSegment(const char16_t *foldedWord, qsizetype n, quint32 h) const
    {
        if (table.empty())
            return -1;
        for (quint32 slot = h & mask;; slot = (slot + 1) & mask) {
            const int k = table[slot];
            if (k < 0)
                return -1;
            if (hashes[k] == h && sameSegment(k, foldedWord, n))
                return k;
        }
    }

    void build(const QString &listText)
    {
        text = listText;
        const qsizetype n = text.size();
        folded.resize(size_t(n));
        casefold::fold(reinterpret_cast<const char16_t *>(text.utf16()), n, folded.data());

        std::vector<qsizetype> stars;
        for (qsizetype i = 0; i < n; ++i)
            if (folded[size_t(i)] == u'*')
                stars.push_back(i);
        const size_t segments = stars.size() > 1 ? stars.size() - 1 : 0;
        start.resize(segments);
        length.resize(segments);
        hashes.resize(segments);
        nextSame.assign(segments, -1);
        spelling.resize(segments);
        quint32 capacity = 16;
        while (capacity < segments * 2)
            capacity *= 2;
        table.assign(capacity, -1);
        mask = capacity - 1;

        std::vector<int> lastOfChain(segments, -1); // by first occurrence
        for (size_t k = 0; k < segments; ++k) {
            start[k] = stars[k] + 1;
            length[k] = stars[k + 1] - start[k];
            spelling[k] = text.mid(start[k], length[k]);
            const char16_t *s = folded.data() + start[k];
            const quint32 h = hashOf(s, length[k]);
            hashes[k] = h;
            for (quint32 slot = h & mask;; slot = (slot + 1) & mask) {
                const int other = table[slot];
                if (other < 0) {
                    table[slot] = int(k);
                    lastOfChain[k] = int(k);
                    break;
                }
                if (hashes[size_t(other)] == h && sameSegment(other, s, length[k])) {
                    nextSame[size_t(lastOfChain[size_t(other)])] = int(k);
                    lastOfChain[size_t(other)] = int(k);
                    break;
                }
            }
        }
    }

    // Looks the word up; returns the position of the spelling in the text, or -1.
    // When the spelling is a whole segment it is handed out as the shared string.
    qsizetype lookUp(QStringView word, QString *spellingOut) const
    {
        const qsizetype n = word.size();
        QVarLengthArray<char16_t, 64> buffer(n);
        casefold::fold(reinterpret_cast<const char16_t *>(word.utf16()), n, buffer.data());
        const char16_t *w = buffer.data();

        const char16_t *star = std::char_traits<char16_t>::find(w, size_t(n), u'*');
        if (!star) {
            const int k = firstSegment(w, n, hashOf(w, n));
            if (k < 0)
                return -1;
            if (spellingOut)
                *spellingOut = spelling[size_t(k)];
            return start[size_t(k)];
        }

        // A word with asterisks: its parts must be consecutive enclosed segments.
        std::vector<std::pair<qsizetype, qsizetype>> parts; // offset, length in w
        qsizetype from = 0;
        for (qsizetype i = 0; i <= n; ++i) {
            if (i == n || w[i] == u'*') {
                parts.emplace_back(from, i - from);
                from = i + 1;
            }
        }
        const qsizetype first = parts.front().second;
        for (int k = firstSegment(w, first, hashOf(w, first)); k >= 0; k = nextSame[size_t(k)]) {
            if (size_t(k) + parts.size() > start.size())
                break;
            bool all = true;
            for (size_t p = 1; p < parts.size() && all; ++p)
                all = sameSegment(int(size_t(k) + p), w + parts[p].first, parts[p].second);
            if (all) {
                if (spellingOut)
                    *spellingOut = text.mid(start[size_t(k)], n);
                return start[size_t(k)];
            }
        }
        return -1;
    }
};

WordListIndex::WordListIndex()
{
    static const std::shared_ptr<const Data> empty = std::make_shared<Data>();
    d = empty;
}

WordListIndex::WordListIndex(const QString &listText)
{
    auto data = std::make_shared<Data>();
    data->build(listText);
    d = std::move(data);
}

WordListIndex::~WordListIndex() = default;
WordListIndex::WordListIndex(const WordListIndex &) = default;
WordListIndex &WordListIndex::operator=(const WordListIndex &) = default;

const QString &WordListIndex::text() const
{
    return d->text;
}

bool WordListIndex::isEmpty() const
{
    return d->text.isEmpty();
}

bool WordListIndex::find(const QString &word, QString *spelling) const
{
    return find(QStringView(word), spelling);
}

bool WordListIndex::find(QStringView word, QString *spelling) const
{
    return d->lookUp(word, spelling) >= 0;
}

qsizetype WordListIndex::spellingPosition(QStringView word) const
{
    return d->lookUp(word, nullptr);
}

} // namespace tessaro
