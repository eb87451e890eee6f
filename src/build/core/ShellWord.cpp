#include "build/core/ShellWord.h"

namespace tessaro::build {

namespace {

bool isPlainCharacter(QChar ch)
{
    const char16_t c = ch.unicode();
    if ((c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9'))
        return true;
    switch (c) {
    case u'_':
    case u'.':
    case u'/':
    case u'+':
    case u',':
    case u':':
    case u'=':
    case u'@':
    case u'%':
    case u'-': return true;
    default: return false;
    }
}

} // namespace

QString shellWord(const QString &path)
{
    bool plain = true;
    for (const QChar ch : path)
        plain = plain && isPlainCharacter(ch);
    if (plain)
        return path;
    QString word = QStringLiteral("'");
    for (const QChar ch : path) {
        if (ch == QLatin1Char('\''))
            word += QStringLiteral("'\\''");
        else
            word += ch;
    }
    word += QLatin1Char('\'');
    return word;
}

QString trimBlanks(const QString &text)
{
    int start = 0;
    int end = int(text.size());
    while (start < end && text.at(start) == QLatin1Char(' '))
        ++start;
    while (end > start && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}

} // namespace tessaro::build
