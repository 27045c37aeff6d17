#include "pad/field_catalogue.h"

#include <algorithm>

namespace quillon {

// clang-format off
constexpr std::array<PadField, fieldCount> padFields = {{
    {FieldId::authorFirstName, u"authorFirstName", u"Author_First_Name", u"Company_Info/Contact_Info", FieldKind::Text, u"authorFirstName"},
    {FieldId::authorLastName, u"authorLastName", u"Author_Last_Name", u"Company_Info/Contact_Info", FieldKind::Text, u"authorLastName"},
    {FieldId::authorEmail, u"authorEmail", u"Author_Email", u"Company_Info/Contact_Info", FieldKind::Text, u"authorEmail"},
    {FieldId::contactFirstName, u"contactFirstName", u"Contact_First_Name", u"Company_Info/Contact_Info", FieldKind::Text, u"contactFirstName"},
    {FieldId::contactLastName, u"contactLastName", u"Contact_Last_Name", u"Company_Info/Contact_Info", FieldKind::Text, u"contactLastName"},
    {FieldId::contactEmail, u"contactEmail", u"Contact_Email", u"Company_Info/Contact_Info", FieldKind::Text, u"contactEmail"},
    {FieldId::companyName, u"companyName", u"Company_Name", u"Company_Info", FieldKind::Text, u"companyName"},
    {FieldId::companyAddress, u"companyAddress", u"Address_1", u"Company_Info", FieldKind::Text, u"companyAddress"},
    {FieldId::companyAddress2, u"companyAddress2", u"Address_2", u"Company_Info", FieldKind::Text, u"companyAddress2"},
    {FieldId::companyCityTown, u"companyCityTown", u"City_Town", u"Company_Info", FieldKind::Text, u"companyCityTown"},
    {FieldId::companyStateCounty, u"companyStateCounty", u"State_Province", u"Company_Info", FieldKind::Text, u"companyStateCounty"},
    {FieldId::companyZIPPostcode, u"companyZIPPostcode", u"Zip_Postal_Code", u"Company_Info", FieldKind::Text, u"companyZIPPostcode"},
    {FieldId::companyCountry, u"companyCountry", u"Country", u"Company_Info", FieldKind::Text, u"companyCountry"},
    {FieldId::companyWebsite, u"companyWebsite", u"Company_WebSite_URL", u"Company_Info", FieldKind::Text, u"companyWebsite"},
    {FieldId::generalEmail, u"generalEmail", u"General_Email", u"Company_Info/Support_Info", FieldKind::Text, u"generalEmail"},
    {FieldId::generalPhone, u"generalPhone", u"General_Phone", u"Company_Info/Support_Info", FieldKind::Text, u"generalPhone"},
    {FieldId::generalFax, u"generalFax", u"Fax_Phone", u"Company_Info/Support_Info", FieldKind::Text, u"generalFax"},
    {FieldId::supportEmail, u"supportEmail", u"Support_Email", u"Company_Info/Support_Info", FieldKind::Text, u"supportEmail"},
    {FieldId::supportPhone, u"supportPhone", u"Support_Phone", u"Company_Info/Support_Info", FieldKind::Text, u"supportPhone"},
    {FieldId::salesEmail, u"salesEmail", u"Sales_Email", u"Company_Info/Support_Info", FieldKind::Text, u"salesEmail"},
    {FieldId::salesPhone, u"salesPhone", u"Sales_Phone", u"Company_Info/Support_Info", FieldKind::Text, u"salesPhone"},
    {FieldId::programName, u"programName", u"Program_Name", u"Program_Info", FieldKind::Text, u"programName"},
    {FieldId::programVersion, u"programVersion", u"Program_Version", u"Program_Info", FieldKind::Text, u"programVersion"},
    {FieldId::releaseDateDay, u"releaseDateDay", u"Program_Release_Day", u"Program_Info", FieldKind::Text, u"programReleaseDay"},
    {FieldId::releaseDateMonth, u"releaseDateMonth", u"Program_Release_Month", u"Program_Info", FieldKind::Text, u"programReleaseMonth"},
    {FieldId::releaseDateYear, u"releaseDateYear", u"Program_Release_Year", u"Program_Info", FieldKind::Text, u"programReleaseYear"},
    {FieldId::priceInUSD, u"priceInUSD", u"Program_Cost_Dollars", u"Program_Info", FieldKind::Text, u""},
    {FieldId::otherPrice, u"otherPrice", u"Program_Cost_Other", u"Program_Info", FieldKind::Text, u""},
    {FieldId::sizeInBytes, u"sizeInBytes", u"File_Size_Bytes", u"Program_Info/File_Info", FieldKind::Text, u"programSizeBytes"},
    {FieldId::expireCount, u"expireCount", u"Expire_Count", u"Program_Info/Expire_Info", FieldKind::Text, u""},
    {FieldId::expireDateDay, u"expireDateDay", u"Expire_Day", u"Program_Info/Expire_Info", FieldKind::Text, u""},
    {FieldId::expireDateMonth, u"expireDateMonth", u"Expire_Month", u"Program_Info/Expire_Info", FieldKind::Text, u""},
    {FieldId::expireDateYear, u"expireDateYear", u"Expire_Year", u"Program_Info/Expire_Info", FieldKind::Text, u""},
    {FieldId::expireInfo, u"expireInfo", u"Expire_Other_Info", u"Program_Info/Expire_Info", FieldKind::Text, u""},
    {FieldId::programSizeKB, u"programSizeKB", u"File_Size_K", u"Program_Info/File_Info", FieldKind::Computed, u""},
    {FieldId::programSizeMB, u"programSizeMB", u"File_Size_MB", u"Program_Info/File_Info", FieldKind::Computed, u""},
    {FieldId::otherPricePopUp, u"otherPricePopUp", u"Program_Cost_Other_Code", u"Program_Info", FieldKind::PopUp, u""},
    {FieldId::installSupportPopUp, u"installSupportPopUp", u"Program_Install_Support", u"Program_Info", FieldKind::PopUp, u"programInstall"},
    {FieldId::programTypePopUp, u"programTypePopUp", u"Program_Type", u"Program_Info", FieldKind::PopUp, u"programType"},
    {FieldId::programStatusPopUp, u"programStatusPopUp", u"Program_Release_Status", u"Program_Info", FieldKind::PopUp, u"programStatus"},
    {FieldId::expireBasePopUp, u"expireBasePopUp", u"Expire_Based_On", u"Program_Info/Expire_Info", FieldKind::PopUp, u""},
    {FieldId::categoryPopUp, u"categoryPopUp", u"Program_Category_Class", u"Program_Info", FieldKind::PopUp, u"programCategory"},
    {FieldId::expireCheckBox, u"expireCheckBox", u"Has_Expire_Info", u"Program_Info/Expire_Info", FieldKind::CheckBox, u""},
    {FieldId::changeInformationView, u"changeInformationView", u"Program_Change_Info", u"Program_Info", FieldKind::MultiLine, u""},
    {FieldId::requirementsView, u"requirementsView", u"Program_System_Requirements", u"Program_Info", FieldKind::MultiLine, u""},
    {FieldId::languageTable, u"languageTable", u"Program_Language", u"Program_Info", FieldKind::CheckList, u"programLanguage"},
    {FieldId::osTable, u"osTable", u"Program_OS_Support", u"Program_Info", FieldKind::CheckList, u"programOS"},
    {FieldId::keywordsView, u"keywordsView", u"Keywords", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::pd45CharDescript, u"pd45CharDescript", u"Char_Desc_45", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::pd80CharDescript, u"pd80CharDescript", u"Char_Desc_80", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::pd250CharDescript, u"pd250CharDescript", u"Char_Desc_250", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::pd450CharDescript, u"pd450CharDescript", u"Char_Desc_450", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::pd2000CharDescript, u"pd2000CharDescript", u"Char_Desc_2000", u"Program_Descriptions/English", FieldKind::MultiLine, u""},
    {FieldId::appInfoURL, u"appInfoURL", u"Application_Info_URL", u"Web_Info/Application_URLs", FieldKind::Text, u"applicationInfoURL"},
    {FieldId::orderingURL, u"orderingURL", u"Application_Order_URL", u"Web_Info/Application_URLs", FieldKind::Text, u"orderingURL"},
    {FieldId::screenshotURL, u"screenshotURL", u"Application_Screenshot_URL", u"Web_Info/Application_URLs", FieldKind::Text, u"screenshotURL"},
    {FieldId::iconURL, u"iconURL", u"Application_Icon_URL", u"Web_Info/Application_URLs", FieldKind::Text, u"iconURL"},
    {FieldId::padFileURL, u"padFileURL", u"Application_XML_File_URL", u"Web_Info/Application_URLs", FieldKind::Text, u"padFileURL"},
    {FieldId::primaryDownloadURL, u"primaryDownloadURL", u"Primary_Download_URL", u"Web_Info/Download_URLs", FieldKind::Text, u"primaryDownloadURL"},
    {FieldId::secondaryDownloadURL, u"secondaryDownloadURL", u"Secondary_Download_URL", u"Web_Info/Download_URLs", FieldKind::Text, u""},
    {FieldId::otherDownloadURL1, u"otherDownloadURL1", u"Additional_Download_URL_1", u"Web_Info/Download_URLs", FieldKind::Text, u""},
    {FieldId::otherDownloadURL2, u"otherDownloadURL2", u"Additional_Download_URL_2", u"Web_Info/Download_URLs", FieldKind::Text, u""},
    {FieldId::distributionPermissions, u"distributionPermissions", u"Distribution_Permissions", u"Permissions", FieldKind::MultiLine, u""},
    {FieldId::eula, u"eula", u"EULA", u"Permissions", FieldKind::MultiLine, u""},
}};
// clang-format on

static_assert(isInOrder(padFields, &PadField::id));

namespace {

std::optional<FieldId> find(QStringView PadField::*name, QStringView wanted)
{
    const auto named = [&](const PadField &field) { return field.*name == wanted; };
    const auto found = std::find_if(padFields.begin(), padFields.end(), named);
    return found == padFields.end() ? std::nullopt : std::optional(found->id);
}

} // namespace

std::optional<FieldId> fieldOfElement(QStringView element)
{
    return find(&PadField::element, element);
}

std::optional<FieldId> fieldNamed(QStringView name)
{
    const auto byControl = find(&PadField::control, name);
    return byControl ? byControl : fieldOfElement(name);
}

std::span<const PadField> fields::between(FieldId first, FieldId last)
{
    return std::span(padFields).subspan(size_t(first), size_t(last) - size_t(first) + 1);
}

} // namespace quillon
