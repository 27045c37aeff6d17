#pragma once

#include "editor/other_titles.h"

#include <QHash>
#include <QListWidget>
#include <QTimer>

namespace quillon {

class FieldLineEdit;

/**
 * The list below a field of what other titles hold there, when the author has typed the beginning of it, or
 * asks by Alt+Down.
 *
 * It never has the focus, and whatever is typed goes into the field: only while it is open the arrow keys
 * choose in it, Return takes what they have chosen, and Escape closes it. What is taken is handed to the
 * editor as if it were typed, as a step of its own.
 */
class CompletionView : public QListWidget
{
    Q_OBJECT
public:
    /// @p editor and @p page, above which it is shown, must outlive it.
    CompletionView(const Editor &editor, QWidget *page);

    /// Offers values in @p line, which shows @p field, if other titles are looked at for that.
    void add(FieldLineEdit *line, FieldId field);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool press(const QKeyEvent &event);
    bool walk(int step);
    bool take();
    void offer();
    void place(int rows);
    void tellChosen();

    OtherTitles m_others;
    QHash<const QObject *, FieldId> m_fields;
    FieldLineEdit *m_line = nullptr; ///< The one that the author is in.
    QTimer m_pause;                  ///< So that a key waits for nothing, and fast typing is left alone.
};

} // namespace quillon
