#pragma once

#include <QSplitter>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QTableView;

namespace quillon {

class CommandSet;
class Editor;
class FindingsPane;
class OverviewController;

/// Where the selected title was submitted and, beside it, which errors its PAD file has, what they
/// mean and what is advised.
class TitleDetailsView : public QSplitter
{
    Q_OBJECT
public:
    /// Its button has its action from @p commands. All, and @p editor, whose form holds the selected title,
    /// must outlive the view.
    TitleDetailsView(OverviewController &overview, const Editor &editor, const CommandSet &commands,
                     QWidget *parent = nullptr);
    ~TitleDetailsView() override;

    /// Explains the current message, else the first one, while anybody sees it.
    void explain();

Q_SIGNALS:
    /// The author asks for the field @p key of the selected title, by a message about it.
    void fieldRequested(const QString &key);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildMarks();
    void buildErrors(const CommandSet &commands);
    void restoreLayout();
    void askForField(const QListWidgetItem *item);
    void showErrors();

    OverviewController &m_overview;
    const Editor &m_editor;
    QTableView *m_submittedToTableView;
    QListWidget *m_validationErrorsView;
    QLabel *m_marksCaption;
    QLabel *m_errorsCaption;
    FindingsPane *m_findings = nullptr; ///< Made with the first title.
};

} // namespace quillon
