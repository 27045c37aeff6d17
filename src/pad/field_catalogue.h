#pragma once

#include <QStringView>

#include <array>
#include <optional>
#include <span>

/// The PAD fields that Quillon handles: which control stands for which element, and where it is stored.
namespace quillon {

/// The fields by their control's name, in the order in which the editor binds them.
enum class FieldId : quint8
{
    authorFirstName,
    authorLastName,
    authorEmail,
    contactFirstName,
    contactLastName,
    contactEmail,
    companyName,
    companyAddress,
    companyAddress2,
    companyCityTown,
    companyStateCounty,
    companyZIPPostcode,
    companyCountry,
    companyWebsite,
    generalEmail,
    generalPhone,
    generalFax,
    supportEmail,
    supportPhone,
    salesEmail,
    salesPhone,
    programName,
    programVersion,
    releaseDateDay,
    releaseDateMonth,
    releaseDateYear,
    priceInUSD,
    otherPrice,
    sizeInBytes,
    expireCount,
    expireDateDay,
    expireDateMonth,
    expireDateYear,
    expireInfo,
    programSizeKB,
    programSizeMB,
    otherPricePopUp,
    installSupportPopUp,
    programTypePopUp,
    programStatusPopUp,
    expireBasePopUp,
    categoryPopUp,
    expireCheckBox,
    changeInformationView,
    requirementsView,
    languageTable,
    osTable,
    keywordsView,
    pd45CharDescript,
    pd80CharDescript,
    pd250CharDescript,
    pd450CharDescript,
    pd2000CharDescript,
    appInfoURL,
    orderingURL,
    screenshotURL,
    iconURL,
    padFileURL,
    primaryDownloadURL,
    secondaryDownloadURL,
    otherDownloadURL1,
    otherDownloadURL2,
    distributionPermissions,
    eula,
};

enum class FieldKind : quint8
{
    Text,
    MultiLine,
    PopUp,
    CheckBox,
    CheckList,
    Computed, ///< Shown and stored, but not typed: the two sizes.
};

/// One PAD field. The texts are string literals, so that they live for ever.
struct PadField
{
    FieldId id;
    QStringView control; ///< The control's name, and the key of the field's entry in the error log.
    QStringView element; ///< The PAD element, its case as it is written.
    QStringView group;   ///< The enclosing elements below the root, joined by "/".
    FieldKind kind;
    QStringView messageKey; ///< Key in the three message dictionaries; empty where there is no entry.
};

inline constexpr int fieldCount = int(FieldId::eula) + 1;

/// All fields; a field's place is the value of its id.
extern const std::array<PadField, fieldCount> padFields;

/// Whether each row of @p table stands at the place of its @p field, where it is looked for.
template<typename Row>
constexpr bool isInOrder(const std::array<Row, fieldCount> &table, FieldId Row::*field)
{
    for (size_t place = 0; place < table.size(); ++place) {
        if (size_t(table[place].*field) != place)
            return false;
    }
    return true;
}

/// The entry of @p id.
inline const PadField &padField(FieldId id)
{
    return padFields[size_t(id)];
}

/// The field whose PAD element is named @p element, exactly; none without one.
std::optional<FieldId> fieldOfElement(QStringView element);

/// The field whose control or PAD element is named @p name, exactly; none without one.
std::optional<FieldId> fieldNamed(QStringView name);

/// The root element of a PAD file.
inline constexpr QStringView padRootElement = u"XML_DIZ_INFO";

/// What tells a PAD file from other XML, in any case.
inline constexpr QStringView padMarker = u"<MASTER_PAD_VERSION_INFO>";

/// Stretches of the catalogue that the reader and the rules walk as one.
namespace fields {
std::span<const PadField> between(FieldId first, FieldId last);

inline std::span<const PadField> company()
{
    return between(FieldId::authorFirstName, FieldId::salesPhone);
}
inline std::span<const PadField> program()
{
    return between(FieldId::programName, FieldId::expireInfo);
}
inline std::span<const PadField> popUps()
{
    return between(FieldId::otherPricePopUp, FieldId::categoryPopUp);
}
inline std::span<const PadField> programTexts()
{
    return between(FieldId::changeInformationView, FieldId::requirementsView);
}
inline std::span<const PadField> checkLists()
{
    return between(FieldId::languageTable, FieldId::osTable);
}
inline std::span<const PadField> descriptions()
{
    return between(FieldId::keywordsView, FieldId::pd2000CharDescript);
}
inline std::span<const PadField> web()
{
    return between(FieldId::appInfoURL, FieldId::otherDownloadURL2);
}
inline std::span<const PadField> permissions()
{
    return between(FieldId::distributionPermissions, FieldId::eula);
}
} // namespace fields

} // namespace quillon
