#pragma once

#include "search/core/FindController.h"

#include <QPointer>

namespace tessaro {
class srcText;
}

namespace tessaro::search {

// A document window's editor control ("code") as the find commands use it: its
// selection start, the length of its text and its Find(text, start, end).
class DocumentFindTarget : public FindTarget
{
public:
    explicit DocumentFindTarget(srcText &code) : m_code(&code) {}
    qint32 selStart() const override;
    qint32 textLength() const override;
    void find(const QString &text, qint32 start, qint32 end) override;

private:
    QPointer<srcText> m_code;
};

} // namespace tessaro::search
