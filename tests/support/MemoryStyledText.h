#pragma once

#include "editor/core/StyledText.h"

#include <QByteArray>

#include <vector>

namespace tessaro::test {

// A StyledText held in memory, for tests of the colourer without a text box: the
// bytes, a style byte each and a state word per line. It has no undo history.
class MemoryStyledText : public StyledText
{
public:
    explicit MemoryStyledText(const QByteArray &text = {}) { setText(text); }

    void setText(const QByteArray &text)
    {
        m_text = text;
        m_styles = QByteArray(text.size(), '\0');
        m_starts = {0};
        for (qsizetype i = 0; i < text.size(); ++i)
            if (text[i] == '\n')
                m_starts.push_back(i + 1);
        m_states.assign(m_starts.size(), 0);
    }
    // Inserts bytes without line breaks (the line states stay).
    void insert(qsizetype at, const QByteArray &bytes)
    {
        m_text.insert(at, bytes);
        m_styles.insert(at, QByteArray(bytes.size(), '\0'));
        for (qsizetype &start : m_starts)
            if (start > at)
                start += bytes.size();
    }
    const QByteArray &styles() const { return m_styles; }

    qsizetype length() const override { return m_text.size(); }
    QByteArrayView bytes() const override { return m_text; }
    QByteArrayView bytes(qsizetype from, qsizetype length) const override
    {
        return QByteArrayView(m_text).sliced(from, length);
    }
    int lineCount() const override { return int(m_starts.size()); }
    int lineOf(qsizetype position) const override
    {
        return int(std::upper_bound(m_starts.begin(), m_starts.end(), position) -
                   m_starts.begin()) -
               1;
    }
    qsizetype lineStart(int line) const override { return m_starts[std::size_t(line)]; }
    qsizetype lineEnd(int line) const override
    {
        if (line + 1 >= lineCount())
            return m_text.size();
        const qsizetype next = m_starts[std::size_t(line + 1)];
        return next >= 2 && m_text[next - 2] == '\r' ? next - 2 : next - 1;
    }
    int lineState(int line) const override { return m_states[std::size_t(line)]; }
    void setLineState(int line, int state) override { m_states[std::size_t(line)] = state; }
    void setStyles(qsizetype from, QByteArrayView styles) override
    {
        std::copy(styles.begin(), styles.end(), m_styles.begin() + from);
    }
    int styleAt(qsizetype position) const override { return quint8(m_styles[position]); }
    void replace(qsizetype from, QByteArrayView bytes) override
    {
        std::copy(bytes.begin(), bytes.end(), m_text.begin() + from);
    }
    bool canUndo() const override { return false; }
    bool canRedo() const override { return false; }
    void beginUndoStep() override {}
    void endUndoStep() override {}
    void markRespellingStep() override {}
    void setUndoCollection(bool) override {}
    bool undo() override { return false; }
    bool redo() override { return false; }

private:
    QByteArray m_text;
    QByteArray m_styles;
    std::vector<qsizetype> m_starts;
    std::vector<int> m_states;
};

} // namespace tessaro::test
