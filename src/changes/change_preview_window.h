#pragma once

#include "changes/change_preview.h"
#include "changes/changes_table.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTableView;

namespace quillon {

class EditHistory;
class MarkedTextView;
class PlanForm;

/**
 * The preview of a plan: the titles on the left, on the right what changes in the one that is selected there,
 * the selected change in full, and which errors go and come. What is ticked can be applied, and then taken
 * back; whatever comes of it stands in a sentence above the buttons.
 */
class ChangePreviewWindow : public QDialog
{
    Q_OBJECT
public:
    /// Takes @p preview and @p form, which says what is planned and stands above it. Changes of the open
    /// title go through @p edits, which must outlive the window.
    ChangePreviewWindow(const QString &title, ChangePreview *preview, PlanForm *form, EditHistory &edits,
                        QWidget *parent);

    /// Says @p sentence where nothing changes anywhere.
    void setNothingText(const QString &sentence) { m_nothingText = sentence; }

Q_SIGNALS:
    /// Titles hold other values now.
    void applied();

private:
    QWidget *newPreview();
    QWidget *newTitles();
    QWidget *newDetails();
    QLayout *newButtons();
    QPushButton *newButton(const QString &name, const QString &text, void (ChangePreviewWindow::*pressed)());
    void plan();
    void showProgress(int done, int total);
    void showTitle();
    void showConsequences();
    void showChange();
    void showButtons();
    void apply();
    void undo();
    void stop();
    Result<QString> atWork(Result<QString> (ChangePreview::*work)(EditHistory *));
    void tell(const QString &sentence);
    void selectFirstTicked();
    [[nodiscard]] int currentTitle() const;

    ChangePreview *m_preview;
    PlanForm *m_form;
    EditHistory &m_edits;
    ChangesTable *m_changesTable;
    QTableView *m_titles = nullptr;
    QTableView *m_changes = nullptr;
    MarkedTextView *m_before = nullptr;
    MarkedTextView *m_after = nullptr;
    QListWidget *m_consequences = nullptr;
    QProgressBar *m_progress = nullptr;
    QLabel *m_outcome = nullptr;
    QPushButton *m_stop = nullptr;
    QPushButton *m_undo = nullptr;
    QPushButton *m_apply = nullptr;
    QTimer m_pause; ///< The author fills in the form; planning begins when the typing stops.
    QString m_nothingText = tr("Nothing would change.");
    bool m_keepsOutcome = false; ///< The sentence is about what was done, not about the plan.
};

} // namespace quillon
