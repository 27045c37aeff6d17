#pragma once

#include "pad/field_catalogue.h"
#include "platform/string_dictionary.h"
#include "platform/translated_text.h"

/// The editor's pages, each of which shows one group of the PAD file.
namespace quillon {

struct EditorPage
{
    QStringView label;
    QStringView group;  ///< The PAD group whose fields are on the page.
    FieldId firstField; ///< Takes the keyboard when the page is chosen.
};

/// In the order of their tabs.
inline constexpr std::array<EditorPage, 5> editorPages = {{
    {QUILLON_TR_NOOP("EditorPages", "Company Information"), u"Company_Info", FieldId::authorFirstName},
    {QUILLON_TR_NOOP("EditorPages", "Program Information"), u"Program_Info", FieldId::programName},
    {QUILLON_TR_NOOP("EditorPages", "Program Descriptions"), u"Program_Descriptions", FieldId::keywordsView},
    {QUILLON_TR_NOOP("EditorPages", "Web Information"), u"Web_Info", FieldId::appInfoURL},
    {QUILLON_TR_NOOP("EditorPages", "Permissions"), u"Permissions", FieldId::distributionPermissions},
}};

/// The page that @p field is on.
const EditorPage &pageOf(FieldId field);

/// The field that takes the keyboard when the page @p label is chosen; a label that is none of ours is taken
/// for the last page's.
FieldId firstFieldOf(QStringView label);

/// How many of @p errors (by field key) are on @p page. Keys that name no field are on none.
int errorCount(const StringDictionary &errors, const EditorPage &page);

} // namespace quillon
