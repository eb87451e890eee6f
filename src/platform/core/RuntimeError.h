#pragma once

#include <QString>
#include <exception>

namespace tessaro {

// A numbered run-time error: a number, a description and the source that
// raised it. Commands either trap it (end silently, keeping what was done) or let it
// reach the application-level handler, which reports it and ends the program.
class RuntimeError : public std::exception
{
public:
    enum Number : qint64 {
        InvalidProcedureCall = 5,
        Overflow = 6,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        BadFileNameOrNumber = 52,
        FileNotFound = 53,
        InputPastEndOfFile = 62,
        PathFileAccessError = 75,
        PathNotFound = 76,
        CancelSelected = 32755,
    };

    // An error with the run-time's own description of the number.
    explicit RuntimeError(qint64 number, QString source = QStringLiteral("Tessaro"));
    RuntimeError(qint64 number, QString description, QString source);

    qint64 number() const { return m_number; }
    const QString &description() const { return m_description; }
    const QString &source() const { return m_source; }
    const char *what() const noexcept override { return m_what.constData(); }

    // The text the run-time gives each standard number ("" for unknown numbers).
    static QString standardDescription(qint64 number);

private:
    qint64 m_number;
    QString m_description;
    QString m_source;
    QByteArray m_what;
};

[[noreturn]] inline void raise(qint64 number) { throw RuntimeError(number); }

} // namespace tessaro
