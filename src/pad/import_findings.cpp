#include "pad/import_findings.h"

#include "pad/layout.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/vocabularies.h"
#include "platform/text_decoding.h"
#include "platform/tolerant_xml.h"

#include <QMap>
#include <QSet>

#include <pugixml.hpp>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// @p value as a sentence can hold it.
QString quoted(const QString &value)
{
    static constexpr qsizetype longest = 60;
    const QString line = value.simplified();
    return u'“' + (line.size() > longest ? QString(line.first(longest - 1) + u'…') : line) + u'”';
}

bool isKnownTag(QStringView tag)
{
    static const QSet<QStringView> known = [] {
        QSet<QStringView> tags = {padRootElement};
        for (const LayoutLine &line : padLayout)
            tags.insert(line.tag);
        return tags;
    }();
    return known.contains(tag);
}

/// Values of pop-ups and check lists that their vocabulary does not hold.
void findUnknownValues(const TolerantXml &xml, const PadForm &form, QStringList &findings)
{
    for (const PadField &field : padFields) {
        const QString value = xml.first(field.element).value_or(QString());
        if (field.kind == FieldKind::PopUp && !value.isEmpty() && form.value(field.id).isEmpty()) {
            findings += u"%1: %2 is not in the list of PAD 3.10 and will be lost at the first check."_s.arg(
                field.element, quoted(value));
        } else if (field.kind == FieldKind::CheckList) {
            const QStringList pieces = value.split(u',');
            for (const QString &piece : pieces) {
                const QString name = piece.trimmed();
                if (name.isEmpty() || vocabulary::of(field.id).contains(piece))
                    continue;
                const bool onlyBlanks = vocabulary::of(field.id).contains(name);
                findings +=
                    onlyBlanks
                        ? u"%1: %2 has blanks around it, is not understood and will be lost at the first check."_s
                              .arg(field.element, quoted(name))
                        : u"%1: %2 is not in the list of PAD 3.10 and will be lost at the first check."_s.arg(
                              field.element, quoted(name));
            }
        } else if (field.kind == FieldKind::MultiLine && !value.isEmpty() && form.value(field.id).isEmpty()) {
            findings +=
                u"%1: %2 cannot be read from a tag written like this and will be lost at the first check."_s
                    .arg(field.element, quoted(value));
        }
    }
}

/// Walks the whole tree and gathers what lies outside the layout and what stands twice. Iterative, as the
/// depth of the tree is untrusted.
class StructureWalk
{
public:
    explicit StructureWalk(const pugi::xml_node &document)
    {
        for (pugi::xml_node node = document.first_child(); node;) {
            if (node.type() == pugi::node_element && !visit(node)) {
                node = nextAfter(node, document);
                continue;
            }
            node = node.first_child() ? node.first_child() : nextAfter(node, document);
        }
    }

    void report(QStringList &findings) const
    {
        for (auto section = m_unknown.cbegin(); section != m_unknown.cend(); ++section) {
            findings +=
                section.value().values == 1
                    ? u"%1 is not part of PAD 3.10; its value %2 will be lost at the first check."_s.arg(
                          section.key(), quoted(section.value().example))
                    : u"%1 is not part of PAD 3.10; its %2 values will be lost at the first check."_s.arg(
                          section.key(), QString::number(section.value().values));
        }
        for (const PadField &field : padFields) {
            const QStringList values = m_values.value(field.element.toString());
            const QString lost = values.size() > 1 ? lostValue(values) : QString();
            if (!lost.isEmpty())
                findings +=
                    u"%1 stands %2 times; only the first is kept, %3 will be lost at the first check."_s.arg(
                        field.element, QString::number(values.size()), quoted(lost));
        }
    }

private:
    struct Unknown
    {
        int values = 0;
        QString example;
    };

    static pugi::xml_node nextAfter(pugi::xml_node node, const pugi::xml_node &top)
    {
        for (; node && node != top; node = node.parent()) {
            if (const pugi::xml_node sibling = node.next_sibling())
                return sibling;
        }
        return {};
    }

    /// The first later value that differs from the one that is kept.
    static QString lostValue(const QStringList &values)
    {
        for (const QString &value : values) {
            if (!value.isEmpty() && value != values.first())
                return value;
        }
        return {};
    }

    /// Takes note of one element; whether its children are to be visited too.
    bool visit(const pugi::xml_node &node)
    {
        const QString tag = QString::fromUtf8(node.name());
        if (fieldOfElement(tag)) {
            m_values[tag].append(TolerantXml::stringValue(node));
            return false;
        }
        if (isKnownTag(tag))
            return true;
        noteUnknown(tag, node);
        return false;
    }

    void noteUnknown(const QString &tag, const pugi::xml_node &section)
    {
        Unknown &unknown = m_unknown[tag];
        for (pugi::xml_node node = section; node;) {
            if (const QString text = QString::fromUtf8(node.value()).trimmed(); !text.isEmpty()) {
                ++unknown.values;
                unknown.example = text;
            }
            // Descriptions in other languages come under the same names: the first of a name is the one kept.
            const QString name = QString::fromUtf8(node.name());
            if (fieldOfElement(name) && !m_values.contains(name))
                m_values[name].append(TolerantXml::stringValue(node));
            node = node.first_child() ? node.first_child() : nextAfter(node, section);
        }
        if (unknown.values == 0)
            m_unknown.remove(tag);
    }

    QMap<QString, Unknown> m_unknown;
    QHash<QString, QStringList> m_values;
};

} // namespace

QStringList importFindings(const QByteArray &padFile)
{
    const TolerantXml xml(decodedXmlText(padFile));
    PadForm form;
    loadPADData(padFile, form);

    QStringList findings;
    findUnknownValues(xml, form, findings);
    StructureWalk(xml.document()).report(findings);
    return findings;
}

} // namespace quillon
