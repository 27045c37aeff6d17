#include "sites/deleted_titles.h"

#include "overview/title_deletion.h"
#include "platform/alert_sheets.h"
#include "platform/dates.h"
#include "platform/notification_center.h"
#include "platform/notifications.h"
#include "sites/site_editing.h"
#include "store/storage_status.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quillon {

using deleted_items::Item;
using deleted_items::Kind;

namespace {

QDate dateOf(const Item &item)
{
    return QDateTime::fromMSecsSinceEpoch(item.time).date();
}

QString what(const Item &item)
{
    return item.kind == Kind::Title ? DeletedTitles::tr("Title")
                                    : DeletedTitles::tr("Site, %1").arg(item.address);
}

QString cell(const Item &item, int column)
{
    switch (column) {
    case DeletedTitles::Name:
        return item.name;
    case DeletedTitles::What:
        return what(item);
    case DeletedTitles::Deleted:
        return dates::shortText(dateOf(item));
    case DeletedTitles::KeptUntil:
        return dates::shortText(dateOf(item).addDays(deleted_items::keptDays));
    default:
        return {};
    }
}

/// Why @p item could not be brought back, and what the author can do about it.
QString explanation(const Item &item, const Error &error)
{
    if (error.kind != Error::Kind::Refused)
        return item.kind == Kind::Title ? error.reason : failureLine(error);
    return item.kind == Kind::Title
               ? DeletedTitles::tr("There is another title of this name. Give that one another name first.")
               : DeletedTitles::tr("There is another site of this name or address.");
}

Result<> bringSiteBack(const Item &site, const QString &name)
{
    const SiteEdit added = site_editing::addSite(name, site.address);
    if (added.outcome == SiteEdit::Done) {
        (void)deleted_items::release(site, name); // The status bar tells.
        return {};
    }
    return added.outcome == SiteEdit::NotStored ? added.failure
                                                : Error{Error::Kind::Refused, name, added.sentence};
}

void tellOthers(Kind kind)
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    if (kind == Kind::Title)
        return center.post(notification::mwqnOvLSlst);
    center.post(notification::mwqnPClSiL432ds);
    center.post(notification::mwqnLSLsc);
}

} // namespace

Result<> bringBack(const Item &item, const QString &name)
{
    return item.kind == Kind::Title ? title_operations::undeleteTitle(item, name) : bringSiteBack(item, name);
}

DeletedTitles::DeletedTitles(AlertSheets &alerts, QObject *parent)
    : QAbstractTableModel(parent), m_alerts(alerts)
{
}

void DeletedTitles::open()
{
    reload();
    Q_EMIT showWindow();
}

void DeletedTitles::reload()
{
    beginResetModel();
    m_items = deleted_items::all().valueOr({}); // The status bar tells.
    endResetModel();
}

void DeletedTitles::restore(int row)
{
    if (!isRow(row))
        return;
    const Item item = m_items[row];
    const Result<> restored = bringBack(item, item.name);
    if (restored.isDone())
        tellOthers(item.kind);
    else
        m_alerts.show(SheetWindow::DeletedTitles,
                      {tr("%1 could not be restored").arg(item.name), explanation(item, restored.error())});
    reload();
}

void DeletedTitles::forgetNow(int row)
{
    if (!isRow(row))
        return;
    const Alert alert{tr("Do you want to forget %1 for good?").arg(m_items[row].name),
                      tr("It cannot be brought back then."), tr("Forget Now"), tr("Cancel")};
    m_alerts.show(SheetWindow::DeletedTitles, alert, [this, item = m_items[row]](AlertAnswer answer) {
        if (answer != AlertAnswer::Default)
            return;
        (void)deleted_items::forget({item}); // The status bar tells.
        reload();
    });
}

int DeletedTitles::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_items.size());
}

int DeletedTitles::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant DeletedTitles::data(const QModelIndex &index, int role) const
{
    return index.isValid() && role == Qt::DisplayRole ? QVariant(cell(m_items[index.row()], index.column()))
                                                      : QVariant();
}

QVariant DeletedTitles::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles = {tr("Name"), tr("What"), tr("Deleted"), tr("Kept Until")};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(titles.value(section))
                                                                    : QVariant();
}

} // namespace quillon
