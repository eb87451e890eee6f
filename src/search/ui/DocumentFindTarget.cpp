#include "search/ui/DocumentFindTarget.h"

#include "editor/ui/srcText.h"

namespace tessaro::search {

qint32 DocumentFindTarget::selStart() const
{
    return m_code ? qint32(m_code->SelStart()) : 0;
}

// Len(Text): the text's length with every line break counted as CR LF, which the
// control knows without building the text.
qint32 DocumentFindTarget::textLength() const
{
    return m_code ? qint32(m_code->CharacterCount()) : 0;
}

void DocumentFindTarget::find(const QString &text, qint32 start, qint32 end)
{
    if (m_code)
        m_code->Find(text, start, end);
}

} // namespace tessaro::search
