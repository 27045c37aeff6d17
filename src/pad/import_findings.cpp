#include "pad/import_findings.h"

#include "pad/file_size.h"
#include "pad/layout.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/unread_texts.h"
#include "pad/vocabularies.h"

#include <QCoreApplication>
#include <QStringTokenizer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class ImportFindingsText
{
    Q_DECLARE_TR_FUNCTIONS(ImportFindings)
};

/// Sentences, as many as anybody reads.
class Findings
{
public:
    /// Adds what @p sentence, a function, says; beyond the limit it is only counted.
    template<typename Sentence>
    void add(const Sentence &sentence)
    {
        if (m_sentences.size() < mostFindings)
            m_sentences.append(sentence());
        else
            ++m_more;
    }

    [[nodiscard]] QStringList sentences() const
    {
        return m_more == 0
                   ? m_sentences
                   : m_sentences + QStringList(ImportFindingsText::tr("…and %n more.", nullptr, int(m_more)));
    }

private:
    QStringList m_sentences;
    qsizetype m_more = 0;
};

/// @p value as a sentence can hold it.
QString quoted(QStringView value)
{
    static constexpr qsizetype longest = 60;
    const QString line = value.toString().simplified();
    return u'“' + (line.size() > longest ? QString(line.first(longest - 1) + u'…') : line) + u'”';
}

/// How the form reads one field of a document.
struct Reading
{
    const PadField &field;
    QString value; ///< As the document has it.
    const PadForm &form;
};

void findUnknownName(const PadField &field, QStringView written, Findings &findings)
{
    const bool onlyBlanks = vocabulary::of(field.id).contains(written.trimmed());
    findings.add([&] {
        return onlyBlanks ? ImportFindingsText::tr(
                                "%1: %2 has blanks around it, is not understood and will be lost.")
                                .arg(field.element, quoted(written))
                          : ImportFindingsText::tr("%1: %2 is not in the list of PAD 3.10 and will be lost.")
                                .arg(field.element, quoted(written));
    });
}

void findInPopUp(const Reading &reading, Findings &findings)
{
    if (reading.form.value(reading.field.id).isEmpty())
        findUnknownName(reading.field, reading.value, findings);
}

void findInCheckList(const Reading &reading, Findings &findings)
{
    const QStringList ticked = reading.form.checkList(reading.field.id).tickedEntries();
    for (const QStringView name : QStringTokenizer(reading.value, u',')) {
        if (!name.trimmed().isEmpty() && !ticked.contains(name.trimmed()))
            findUnknownName(reading.field, name, findings);
    }
}

void findInCheckBox(const Reading &reading, Findings &findings)
{
    const QString kept = reading.form.value(reading.field.id);
    if (reading.value.trimmed().compare(kept, Qt::CaseInsensitive) != 0)
        findings.add([&] {
            return ImportFindingsText::tr("%1: %2 will become %3.")
                .arg(reading.field.element, quoted(reading.value), quoted(kept));
        });
}

void findInMultiLine(const Reading &reading, Findings &findings)
{
    if (reading.form.value(reading.field.id).isEmpty())
        findings.add([&] {
            return ImportFindingsText::tr(
                       "%1: %2 cannot be read from a tag written like this and will be lost.")
                .arg(reading.field.element, quoted(reading.value));
        });
}

/// The full check takes the blanks out of e-mail addresses.
void findInText(const Reading &reading, Findings &findings)
{
    if (reading.field.element.endsWith(u"_Email") && reading.value.trimmed().contains(u' '))
        findings.add([&] {
            return ImportFindingsText::tr("%1: the blanks in %2 will be removed.")
                .arg(reading.field.element, quoted(reading.value));
        });
}

