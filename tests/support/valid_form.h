#pragma once

#include "pad/pad_form.h"

namespace quillon {

/// A text of that length.
inline QString of(qsizetype length, QChar unit = u'x')
{
    return QString(length, unit);
}

/// Fills @p form with values that no rule objects to: a field that may be empty stays so, unless @p all.
inline void fillValidly(PadForm &form, bool all = false)
{
    using enum FieldId;
    using Texts = std::initializer_list<std::pair<FieldId, const char16_t *>>;
    const auto fill = [&form](Texts texts) {
        for (const auto &[field, text] : texts)
            form.text(field).setText(QString::fromUtf16(text));
    };
    // clang-format off
    fill({{authorFirstName, u"Ada"}, {authorLastName, u"Byron"}, {authorEmail, u"ada@engine.example"},
          {contactFirstName, u"Ada"}, {contactLastName, u"Byron"}, {contactEmail, u"ada@engine.example"},
          {companyName, u"Smith & Sons"}, {companyCityTown, u"London"}, {companyCountry, u"England"},
          {generalEmail, u"info@engine.example"}, {supportEmail, u"help@engine.example"},
          {salesEmail, u"sales@engine.example"}, {programName, u"Engine"}, {programVersion, u"1.0"},
          {releaseDateDay, u"05"}, {releaseDateMonth, u"03"}, {releaseDateYear, u"2009"},
          {sizeInBytes, u"1536000"}, {appInfoURL, u"http://engine.example/"},
          {screenshotURL, u"http://engine.example/a.png"}, {iconURL, u"http://engine.example/a.gif"},
          {padFileURL, u"http://engine.example/pad.xml"}, {primaryDownloadURL, u"ftp://engine.example/a.zip"}});
    if (all) {
        fill({{companyAddress, u"12 Mill Lane"}, {companyAddress2, u"Yard 3"}, {companyStateCounty, u"Kent"},
              {companyZIPPostcode, u"W1"}, {companyWebsite, u"http://engine.example/"},
              {generalPhone, u"020 7946 0000"}, {generalFax, u"020 7946 0001"}, {supportPhone, u"020 7946 0002"},
              {salesPhone, u"020 7946 0003"}, {priceInUSD, u"19.95"}, {otherPrice, u"15.00"}, {expireCount, u"30"},
              {expireDateDay, u"31"}, {expireDateMonth, u"12"}, {expireDateYear, u"2010"},
              {expireInfo, u"After a month"}, {changeInformationView, u"Faster.\nSmaller."},
              {requirementsView, u"None"}, {keywordsView, u"engine,numbers"}, {pd45CharDescript, u"Reckons."},
              {pd80CharDescript, u"Reckons with numbers."}, {pd250CharDescript, u"Reckons with letters, too."},
              {pd450CharDescript, u"Reckons with both."}, {pd2000CharDescript, u"Reckons.\nAnd prints."},
              {orderingURL, u"https://engine.example/order"}, {secondaryDownloadURL, u"http://engine.example/b.zip"},
              {otherDownloadURL1, u"http://engine.example/c.zip"}, {otherDownloadURL2, u"http://engine.example/d.zip"},
              {distributionPermissions, u"Give it to anyone."}, {eula, u"Use it as you like."}});
        form.checkBox(expireCheckBox).setOn(true);
    }
    // clang-format on
    for (const PadField &field : fields::popUps()) {
        const bool needed = field.id != otherPricePopUp && field.id != expireBasePopUp;
        form.popUp(field.id).setIndex(needed || all ? 1 : 0);
    }
    for (const PadField &field : fields::checkLists())
        form.checkList(field.id).setTicked(0, true);
}

} // namespace quillon
