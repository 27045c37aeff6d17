#include "controls/icon_cell.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

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
    if (icon == u"NotValidated")
        return u"Not validated"_s;
    return icon == u"OldVers" ? u"Older version"_s : icon;
}

QString description(const IconCell &cell)
{
    QStringList words;
    for (const QString &icon : cell.icons)
        words.append(iconDescription(icon));
    return words.join(u", ");
}

} // namespace quillon