/// The kilobytes and megabytes are calculated anew from the bytes; a rounding is no loss.
void findInComputed(const Reading &reading, Findings &findings)
{
    static constexpr double rounding = 1.0;
    const QString kept = reading.form.value(reading.field.id);
    const QString before = file_size::withoutUnit(reading.value);
    bool isNumber = false;
    const double number = before.toDouble(&isNumber);
    if (before == kept || (isNumber && std::abs(number - kept.toDouble()) <= rounding))
        return;
    findings.add([&] {
        return ImportFindingsText::tr("%1: %2 will become %3, reckoned from File_Size_Bytes.")
            .arg(reading.field.element, quoted(reading.value), quoted(kept));
    });
}

void findInFields(const PadDocument &document, Findings &findings)
{
    PadForm form;
    loadPADData(document, form);
    for (const PadField &field : padFields) {
        const Reading reading{field, document.value(field).value_or(QString()), form};
        if (reading.value.isEmpty())
            continue;
        switch (field.kind) {
        case FieldKind::PopUp:
            findInPopUp(reading, findings);
            break;
        case FieldKind::CheckList:
            findInCheckList(reading, findings);
            break;
        case FieldKind::CheckBox:
            findInCheckBox(reading, findings);
            break;
        case FieldKind::MultiLine:
            findInMultiLine(reading, findings);
            break;
        case FieldKind::Computed:
            findInComputed(reading, findings);
            break;
        case FieldKind::Text:
            findInText(reading, findings);
            break;
        }
    }
}

QString itsValues(const UnreadTexts::Texts &texts)
{
    return texts.count == 1 ? ImportFindingsText::tr("its value %1").arg(quoted(texts.example))
                            : ImportFindingsText::tr("its %n values", nullptr, int(texts.count));
}

void findSections(const UnreadTexts &unread, Findings &findings)
{
    for (auto [tag, texts] : unread.unknown.asKeyValueRange()) {
        const QStringView meant = padTag(tag);
        findings.add([&, &tag = tag, &texts = texts] {
            return meant.isNull() ? ImportFindingsText::tr("%1 is not part of PAD 3.10; %2 will be lost.")
                                        .arg(tag, itsValues(texts))
                                  : ImportFindingsText::tr("%1 is not written %2; %3 will be lost.")
                                        .arg(tag, meant, itsValues(texts));
        });
    }
    for (auto [tag, texts] : unread.stray.asKeyValueRange())
        findings.add([&, &tag = tag, &texts = texts] {
            return ImportFindingsText::tr("%1 holds text outside of its elements; %2 will be lost.")
                .arg(tag, itsValues(texts));
        });
}

void findLanguages(const UnreadTexts &unread, Findings &findings)
{
    for (auto [language, lost] : unread.languages.asKeyValueRange())
        findings.add([&, &language = language, &lost = lost] {
            return ImportFindingsText::tr(
                       "%1: %2 will be lost; of several languages the first is kept, which is %3.")
                .arg(language, itsValues(lost.texts), lost.kept.join(ImportFindingsText::tr(" and ")));
        });
}

void findRepetitions(const PadDocument &document, const UnreadTexts &unread, Findings &findings)
{
    for (auto [field, texts] : unread.repeated.asKeyValueRange())
        findings.add([&, &field = field, &texts = texts] {
            const QStringView element = padField(field).element;
            const QString others =
                texts.count == 1 ? QString()
                                 : ImportFindingsText::tr(" and %n more", nullptr, int(texts.count - 1));
            return ImportFindingsText::tr("%1 stands %2 times; %3 is kept, %4%5 will be lost.")
                .arg(element, QString::number(document.xml().count(element)),
                     quoted(document.value(padField(field)).value_or(QString())), quoted(texts.example),
                     others);
        });
}

} // namespace

QStringList importFindings(const PadDocument &document)
{
    Findings findings;
    findInFields(document, findings);
    // What is laid out as the writer does it has a place for all of its texts.
    if (!document.isWritten()) {
        const UnreadTexts unread = unreadTexts(document);
        findSections(unread, findings);
        findLanguages(unread, findings);
        findRepetitions(document, unread, findings);
    }
    return findings.sentences();
}

} // namespace quillon
