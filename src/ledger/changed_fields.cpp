#include "ledger/changed_fields.h"

#include "editor/editor_layout.h"
#include "journal/journal.h"
#include "journal/ledger.h"
#include "pad/pad_document.h"
#include "platform/atomic_file.h"
#include "platform/translated_text.h"
#include "store/title_folder.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon::changed_fields {

namespace {

using F = FieldId;

/// What is called otherwise than in the editor: shorter, or as one with others.
const QHash<FieldId, QStringView> &shortNames()
{
    static const QHash<FieldId, QStringView> names = {
        {F::programVersion, QUILLON_TR_NOOP("ChangedFields", "version")},
        {F::releaseDateDay, QUILLON_TR_NOOP("ChangedFields", "release date")},
        {F::releaseDateMonth, QUILLON_TR_NOOP("ChangedFields", "release date")},
        {F::releaseDateYear, QUILLON_TR_NOOP("ChangedFields", "release date")},
        {F::otherPrice, QUILLON_TR_NOOP("ChangedFields", "other price")},
        {F::otherPricePopUp, QUILLON_TR_NOOP("ChangedFields", "other price")},
        {F::priceInUSD, QUILLON_TR_NOOP("ChangedFields", "price in USD")},
        {F::sizeInBytes, QUILLON_TR_NOOP("ChangedFields", "size")},
        {F::expireCheckBox, QUILLON_TR_NOOP("ChangedFields", "has expire information")},
        {F::expireDateDay, QUILLON_TR_NOOP("ChangedFields", "expire date")},
        {F::expireDateMonth, QUILLON_TR_NOOP("ChangedFields", "expire date")},
        {F::expireDateYear, QUILLON_TR_NOOP("ChangedFields", "expire date")},
        {F::companyZIPPostcode, QUILLON_TR_NOOP("ChangedFields", "ZIP/postcode")},
        {F::padFileURL, QUILLON_TR_NOOP("ChangedFields", "PAD file")},
        {F::pd45CharDescript, QUILLON_TR_NOOP("ChangedFields", "description 45")},
        {F::pd80CharDescript, QUILLON_TR_NOOP("ChangedFields", "description 80")},
        {F::pd250CharDescript, QUILLON_TR_NOOP("ChangedFields", "description 250")},
        {F::pd450CharDescript, QUILLON_TR_NOOP("ChangedFields", "description 450")},
        {F::pd2000CharDescript, QUILLON_TR_NOOP("ChangedFields", "description 2000")},
    };
    return names;
}

QString nameOf(FieldId field)
{
    const auto found = shortNames().constFind(field);
    return found == shortNames().cend() ? accessibleNameOf(field).toLower()
                                        : translated("ChangedFields", *found);
}

} // namespace

QList<FieldId> between(const QByteArray &sent, const QByteArray &now)
{
    const PadDocument then(sent);
    const PadDocument today(now);
    QList<FieldId> changed;
    for (const PadField &field : padFields) {
        if (field.kind != FieldKind::Computed &&
            then.value(field).value_or(QString()) != today.value(field).value_or(QString()))
            changed.append(field.id);
    }
    return changed;
}

QStringList names(const QList<FieldId> &fields)
{
    QStringList all;
    for (const FieldId field : fields)
        all.append(nameOf(field));
    all.removeDuplicates();
    return all;
}

Result<std::optional<QList<FieldId>>> sinceSent(const QString &title, const QString &site)
{
    const auto sent = Journal::ofDataFolder().find(
        [&](Database &database) { return ledger::lastSent(database, title, site); });
    if (!sent)
        return sent.error();
    if (!*sent)
        return std::optional<QList<FieldId>>();
    const auto folder = title_folder::path(title);
    const auto now = folder ? atomic_file::read(*folder + u'/' + title_folder::padFile)
                            : Error{.kind = Error::Kind::Missing};
    if (!now)
        return now.error();
    return std::optional(between(**sent, *now));
}

} // namespace quillon::changed_fields
