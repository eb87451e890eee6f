#pragma once

#include "search/core/FindController.h"

#include <QPointer>

class QObject;

namespace tessaro::search {

// A document window's editor control ("code") as the find commands use it, reached
// by member name: the SelStart and Text properties and the Find(text, start, end)
// method. A member the control lacks raises 438 "Object doesn't support this
// property or method".
class DocumentFindTarget : public FindTarget
{
public:
    explicit DocumentFindTarget(QObject &code) : m_code(&code) {}
    qint32 selStart() const override;
    qint32 textLength() const override;
    void find(const QString &text, qint32 start, qint32 end) override;

private:
    QVariant property(const char *name) const;

    QPointer<QObject> m_code;
};

} // namespace tessaro::search
