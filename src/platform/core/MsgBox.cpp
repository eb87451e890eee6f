#include "platform/core/MsgBox.h"

#include "platform/core/AppInfo.h"

#include <cstdio>

namespace tessaro {

QList<int> mb::buttonsOf(int style)
{
    switch (style & 0x0F) {
    case OKCancel: return {OK, Cancel};
    case AbortRetryIgnore: return {Abort, Retry, Ignore};
    case YesNoCancel: return {Yes, No, Cancel};
    case YesNo: return {Yes, No};
    case RetryCancel: return {Retry, Cancel};
    default: return {OK};
    }
}

int mb::escapeAnswer(int style)
{
    switch (style & 0x0F) {
    case OKCancel:
    case YesNoCancel:
    case RetryCancel: return Cancel;
    case YesNo:
    case AbortRetryIgnore: return 0;
    default: return OK;
    }
}

int defaultAnswer(int style)
{
    switch (style & 0x0F) {
    case mb::YesNoCancel:
    case mb::YesNo:
        return mb::Yes;
    case mb::AbortRetryIgnore: return mb::Abort;
    case mb::RetryCancel: return mb::Retry;
    default:
        return mb::OK;
    }
}

namespace {

// Used until a window system is up (and by the command-line tool): the message goes
// to the error stream and the default button is taken.
class StreamMessageBox : public MessageBoxService
{
public:
    int show(const QString &prompt, int style, const QString &title) override
    {
        std::fprintf(stderr, "%s: %s\n", title.toLocal8Bit().constData(),
                     prompt.toLocal8Bit().constData());
        std::fflush(stderr);
        return defaultAnswer(style);
    }
};

StreamMessageBox g_streamBox;
MessageBoxService *g_service = &g_streamBox;

} // namespace

MessageBoxService &messageBoxService() { return *g_service; }

MessageBoxService *setMessageBoxService(MessageBoxService *service)
{
    MessageBoxService *previous = g_service;
    g_service = service ? service : &g_streamBox;
    return previous;
}

int MsgBox(const QString &prompt, int style, const QString &title)
{
    return g_service->show(prompt, style, title.isEmpty() ? appTitle() : title);
}

} // namespace tessaro
