#include "visits/title_check.h"

#include "editor/editor_layout.h"
#include "ledger/changed_fields.h"
#include "pad/pad_document.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

struct CheckedField
{
    FieldId field;
    Expected expected;
};

constexpr CheckedField checkedFields[] = {
    {FieldId::companyWebsite, Expected::Page},
    {FieldId::appInfoURL, Expected::Page},
    {FieldId::orderingURL, Expected::Page},
    {FieldId::screenshotURL, Expected::Picture},
    {FieldId::iconURL, Expected::Icon},
    {FieldId::padFileURL, Expected::PadFile},
    {FieldId::primaryDownloadURL, Expected::Download},
    {FieldId::secondaryDownloadURL, Expected::Download},
    {FieldId::otherDownloadURL1, Expected::Download},
    {FieldId::otherDownloadURL2, Expected::Download},
};

constexpr QSize iconSize(32, 32);

QString asStated()
{
    return TitleCheck::tr("as stated");
}

QString differs()
{
    return TitleCheck::tr("differs");
}

QString pixels(const QSize &size)
{
    return TitleCheck::tr("%1 × %2 pixels").arg(size.width()).arg(size.height());
}

OnlineFinding ofDownload(const Stated &stated, const Visit &visit)
{
    if (!visit.isFile)
        return {
            differs(),
            TitleCheck::tr("There is no file, but something that browsers show: %1.").arg(visit.contentType)};
    if (!visit.fileSize || stated.size < 0)
        return {title(VisitVerdict::Reachable), visit.fileSize
                                                    ? TitleCheck::tr("The title states no size.")
                                                    : TitleCheck::tr("The server does not tell the size.")};
    if (*visit.fileSize == stated.size)
        return {asStated(), TitleCheck::tr("The file has %1 bytes, as stated.").arg(stated.size)};
    return {differs(), TitleCheck::tr("The file has %1 bytes, and the title states %2.")
                           .arg(*visit.fileSize)
                           .arg(stated.size)};
}

OnlineFinding ofPicture(Expected expected, const Visit &visit)
{
    if (!visit.pictureSize.isValid() || visit.pictureSize.isEmpty())
        return {differs(), TitleCheck::tr("There is no picture, but %1.").arg(visit.contentType)};
    if (expected == Expected::Icon && visit.pictureSize != iconSize)
        return {differs(), TitleCheck::tr("The picture has %1, and icons have %2.")
                               .arg(pixels(visit.pictureSize), pixels(iconSize))};
    return {asStated(), TitleCheck::tr("A picture of %1.").arg(pixels(visit.pictureSize))};
}

OnlineFinding ofPadFile(const Stated &stated, const Visit &visit)
{
    if (!visit.text)
        return {title(VisitVerdict::CannotSay), TitleCheck::tr("The file could not be read.")};
    if (*visit.text == stated.pad)
        return {asStated(), TitleCheck::tr("The file is the same as yours.")};
    const PadDocument hosted(*visit.text);
    if (!hosted.holds(padField(FieldId::programName)))
        return {differs(), TitleCheck::tr("What is there is no PAD file.")};
    const QList<FieldId> fields = changed_fields::between(*visit.text, stated.pad);
    if (fields.isEmpty())
        return {asStated(),
                TitleCheck::tr("The file is written otherwise than yours; every field is the same.")};
    return {differs(),
            TitleCheck::tr("Other than in yours: %1.").arg(changed_fields::names(fields).join(u", "_s))};
}

OnlineFinding ofContent(Expected expected, const Stated &stated, const Visit &visit)
{
    switch (expected) {
    case Expected::Download:
        return ofDownload(stated, visit);
    case Expected::Picture:
    case Expected::Icon:
        return ofPicture(expected, visit);
    case Expected::PadFile:
        return ofPadFile(stated, visit);
    case Expected::Page:
        break;
    }
    return {title(VisitVerdict::Reachable), {}};
}

} // namespace

OnlineFinding onlineFinding(Expected expected, const Stated &stated, const QString &asked, const Visit &visit)
{
    const VisitJudgement judgement = judged(asked, visit);
    const bool isMoved = judgement.verdict == VisitVerdict::Moved;
    if (judgement.verdict != VisitVerdict::Reachable && (!isMoved || expected == Expected::Page))
        return {title(judgement.verdict), judgement.detail};
    OnlineFinding finding = ofContent(expected, stated, visit);
    if (finding.detail.isEmpty())
        finding.detail = judgement.detail;
    else if (isMoved)
        finding.detail += u' ' + TitleCheck::tr("It lies at %1.").arg(judgement.detail);
    return finding;
}

TitleCheck::TitleCheck(const QByteArray &pad, std::unique_ptr<Visitor> visitor, DelayedCalls &delayedCalls,
                       QObject *parent)
    : OnlineCheck({}, std::move(visitor), delayedCalls, parent), m_stated({.pad = pad})
{
    const PadDocument document(pad);
    const auto value = [&document](FieldId field) {
        return document.value(padField(field)).value_or(QString()).trimmed();
    };
    bool isNumber = false;
    if (const qint64 size = value(FieldId::sizeInBytes).toLongLong(&isNumber); isNumber)
        m_stated.size = size;
    QList<Row> rows;
    for (const CheckedField &each : checkedFields) {
        if (value(each.field).isEmpty())
            continue;
        rows.append(
            {.what = accessibleNameOf(each.field),
             .request = {.address = value(each.field), .wantsText = each.expected == Expected::PadFile}});
        m_expected.append(each.expected);
    }
    setRows(std::move(rows));
}

void TitleCheck::take(int row, const Visit &visit)
{
    const OnlineFinding finding =
        onlineFinding(m_expected[row], m_stated, table()[row].request.address, visit);
    show(row, finding.result, finding.detail);
}

} // namespace quillon
