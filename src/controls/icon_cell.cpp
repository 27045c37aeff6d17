#include "controls/icon_cell.h"

#include <QCoreApplication>
#include <QHash>

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class IconCellText
{
    Q_DECLARE_TR_FUNCTIONS(IconCell)
};

struct AlignmentName
{
    QStringView name;
    QStringView capital;
    Qt::Alignment alignment;
};

constexpr std::array<AlignmentName, 3> alignmentNames = {{
    {u"left", u"Left", Qt::AlignLeft},
    {u"centre", u"Centre", Qt::AlignHCenter},
    {u"right", u"Right", Qt::AlignRight},
}};

} // namespace

IconCell tableValidateImageOK(const QString &imageName, const QStringList &imageArray, QStringView align)
{
    IconCell cell{imageArray.isEmpty() ? QStringList{imageName} : imageArray, {}};
    cell.icons.removeAll(QString());
    for (const AlignmentName &each : alignmentNames) {
        if (align == each.name || align == each.capital)
            cell.alignment = each.alignment;
    }
    return cell;
}

QString iconDescription(const QString &icon)
{
    static const QHash<QString, QString> ofStates = {
        {u"Validated"_s, IconCellText::tr("Validated")},
        {u"NotValidated"_s, IconCellText::tr("Not validated")},
        {u"OldVers"_s, IconCellText::tr("Older version")},
    };
    return ofStates.value(icon, icon);
}

QString description(const IconCell &cell)
{
    QStringList words;
    for (const QString &icon : cell.icons)
        words.append(iconDescription(icon));
    return words.join(u", ");
}

} // namespace quillon
