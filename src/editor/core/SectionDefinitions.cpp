#include "editor/core/SectionDefinitions.h"

#include "editor/core/BasicText.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/FixedList.h"
#include "platform/core/TextFile.h"

namespace tessaro {

namespace {

// The file's lines: CR LF, CR and LF all end a line; a last line without a line end
// still counts.
QStringList linesOf(const QString &text)
{
    QStringList lines;
    qsizetype from = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (c != u'\r' && c != u'\n')
            continue;
        lines << text.mid(from, i - from);
        if (c == u'\r' && i + 1 < n && text.at(i + 1) == u'\n')
            ++i;
        from = i + 1;
    }
    if (from < n)
        lines << text.mid(from);
    return lines;
}

// Raises the count (error 6 past 32767) and stores the entry as the new last one,
// the list first grown to the count with empty entries.
template <typename T> void appendCounted(QVector<T> &list, qint16 &count, const T &entry)
{
    incrementCount(count);
    list.resize(count);
    list[count - 1] = entry;
}

} // namespace

bool SectionDefinitions::load(const QString &path)
{
    // Erased here: the keyword, function, comment-marker and operator lists and their
    // joined texts, but not the counts, and not the scope list.
    m_keywords.clear();
    m_functions.clear();
    m_comments.clear();
    m_operators.clear();
    m_joinedKeywords.clear();
    m_joinedComments.clear();
    m_joinedFunctions.clear();
    m_joinedOperators.clear();

    return trapped([&] {
        QString section;
        for (QString line : linesOf(textfile::read(path))) {
            line = line.toLower();
            if (line.startsWith(u'[') && line.endsWith(u']'))
                section = line;
            if (line.isEmpty() || line.startsWith(u';') || line == section)
                continue;
            handleLine(section, line);
        }
    });
}

void SectionDefinitions::handleLine(const QString &section, const QString &line)
{
    const QString trimmed = basictext::trim(line);
    if (section == u"[keywords]") {
        appendCounted(m_keywords, m_keywordCount, trimmed);
    } else if (section == u"[operators]") {
        appendCounted(m_operators, m_operatorCount, trimmed);
    } else if (section == u"[scope]") {
        appendCounted(m_scope, m_scopeCount, trimmed);
    } else if (section == u"[func subs]") {
        appendCounted(m_functions, m_functionCount, trimmed);
    } else if (section == u"[comments]") {
        // Key and value are not trimmed: "singleline = //" is not recognised.
        const QString key = basictext::splitAtDelimiter(line, QStringLiteral("="), true);
        const QString value = basictext::splitAtDelimiter(line, QStringLiteral("="), false);
        if (key == u"singleline")
            appendCounted(m_comments, m_commentCount, CommentMarker{value, true});
        else if (key == u"multilinestart")
            m_multiLineStart = value;
        else if (key == u"multilineend")
            m_multiLineEnd = value;
        // "multiline" and any other key store nothing.
    } else if (section == u"[string delim]") {
        if (!trimmed.isEmpty())
            m_stringDelimiter = line; // the line itself, blanks and all
    } else if (section == u"[block]") {
        if (!trimmed.isEmpty())
            m_blockSuffix = trimmed;
    }
}

void SectionDefinitions::clear()
{
    m_scope.clear();
    m_operators.clear();
    m_functions.clear();
    m_comments.clear();
    m_keywords.clear();
    m_joinedKeywords.clear();
    m_joinedFunctions.clear();
    m_joinedComments.clear();
    m_joinedOperators.clear();
    m_joinedScope.clear();
    m_separator.clear();
    m_stringDelimiter.clear();
    m_blockSuffix.clear();
    m_multiLineStart.clear();
    m_multiLineEnd.clear();
    m_keywordCount = m_operatorCount = m_scopeCount = m_functionCount = m_commentCount = 0;
}

bool SectionDefinitions::buildJoinedLists()
{
    return trapped([&] {
        auto join = [&](QString &joined, qint16 count, auto entryText) {
            joined = m_separator;
            for (int i = 0; i < count; ++i)
                joined += entryText(i) + m_separator;
        };
        auto from = [](const QVector<QString> &list) {
            return [&list](int i) {
                if (i >= list.size())
                    throw RuntimeError(RuntimeError::SubscriptOutOfRange);
                return list[i];
            };
        };
        join(m_joinedKeywords, m_keywordCount, from(m_keywords));
        join(m_joinedFunctions, m_functionCount, from(m_functions));
        join(m_joinedComments, m_commentCount, [this](int i) {
            if (i >= m_comments.size())
                throw RuntimeError(RuntimeError::SubscriptOutOfRange);
            return m_comments[i].marker;
        });
        join(m_joinedOperators, m_operatorCount, from(m_operators));
        join(m_joinedScope, m_scopeCount, from(m_scope));
    });
}

bool SectionDefinitions::contains(const QString &joined, const QString &text) const
{
    return basictext::inStr(joined, m_separator + text + m_separator) > 0;
}

QString sectionFilePath(const QString &programFolder)
{
    return programFolder + QStringLiteral("tessaro.stx");
}

} // namespace tessaro
