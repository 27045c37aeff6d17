#pragma once

#include "controls/controls.h"
#include "pad/field_catalogue.h"
#include "widgets/focus_frame.h"

#include <QPlainTextEdit>

namespace quillon {

class Editor;

/// A native multi-line text that shows a text control of the editor and hands it what is typed. The Tab key
/// leaves it.
class FieldTextEdit : public WithFocusFrame<QPlainTextEdit>
{
    Q_OBJECT
public:
    /// As high as @p lines lines, at least; more where there is room.
    FieldTextEdit(Editor &editor, FieldId field, int lines, QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void chooseWrapMode(const QString &text);
    void showControl();
    void showColours();

    Editor &m_editor;
    FieldId m_field;
    TextControl &m_control;
    int m_lines;
    bool m_showing = false;
};

} // namespace quillon
