#include "overview/example_title.h"

#include "editor/summary_of_form.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "store/add_delete_import_edit.h"
#include "store/title_folder.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

using namespace Qt::StringLiterals;

namespace quillon::example_title {

namespace {

using enum FieldId;

struct Value
{
    FieldId field;
    QStringView text;
};

// Names, numbers and addresses that belong to nobody.
// clang-format off
constexpr Value values[] = {
    {authorFirstName, u"Marie"}, {authorLastName, u"Sand"}, {authorEmail, u"marie@tidetable.example"},
    {contactFirstName, u"Marie"}, {contactLastName, u"Sand"}, {contactEmail, u"marie@tidetable.example"},
    {companyName, u"Sand Software"}, {companyAddress, u"1 Harbour Road"}, {companyCityTown, u"Portside"},
    {companyCountry, u"Norway"}, {companyWebsite, u"http://www.tidetable.example/"},
    {generalEmail, u"office@tidetable.example"}, {supportEmail, u"help@tidetable.example"},
    {salesEmail, u"sales@tidetable.example"},
    {programName, u"Tide Table"}, {programVersion, u"2.1"},
    {releaseDateDay, u"14"}, {releaseDateMonth, u"05"}, {releaseDateYear, u"2026"},
    {priceInUSD, u"19"}, {programTypePopUp, u"Shareware"}, {programStatusPopUp, u"Minor Update"},
    {installSupportPopUp, u"Install and Uninstall"}, {categoryPopUp, u"Education::Science"},
    {sizeInBytes, u"2621440"}, {osTable, u"Linux"}, {languageTable, u"English"},
    {changeInformationView, u"Tables for twelve more harbours; printing in two columns."},
    {requirementsView, u"64 MB of memory"},
    {keywordsView, u"tide, tables, harbour, sailing, sea, moon"},
    {pd45CharDescript, u"Shows when the tide comes and goes."},
    {pd80CharDescript, u"Shows when the tide comes and goes, for 300 harbours and any day of the year."},
    {pd250CharDescript, u"Tide Table shows high and low water for 300 harbours, for any day of the year. Choose "
                         "a harbour and a month, and print the page for the wall of your boat house."},
    {pd450CharDescript, u"Tide Table shows high and low water for 300 harbours, for any day of the year. Choose "
                         "a harbour and a month, and print the page for the wall of your boat house. Harbours "
                         "of your own are computed from those around them, and notes can be kept for each day."},
    {pd2000CharDescript, u"Tide Table shows high and low water for 300 harbours, for any day of the year.\n\n"
                          "Choose a harbour and a month, and print the page for the wall of your boat house. "
                          "Harbours of your own are computed from those around them. Notes can be kept for each "
                          "day, and are printed with it.\n\nTide Table needs no network."},
    {appInfoURL, u"http://www.tidetable.example/about.html"},
    {orderingURL, u"https://www.tidetable.example/order.html"},
    {screenshotURL, u"http://www.tidetable.example/screen.png"},
    {iconURL, u"http://www.tidetable.example/icon.png"},
    {padFileURL, u"http://www.tidetable.example/pad.xml"},
    {primaryDownloadURL, u"http://www.tidetable.example/tidetable-2.1.zip"},
    {distributionPermissions, u"May be handed on as long as nothing in it is changed."},
    {eula, u"An example. There is no such program."},
};
// clang-format on

/// Gives @p form the example's values as they are when a title with them is opened and checked.
void fill(PadForm &form)
{
    PadForm written;
    written.populatePopUpButtons();
    for (const Value &value : values)
        written.setValue(value.field, value.text.toString());
    loadPADData(pad_writer::document(written), form);
    ErrorPass errors;
    field_rules::checkEntries(form, errors);
}

} // namespace

Result<> make()
{
    if (title_folder::exists(name))
        return Error{Error::Kind::Refused, name, u"a title has this name"_s};
    PadForm form;
    fill(form);
    Summary summary = summaryOf(form);
    summary.validated = u"1"_s;
    return AddDeleteImportEdit::storeTitle(name, summary_file::text(summary).toUtf8(),
                                           pad_writer::document(form));
}

} // namespace quillon::example_title
