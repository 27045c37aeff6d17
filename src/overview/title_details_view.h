#pragma once

#include <QSplitter>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QTableView;

namespace quillon {

class OverviewController;

/// Where the selected title was submitted and, beside it, which errors its PAD file has.
class TitleDetailsView : public QSplitter
{
    Q_OBJECT
public:
    /// @p overview must outlive the view.
    explicit TitleDetailsView(OverviewController &overview, QWidget *parent = nullptr);
    ~TitleDetailsView() override;

Q_SIGNALS:
    /// The author asks for the field @p key of the selected title, by a message about it.
    void fieldRequested(const QString &key);

private:
    void buildMarks();
    void buildErrors();
    void restoreLayout();
    void askForField(const QListWidgetItem *item);
    void showErrors();

    OverviewController &m_overview;
    QTableView *m_submittedToTableView;
    QListWidget *m_validationErrorsView;
    QLabel *m_errorsCaption;
};

} // namespace quillon
