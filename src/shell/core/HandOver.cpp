#include "shell/core/HandOver.h"

#include <QFile>
#include <QtEndian>

namespace tessaro::handover {

QString commandLineText(const QStringList &arguments)
{
    QStringList quoted;
    for (const QString &argument : arguments)
        quoted << QLatin1Char('"') + argument + QLatin1Char('"');
    return quoted.join(QLatin1Char(' '));
}

QByteArray commandLineBytes(const QString &commandLine)
{
    if (commandLine.isEmpty())
        return QByteArray(1, '\0');
    return QFile::encodeName(commandLine);
}

QString commandLineFromBytes(const QByteArray &bytes)
{
    return QFile::decodeName(bytes);
}

bool shouldHandOver(const QString &commandLine, bool ownerVisible)
{
    return !commandLine.isEmpty() || !ownerVisible;
}

QByteArray dataMessage(const QByteArray &bytes)
{
    QByteArray message(5, '\0');
    message[0] = kData;
    qToBigEndian(qint32(bytes.size()), message.data() + 1);
    return message + bytes;
}

QByteArray activateMessage()
{
    return QByteArray(1, kActivate);
}

QByteArray tokenMessage(const QByteArray &token)
{
    if (token.isEmpty() || token.size() > kMaxTokenBytes)
        return QByteArray();
    QByteArray message(1, kToken);
    char length[4];
    qToBigEndian<qint32>(qint32(token.size()), length);
    message.append(length, 4);
    return message + token;
}

std::optional<QString> commandLinePath(const QString &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == QLatin1Char(' '))
        ++start;
    while (end > start && text[end - 1] == QLatin1Char(' '))
        --end;
    const qsizetype length = end - start;
    if (length <= 2)
        return std::nullopt;
    return text.mid(start + 1, length - 2);
}

RequestReader::State RequestReader::feed(const QByteArray &bytes)
{
    if (m_state != State::Incomplete)
        return m_state;
    m_buffer += bytes;
    if (m_buffer.isEmpty())
        return m_state;
    if (m_buffer[0] == kToken && m_token.isNull()) {
        if (m_buffer.size() < 5)
            return m_state;
        const qint32 length = qFromBigEndian<qint32>(m_buffer.constData() + 1);
        if (length <= 0 || length > kMaxTokenBytes)
            return m_state = State::Invalid;
        if (m_buffer.size() < 5 + length)
            return m_state;
        m_token = m_buffer.mid(5, length);
        m_buffer.remove(0, 5 + length);
        if (m_buffer.isEmpty())
            return m_state;
    }
    if (m_buffer[0] == kActivate)
        return m_state = m_buffer.size() == 1 ? State::Activate : State::Invalid;
    if (m_buffer[0] != kData)
        return m_state = State::Invalid;
    if (m_buffer.size() < 5)
        return m_state;
    const qint32 length = qFromBigEndian<qint32>(m_buffer.constData() + 1);
    if (length < 0 || length > kMaxBytes)
        return m_state = State::Invalid;
    if (m_buffer.size() < 5 + length)
        return m_state;
    if (m_buffer.size() > 5 + length)
        return m_state = State::Invalid;
    m_payload = m_buffer.mid(5);
    return m_state = State::HandOver;
}

} // namespace tessaro::handover
