#pragma once

#include "changes/change_plan.h"

#include <QWidget>

class QLabel;

namespace quillon {

class EditHistory;
class Editor;

/// A line over the editor's pages of a title that has no company, author, contact and support yet: it offers
/// those of the title that was stored last. Otherwise, and when the author does not want it, it takes no
/// room.
class TakingOverBar : public QWidget
{
    Q_OBJECT
public:
    /// Both must outlive it.
    TakingOverBar(Editor &editor, EditHistory &edits, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void offer();
    void hideWhenFilled();
    void takeOver();

    Editor &m_editor;
    EditHistory &m_edits;
    std::optional<TitleState> m_from;
    QLabel *m_text;
};

} // namespace quillon
