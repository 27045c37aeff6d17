#pragma once

#include "platform/string_dictionary.h"
#include "widgets/focus_frame.h"

#include <QTextEdit>

namespace quillon {

class Editor;

/// What a recorded message means and what would pass, and below it quietly what else is advised on the
/// selected title. It is empty and hidden when there is neither.
class FindingsPane : public WithFocusFrame<QTextEdit>
{
    Q_OBJECT
public:
    /// The pane looks into the form of @p editor, which holds the selected title and must outlive it.
    explicit FindingsPane(const Editor &editor, QWidget *parent = nullptr);

    /// Explains the message of @p errors that is recorded under the field @p key.
    void explain(const QString &key, const StringDictionary &errors);

    /// As high as its text.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showFindings();

    const Editor &m_editor;
    QString m_key;
    StringDictionary m_errors;
};

} // namespace quillon
