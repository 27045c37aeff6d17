#pragma once

#include "editor/editor_pages.h"
#include "platform/string_dictionary.h"

#include <QHash>
#include <QTimer>
#include <QWidget>

#include <optional>

class QBoxLayout;
class QLabel;
class QTabWidget;

namespace quillon {

class CompletionView;
class Editor;
class FieldWatch;
struct FieldGroup;
struct FieldLine;

/// The main window's second view: the editor's five pages, each field with its caption, its control and its
/// hint with the live counter. A page is made when it is first shown. The tab of a page that holds errors
/// carries their number; the field's tool tip, which a screen reader reads too, says what is wrong with it,
/// and explains that when it is shown.
class EditorView : public QWidget
{
    Q_OBJECT
public:
    explicit EditorView(Editor &editor, QWidget *parent = nullptr);

    /// Puts the keyboard focus into @p field with the cursor at the end of its text. A field on a page that
    /// is not showing takes no focus; then the first field of the page that is showing does.
    void focusField(FieldId field);

    /// Shows the page of @p field and puts the focus into it.
    void revealField(FieldId field);

    /// The field with a text that has the focus; none when something else has it.
    [[nodiscard]] std::optional<FieldId> focusedText() const;
    /// Takes back, or does again, what was typed into that field; false where it has nothing of it.
    bool undoTyping();
    bool redoTyping();

    /// Puts @p bar above the pages.
    void addBar(QWidget *bar);

Q_SIGNALS:
    /// The author wants to see what @p field held before.
    void earlierTextsRequested(quillon::FieldId field);
    /// The author picked the page of that label.
    void tabSelected(const QString &label);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void makeCurrentPage();
    QWidget *newPage(const EditorPage &page);
    QWidget *newGroup(const FieldGroup &group);
    void addLine(QBoxLayout *layout, const FieldLine &line);
    QWidget *newControl(FieldId field, int lines);
    QLabel *newCaption(const FieldLine &line);
    void tabPicked(int index);
    /// Nothing can be typed into a form whose title could not be read: it would not be stored.
    void enablePages();
    void showErrorCounts();
    void showErrors();
    /// Has a screen reader say what has become of the errors since the last time.
    void tellErrors();
    /// Has a screen reader read what the tool tip of @p field says.
    void describe(FieldId field);
    /// Shows the page of the last run. Not before somebody listens to tabSelected(): at the first showing.
    void restorePage();

    Editor &m_editor;
    QTabWidget *m_editorTabs;
    FieldWatch *m_watch;
    CompletionView *m_completion;
    QHash<FieldId, QWidget *> m_widgets;
    bool m_revealing = false; ///< The page changes for a field that gets the focus by itself.
    bool m_isPageRestored = false;
    QTimer m_pause;          ///< Ends some time after the last keystroke.
    StringDictionary m_told; ///< The errors that a screen reader has spoken of.
};

} // namespace quillon
