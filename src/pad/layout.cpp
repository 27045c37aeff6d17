#include "pad/layout.h"

#include "pad/field_catalogue.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

// The order inside the groups is not the editor's: month before day, e-mail before telephone, systems before
// languages.
// clang-format off
constexpr LayoutLine layoutRows[] = {
    {1, LayoutLine::Open, u"MASTER_PAD_VERSION_INFO"},
    {2, LayoutLine::Element, u"MASTER_PAD_VERSION"},
    {2, LayoutLine::Element, u"MASTER_PAD_EDITOR"},
    {2, LayoutLine::Element, u"MASTER_PAD_INFO"},
    {1, LayoutLine::Close, u"MASTER_PAD_VERSION_INFO"},
    {1, LayoutLine::Open, u"Company_Info"},
    {2, LayoutLine::Element, u"Company_Name"},
    {2, LayoutLine::Element, u"Address_1"},
    {2, LayoutLine::Element, u"Address_2"},
    {2, LayoutLine::Element, u"City_Town"},
    {2, LayoutLine::Element, u"State_Province"},
    {2, LayoutLine::Element, u"Zip_Postal_Code"},
    {2, LayoutLine::Element, u"Country"},
    {2, LayoutLine::Element, u"Company_WebSite_URL"},
    {2, LayoutLine::Open, u"Contact_Info"},
    {3, LayoutLine::Element, u"Author_First_Name"},
    {3, LayoutLine::Element, u"Author_Last_Name"},
    {3, LayoutLine::Element, u"Author_Email"},
    {3, LayoutLine::Element, u"Contact_First_Name"},
    {3, LayoutLine::Element, u"Contact_Last_Name"},
    {3, LayoutLine::Element, u"Contact_Email"},
    {2, LayoutLine::Close, u"Contact_Info"},
    {2, LayoutLine::Open, u"Support_Info"},
    {3, LayoutLine::Element, u"Sales_Email"},
    {3, LayoutLine::Element, u"Support_Email"},
    {3, LayoutLine::Element, u"General_Email"},
    {3, LayoutLine::Element, u"Sales_Phone"},
    {3, LayoutLine::Element, u"Support_Phone"},
    {3, LayoutLine::Element, u"General_Phone"},
    {3, LayoutLine::Element, u"Fax_Phone"},
    {2, LayoutLine::Close, u"Support_Info"},
    {1, LayoutLine::Close, u"Company_Info"},
    {1, LayoutLine::Open, u"Program_Info"},
    {2, LayoutLine::Element, u"Program_Name"},
    {2, LayoutLine::Element, u"Program_Version"},
    {2, LayoutLine::Element, u"Program_Release_Month"},
    {2, LayoutLine::Element, u"Program_Release_Day"},
    {2, LayoutLine::Element, u"Program_Release_Year"},
    {2, LayoutLine::Element, u"Program_Cost_Dollars"},
    {2, LayoutLine::Element, u"Program_Cost_Other_Code"},
    {2, LayoutLine::Element, u"Program_Cost_Other"},
    {2, LayoutLine::Element, u"Program_Type"},
    {2, LayoutLine::Element, u"Program_Release_Status"},
    {2, LayoutLine::Element, u"Program_Install_Support"},
    {2, LayoutLine::Element, u"Program_OS_Support"},
    {2, LayoutLine::Element, u"Program_Language"},
    {2, LayoutLine::Element, u"Program_Change_Info"},
    {2, LayoutLine::Element, u"Program_Category_Class"},
    {2, LayoutLine::Element, u"Program_System_Requirements"},
    {2, LayoutLine::Open, u"File_Info"},
    {3, LayoutLine::Element, u"File_Size_Bytes"},
    {3, LayoutLine::Element, u"File_Size_K"},
    {3, LayoutLine::Element, u"File_Size_MB"},
    {2, LayoutLine::Close, u"File_Info"},
    {2, LayoutLine::Open, u"Expire_Info"},
    {3, LayoutLine::Element, u"Has_Expire_Info"},
    {3, LayoutLine::Element, u"Expire_Count"},
    {3, LayoutLine::Element, u"Expire_Based_On"},
    {3, LayoutLine::Element, u"Expire_Other_Info"},
    {3, LayoutLine::Element, u"Expire_Month"},
    {3, LayoutLine::Element, u"Expire_Day"},
    {3, LayoutLine::Element, u"Expire_Year"},
    {2, LayoutLine::Close, u"Expire_Info"},
    {1, LayoutLine::Close, u"Program_Info"},
    {1, LayoutLine::Open, u"Program_Descriptions"},
    {2, LayoutLine::Open, u"English"},
    {3, LayoutLine::Element, u"Keywords"},
    {3, LayoutLine::Element, u"Char_Desc_45"},
    {3, LayoutLine::Element, u"Char_Desc_80"},
    {3, LayoutLine::Element, u"Char_Desc_250"},
    {3, LayoutLine::Element, u"Char_Desc_450"},
    {3, LayoutLine::Element, u"Char_Desc_2000"},
    {2, LayoutLine::Close, u"English"},
    {1, LayoutLine::Close, u"Program_Descriptions"},
    {1, LayoutLine::Open, u"Web_Info"},
    {2, LayoutLine::Open, u"Application_URLs"},
    {3, LayoutLine::Element, u"Application_Info_URL"},
    {3, LayoutLine::Element, u"Application_Order_URL"},
    {3, LayoutLine::Element, u"Application_Screenshot_URL"},
    {3, LayoutLine::Element, u"Application_Icon_URL"},
    {3, LayoutLine::Element, u"Application_XML_File_URL"},
    {2, LayoutLine::Close, u"Application_URLs"},
    {2, LayoutLine::Open, u"Download_URLs"},
    {3, LayoutLine::Element, u"Primary_Download_URL"},
    {3, LayoutLine::Element, u"Secondary_Download_URL"},
    {3, LayoutLine::Element, u"Additional_Download_URL_1"},
    {3, LayoutLine::Element, u"Additional_Download_URL_2"},
    {2, LayoutLine::Close, u"Download_URLs"},
    {1, LayoutLine::Close, u"Web_Info"},
    {1, LayoutLine::Open, u"Permissions"},
    {2, LayoutLine::Element, u"Distribution_Permissions"},
    {2, LayoutLine::Element, u"EULA"},
    {1, LayoutLine::Close, u"Permissions"},
};
// clang-format on

} // namespace

const std::span<const LayoutLine> padLayout = layoutRows;

QStringView padTag(QStringView name)
{
    static const QHash<QString, QStringView> tags = [] {
        QHash<QString, QStringView> found{{padRootElement.toString().toLower(), padRootElement}};
        for (const LayoutLine &line : padLayout)
            found.insert(line.tag.toString().toLower(), line.tag);
        return found;
    }();
    return tags.value(name.toString().toLower());
}

QString startTag(QStringView tag)
{
    return u'<' + tag + u'>';
}

QString endTag(QStringView tag)
{
    return u"</" + tag + u'>';
}

QString layoutOpening()
{
    return u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"_s + startTag(padRootElement) + u'\n';
}

QString layoutClosing()
{
    return endTag(padRootElement);
}

QString lineStart(const LayoutLine &line)
{
    return QString(line.depth, u'\t') +
           (line.kind == LayoutLine::Close ? endTag(line.tag) : startTag(line.tag));
}

} // namespace quillon
