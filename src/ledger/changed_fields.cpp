#include "ledger/changed_fields.h"

#include "editor/editor_layout.h"
#include "journal/journal.h"
#include "journal/ledger.h"
#include "pad/pad_document.h"
#include "platform/atomic_file.h"
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
        {F::programVersion, u"version"},
        {F::releaseDateDay, u"release date"},
        {F::releaseDateMonth, u"release date"},
        {F::releaseDateYear, u"release date"},
        {F::otherPrice, u"other price"},
        {F::otherPricePopUp, u"other price"},
        {F::priceInUSD, u"price in USD"},
        {F::sizeInBytes, u"size"},
        {F::expireCheckBox, u"has expire information"},
        {F::expireDateDay, u"expire date"},
        {F::expireDateMonth, u"expire date"},
        {F::expireDateYear, u"expire date"},
        {F::companyZIPPostcode, u"ZIP/postcode"},
        {F::padFileURL, u"PAD file"},
        {F::pd45CharDescript, u"description 45"},
        {F::pd80CharDescript, u"description 80"},
        {F::pd250CharDescript, u"description 250"},
        {F::pd450CharDescript, u"description 450"},
        {F::pd2000CharDescript, u"description 2000"},
    };
    return names;
}

QString nameOf(FieldId field)
{
    const auto found = shortNames().constFind(field);
    return found == shortNames().cend() ? accessibleNameOf(field).toLower() : found->toString();
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
    std::optional<QByteArray> sent;
    const Result<> read = Journal::ofDataFolder().read([&](Database &database) -> Result<> {
        auto found = ledger::lastSent(database, title, site);
        if (!found)
            return found.error();
        sent = *std::move(found);
        return {};
    });
    if (!read && !read.isError(Error::Kind::Missing))
        return read.error();
    if (!sent)
        return std::optional<QList<FieldId>>();
    const auto folder = title_folder::path(title);
    const auto now = folder ? atomic_file::read(*folder + u'/' + title_folder::padFile)
                            : Error{.kind = Error::Kind::Missing};
    if (!now)
        return now.error();
    return std::optional(between(*sent, *now));
}

} // namespace quillon::changed_fields
