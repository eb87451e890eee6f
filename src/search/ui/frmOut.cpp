#include "search/ui/frmOut.h"
#include "platform/ui/FixedPitchFont.h"

#include "platform/core/ErrorTraps.h"
#include "state/core/AppState.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace tessaro::search {

frmOut::frmOut(const FindInFilesQuery &query, QWidget *parent)
    : QWidget(parent), m_query(query), m_timer(new QTimer(this)), m_code(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("frmOut"));
    setWindowTitle(QStringLiteral("Output"));

    m_timer->setObjectName(QStringLiteral("Timer1"));
    m_timer->setInterval(100);
    connect(m_timer, &QTimer::timeout, this, [this] { untrapped([this] { Timer1_Timer(); }); });

    m_code->setObjectName(QStringLiteral("code"));
    m_code->setReadOnly(true);
    m_code->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_code->setFont(fixedPitchFont());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_code);
    resize(480, 240);

    // Form_Load: the next tick searches.
    m_search.load();
    m_timer->start();
}

void frmOut::Timer1_Timer()
{
    m_search.tick(m_query, app().workspace, *this);
}

QString frmOut::caption() const
{
    return windowTitle();
}

void frmOut::setCaption(const QString &caption)
{
    setWindowTitle(caption);
}

void frmOut::append(const QString &text)
{
    if (text.isEmpty())
        return;
    m_text += text;
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QTextCursor end(m_code->document());
    end.movePosition(QTextCursor::End);
    end.insertText(shown);
}

} // namespace tessaro::search
