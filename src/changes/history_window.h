#pragma once

#include "changes/change_set.h"
#include "changes/history_table.h"
#include "platform/result.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableView;

namespace quillon {

class EditHistory;
class Editor;
class MarkedTextView;

/// What became of the selected title, or of one of its fields: the moments on the left, the text before and
/// after each on the right with what differs struck out and underlined, and the ways back. It closes when
/// another title is opened.
class HistoryWindow : public QDialog
{
    Q_OBJECT
public:
    /// For the selected title. @p editor and @p edits must outlive the window.
    HistoryWindow(Editor &editor, EditHistory &edits, const std::optional<FieldId> &field, QWidget *parent);

Q_SIGNALS:
    /// These fields of the title hold other texts now.
    void restored(const QList<quillon::FieldId> &fields);

private:
    QWidget *newMoments(bool areOfOneField);
    QWidget *newTexts();
    QWidget *newText(MarkedTextView *text, QPushButton *&button, QString history::Row::*side);
    QWidget *newButtons();
    void closeForAnother();
    void showMoment();
    [[nodiscard]] const history::Row *moment() const;
    void restoreField(QString history::Row::*side);
    void restoreTitle();
    void tell(const QString &sentence);
    void apply(const Result<ChangeSet> &set);

    Editor &m_editor;
    EditHistory &m_edits;
    const QString m_title;
    HistoryTable *m_table;
    QTableView *m_moments;
    MarkedTextView *m_before = nullptr;
    MarkedTextView *m_after = nullptr;
    QPushButton *m_restoreBefore = nullptr;
    QPushButton *m_restoreAfter = nullptr;
    QPushButton *m_restoreTitle = nullptr;
    QLabel *m_outcome;
};

} // namespace quillon
