#pragma once

#include "editor/editor_pages.h"
#include "overview/overview_controller.h"
#include "pad/field_catalogue.h"
#include "platform/alert_sheets.h"

#include <QObject>

namespace quillon {

/// The two views that the main window shows in turn.
enum class ContentView
{
    Overview,
    Editor
};

/**
 * Decides which view the main window shows, keeps the File menu to match, and asks about remaining errors
 * before a title is submitted.
 */
class ToolbarControl : public QObject
{
    Q_OBJECT
public:
    ToolbarControl(OverviewController &overview, AlertSheets &alerts, QObject *parent = nullptr);

    /// Makes sure of the data folder and begins to observe. Before the overview loads its list.
    void awakeFromNib();

    void overviewTBI();
    /// Opens the editor on the selected title; without one an alert asks for it.
    void editTBI();
    /// Opens the submission window on the selected title; without one, or with errors left, an alert comes
    /// first.
    void submitTBI();

    [[nodiscard]] ContentView currentView() const { return m_currentView; }

    /// The label of the editor's tab that is showing, which decides the field that editTBI() focuses.
    void setSelectedTabLabel(const QString &label) { m_selectedTabLabel = label; }

Q_SIGNALS:
    void showView(quillon::ContentView view);
    /// Put the keyboard focus into the field, the caret at the end of its text.
    void focusField(quillon::FieldId field);
    /// Bring the submission window to the front.
    void openSubmitWindow();

private:
    void showOverview();
    void resetView() { Q_EMIT showView(m_currentView); }
    void resetFileMenuItems();
    void alertDidEndSubmitWithErrors(AlertAnswer answer);
    void showEditor();

    OverviewController &m_overview;
    AlertSheets &m_alerts;
    ContentView m_currentView = ContentView::Overview;
    QString m_selectedTabLabel = editorPages[0].label.toString();
};

} // namespace quillon
