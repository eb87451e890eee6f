#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace tessaro {

// The conversation between a later copy and the running one over the local socket:
//   1. the running copy greets every connection with one byte: 'V' when its main
//      window is visible, 'H' when it is not;
//   2. the later copy sends either 'D', the length of the command line bytes as four
//      bytes (big-endian) and the bytes (a hand-over), or 'A' (activate only); either
//      may be preceded by 'T', a length as four bytes and the later copy's activation
//      token (XDG_ACTIVATION_TOKEN), with which a Wayland compositor lets the running
//      copy's window come to the front;
//   3. the running copy answers '.' once it has opened the file or activated its
//      window, so the later copy waits (up to 5000 ms) for the file to be open.
namespace handover {

constexpr char kVisible = 'V';
constexpr char kHidden = 'H';
constexpr char kData = 'D';
constexpr char kActivate = 'A';
constexpr char kToken = 'T';
constexpr char kDone = '.';
constexpr int kTimeoutMs = 5000;
// A hand-over longer than this is refused (a command line is never this long).
constexpr qint32 kMaxBytes = 1 << 20;
// An activation token longer than this is refused.
constexpr qint32 kMaxTokenBytes = 4096;

// The process command line as a file association passes it: every argument wrapped in
// double quotes, joined by single blanks; no arguments give the empty text.
QString commandLineText(const QStringList &arguments);

// The bytes handed over: the command line in the file system's encoding, or exactly
// one zero byte when it is empty.
QByteArray commandLineBytes(const QString &commandLine);
QString commandLineFromBytes(const QByteArray &bytes);

// A later copy hands its command line over when it has one, or when the running
// copy's window is not visible; otherwise it only asks for activation.
bool shouldHandOver(const QString &commandLine, bool ownerVisible);

QByteArray dataMessage(const QByteArray &bytes);
QByteArray activateMessage();
// The activation token's message; empty for no token.
QByteArray tokenMessage(const QByteArray &token);

// The path that OpenCommandLine opens: the text trimmed of blanks, less its first and
// last character (the quotes a file association puts around the path; a path without
// them loses two real characters). Nothing is opened for text that is empty after
// trimming or leaves no character between the first and the last.
std::optional<QString> commandLinePath(const QString &text);

// Reads the later copy's request from the bytes the running copy receives.
class RequestReader
{
public:
    enum class State { Incomplete, HandOver, Activate, Invalid };
    State feed(const QByteArray &bytes);
    State state() const { return m_state; }
    // The handed-over bytes once the state is HandOver.
    const QByteArray &payload() const { return m_payload; }
    // The later copy's activation token (empty when it sent none).
    const QByteArray &token() const { return m_token; }

private:
    QByteArray m_buffer;
    QByteArray m_payload;
    QByteArray m_token;
    State m_state = State::Incomplete;
};

} // namespace handover
} // namespace tessaro
