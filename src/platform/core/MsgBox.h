#pragma once

#include <QList>
#include <QString>
#include <memory>

namespace tessaro {

// Message box styles and answers, with their numeric values (the answers callers compare against).
namespace mb {
enum Style : int {
    OKOnly = 0,
    OKCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
};
enum Answer : int { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

// The answer Esc and the window's close button give a box of the style: OK alone OK;
// OK/Cancel, Yes/No/Cancel and Retry/Cancel Cancel; Yes/No and Abort/Retry/Ignore
// none (0): such a box can only be answered with one of its buttons.
int escapeAnswer(int style);
// The buttons of a style, in order.
QList<int> buttonsOf(int style);
} // namespace mb

// The one way the program shows a message box. The real implementation shows a
// modal window; tests install one that records the call and answers from a script.
class MessageBoxService
{
public:
    virtual ~MessageBoxService() = default;
    virtual int show(const QString &prompt, int style, const QString &title) = 0;
};

// Shows a message box through the installed service. The title defaults to the
// application title, "Tessaro".
int MsgBox(const QString &prompt, int style = mb::OKOnly, const QString &title = QString());

MessageBoxService &messageBoxService();
// Installs a service and returns the previous one (the caller keeps ownership).
MessageBoxService *setMessageBoxService(MessageBoxService *service);

// The answer a message box gives when no one can press a button: the default
// (first) button of its style.
int defaultAnswer(int style);

} // namespace tessaro
