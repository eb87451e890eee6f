#pragma once

#include <QString>
#include <QVector>

namespace tessaro {

// The word lists of the section definition file ("tessaro.stx") that drive the
// section-file line colourer: keywords, operators, scope words, function names,
// comment markers, the multi-line comment delimiters, the string delimiter and the
// block suffix, and the five lists joined for membership tests.
//
// Lists are 1-based with 16-bit counts that only clear() resets: a second load
// without a clear grows each list from its old count, so the earlier entries come
// back as empty strings. Every text is lower case, because each line is lower-cased
// as it is read.
class SectionDefinitions
{
public:
    struct CommentMarker
    {
        QString marker;
        bool singleLine = true;
    };

    // Reads the file (see the section rules in load's body). Returns true when the
    // end of the file was reached; a missing or unreadable file, or a count going
    // past 32767, ends the load with false, keeping what was read until then.
    bool load(const QString &path);
    // Back to nothing: lists, counts, joined lists, delimiters and suffix.
    void clear();
    // Joins keywords, functions, comment markers, operators and scope words, each
    // entry framed by the list separator (always empty, so each joined list is the
    // plain concatenation). Returns false when an entry counted is missing from its
    // list (the state a failed load leaves behind), keeping what was joined so far.
    bool buildJoinedLists();

    // Membership: separator + text + separator occurs in the joined list. With the
    // empty separator this is a substring test.
    bool isKeyword(const QString &text) const { return contains(m_joinedKeywords, text); }
    bool isFunction(const QString &text) const { return contains(m_joinedFunctions, text); }
    bool isCommentMarker(const QString &text) const { return contains(m_joinedComments, text); }
    bool isOperator(const QString &text) const { return contains(m_joinedOperators, text); }
    bool isScope(const QString &text) const { return contains(m_joinedScope, text); }

    // The lists in use (entries 1 .. count) and their counts.
    const QVector<QString> &keywords() const { return m_keywords; }
    const QVector<QString> &operators() const { return m_operators; }
    const QVector<QString> &scopeWords() const { return m_scope; }
    const QVector<QString> &functions() const { return m_functions; }
    const QVector<CommentMarker> &commentMarkers() const { return m_comments; }
    qint16 keywordCount() const { return m_keywordCount; }
    qint16 operatorCount() const { return m_operatorCount; }
    qint16 scopeCount() const { return m_scopeCount; }
    qint16 functionCount() const { return m_functionCount; }
    qint16 commentCount() const { return m_commentCount; }

    const QString &multiLineStart() const { return m_multiLineStart; }
    const QString &multiLineEnd() const { return m_multiLineEnd; }
    const QString &stringDelimiter() const { return m_stringDelimiter; }
    const QString &blockSuffix() const { return m_blockSuffix; }
    const QString &separator() const { return m_separator; }

    const QString &joinedKeywords() const { return m_joinedKeywords; }
    const QString &joinedFunctions() const { return m_joinedFunctions; }
    const QString &joinedComments() const { return m_joinedComments; }
    const QString &joinedOperators() const { return m_joinedOperators; }
    const QString &joinedScope() const { return m_joinedScope; }

private:
    bool contains(const QString &joined, const QString &text) const;
    void handleLine(const QString &section, const QString &line);

    QVector<QString> m_keywords, m_operators, m_scope, m_functions;
    QVector<CommentMarker> m_comments;
    qint16 m_keywordCount = 0, m_operatorCount = 0, m_scopeCount = 0, m_functionCount = 0,
           m_commentCount = 0;
    QString m_multiLineStart, m_multiLineEnd, m_stringDelimiter, m_blockSuffix;
    QString m_joinedKeywords, m_joinedFunctions, m_joinedComments, m_joinedOperators, m_joinedScope;
    QString m_separator; // never assigned
};

// Where the colourer looks for its section file: the program's folder immediately
// followed by "tessaro.stx", with no separator between them, kept so
// on purpose (so only a program in the root folder finds the file beside it).
QString sectionFilePath(const QString &programFolder);

} // namespace tessaro
