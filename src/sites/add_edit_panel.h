#pragma once

#include "sites/site_editing.h"

#include <QObject>

namespace quillon {

class AlertSheets;
class DelayedCalls;

/// What the panel shows in which a site is added or changed.
struct AddEditPanelContent
{
    enum class Field
    {
        Name,
        Url
    };
    bool isOpen = false;
    QString addEditSentFrom = {}; ///< "add" or "edit".
    QString addEditPanelTitle = {};
    QString siteNameField = {};
    QString siteURLField = {};
    Field focus = Field::Name;     ///< The field to get the keyboard focus,
    bool selectsWholeText = false; ///< with all of its text selected.
};

/// The panel in which a site is typed, without its screen. A site that is refused is told of, and after that
/// the panel opens again with what was typed.
class AddEditPanel : public QObject
{
    Q_OBJECT
public:
    AddEditPanel(AlertSheets &alerts, DelayedCalls &delayedCalls);

    [[nodiscard]] const AddEditPanelContent &content() const { return m_content; }

    /// Opens the panel, for a new site or to change @p site of the catalogue.
    void addNewSiteAction();
    void editSite(const Site &site);
    void cancelAddEditAction();
    /// Adds or changes a site by what is typed in the panel. With a list that cannot be stored the panel
    /// stays open. Nothing happens while the panel is closed.
    void addSaveButtonAction(const QString &name, const QString &url);
    /// The window below closes: a panel that waits to open again stays closed.
    void windowCloses() { m_reopens = false; }

Q_SIGNALS:
    /// The panel is to be opened, shown anew or closed, as content() says.
    void changed();
    /// A site was added or changed.
    void sitesChanged();

private:
    void open(const QString &mode, const QString &title, const Site &site);
    void close();
    void addEditSiteCheckAndWrite();
    void refuse(const SiteEdit &edit);
    void addEditErrorReopenForInput();
    void aedpause();

    AlertSheets &m_alerts;
    DelayedCalls &m_delayedCalls;
    AddEditPanelContent m_content;
    Site m_editedSite;      ///< As it was when the panel opened.
    bool m_reopens = false; ///< A refusal is told, and the panel opens after it.
};

} // namespace quillon
