#include "cli/check_report.h"

#include <QXmlStreamWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon::cli {

namespace {

/// @p text without what no XML may hold: control characters, halves of surrogate pairs.
QString xmlText(const QString &text)
{
    QString safe = exactText(text.toUtf8());
    for (QChar &each : safe) {
        const char16_t unit = each.unicode();
        if ((unit < u' ' && unit != u'\n' && unit != u'\t') || unit >= u'\xfffe')
            each = QChar::ReplacementCharacter;
    }
    return safe;
}

/// A case for each title and file; it fails when any finding in it does, and tells the others as output.
void writeCase(const Checked &checked, Severity failOn, QXmlStreamWriter &xml)
{
    QStringList failing;
    QStringList others;
    for (const LocatedFinding &each : checked.findings) {
        QStringList &lines = isFailure(each.finding, failOn) ? failing : others;
        lines.append(lineOf(checked, each));
        if (!each.finding.recorded.isEmpty())
            lines.append(u"    "_s + each.finding.explanation);
    }
    xml.writeStartElement(u"testcase"_s);
    xml.writeAttribute(u"classname"_s, u"quillon.check"_s);
    xml.writeAttribute(u"name"_s, xmlText(checked.target));
    const auto writeLines = [&](const QString &element, const QString &message, const QStringList &lines) {
        xml.writeStartElement(element);
        if (!message.isEmpty())
            xml.writeAttribute(u"message"_s, xmlText(message));
        xml.writeCharacters(xmlText(lines.join(u'\n')));
        xml.writeEndElement();
    };
    if (!checked.failure.isEmpty())
        writeLines(u"error"_s, checked.failure, {});
    else if (!failing.isEmpty())
        writeLines(u"failure"_s, u"The PAD file is not as it should be."_s, failing);
    if (!others.isEmpty())
        writeLines(u"system-out"_s, {}, others);
    xml.writeEndElement();
}

} // namespace

void reportAsJUnit(const CheckResults &results)
{
    const auto fails = [&results](const Checked &checked) {
        return std::ranges::any_of(checked.findings, [&results](const LocatedFinding &each) {
            return isFailure(each.finding, results.failOn);
        });
    };
    const auto isUnchecked = [](const Checked &checked) { return !checked.failure.isEmpty(); };
    QByteArray document;
    QXmlStreamWriter xml(&document);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(u"testsuite"_s);
    xml.writeAttribute(u"name"_s, u"quillon-cli check"_s);
    xml.writeAttribute(u"tests"_s, QString::number(results.all.size()));
    xml.writeAttribute(u"failures"_s, QString::number(std::ranges::count_if(results.all, fails)));
    xml.writeAttribute(u"errors"_s, QString::number(std::ranges::count_if(results.all, isUnchecked)));
    for (const Checked &checked : results.all)
        writeCase(checked, results.failOn, xml);
    xml.writeEndDocument();
    print(document);
}

} // namespace quillon::cli
