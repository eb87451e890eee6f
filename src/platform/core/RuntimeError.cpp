#include "platform/core/RuntimeError.h"

namespace tessaro {

RuntimeError::RuntimeError(qint64 number, QString source)
    : RuntimeError(number, standardDescription(number), std::move(source))
{
}

RuntimeError::RuntimeError(qint64 number, QString description, QString source)
    : m_number(number), m_description(std::move(description)), m_source(std::move(source)),
      m_what(QStringLiteral("Run-time error '%1': %2").arg(number).arg(m_description).toUtf8())
{
}

QString RuntimeError::standardDescription(qint64 number)
{
    switch (number) {
    case InvalidProcedureCall: return QStringLiteral("Invalid procedure call or argument");
    case Overflow: return QStringLiteral("Overflow");
    case SubscriptOutOfRange: return QStringLiteral("Subscript out of range");
    case TypeMismatch: return QStringLiteral("Type mismatch");
    case BadFileNameOrNumber: return QStringLiteral("Bad file name or number");
    case FileNotFound: return QStringLiteral("File not found");
    case InputPastEndOfFile: return QStringLiteral("Input past end of file");
    case PathFileAccessError: return QStringLiteral("Path/File access error");
    case PathNotFound: return QStringLiteral("Path not found");
    case CancelSelected: return QStringLiteral("Cancel was selected.");
    default: return QString();
    }
}

} // namespace tessaro
