#pragma once

#include "pad/field_catalogue.h"
#include "platform/tolerant_xml.h"

#include <QString>

#include <array>
#include <memory>
#include <optional>

namespace quillon {

/**
 * A PAD document of any origin, decoded and parsed once for all who look into it.
 *
 * It has two views: parsed, and as it stands, its elements then with an end tag each. Elements are found by
 * name at any depth. A document that is laid out as the writer does it is read by its lines instead, so that
 * no value, whatever it holds, is mistaken for another element.
 */
class PadDocument
{
public:
    explicit PadDocument(QString text);
    /// Decodes @p bytes, as decodedXmlText() does.
    explicit PadDocument(const QByteArray &bytes);
    PadDocument(PadDocument &&) noexcept;
    ~PadDocument();

    [[nodiscard]] const QString &text() const { return m_text; }

    /// Whether it is laid out as the writer does it.
    [[nodiscard]] bool isWritten() const { return m_written.has_value(); }

    /// What stands between the tags of the field's element, a stretch of text(); only of what is laid out so.
    [[nodiscard]] QStringView writtenContent(const PadField &field) const
    {
        return (*m_written)[size_t(field.id)];
    }

    [[nodiscard]] bool holds(const PadField &field) const;

    /// The string value of the field's element; none without one.
    [[nodiscard]] std::optional<QString> value(const PadField &field) const;

    /// The text between the tags of the element that value() reads, as it stands, entities included; empty
    /// where its tags are not written literally as "<TAG>" and "</TAG>", none without the element.
    [[nodiscard]] std::optional<QString> cutOut(const PadField &field) const;

    /// The same exactly as the author wrote it; cutOut() gives the elements in it an end tag each.
    [[nodiscard]] QString sourceOf(const PadField &field) const;

    /// A place in text(), both counted from 1; columns in UTF-16 units.
    struct Position
    {
        qsizetype line = 1;
        qsizetype column = 1;
    };

    /// Where the field's element begins, the one that value() reads; without one, where the innermost of its
    /// groups does that is there; none without any.
    [[nodiscard]] std::optional<Position> position(const PadField &field) const;

    /// The whole of it parsed, also of a document that is read by its lines.
    [[nodiscard]] const TolerantXml &xml() const;

private:
    struct Source;

    [[nodiscard]] const Source &source() const;
    [[nodiscard]] std::optional<qsizetype> placeOf(QStringView tag) const;

    QString m_text;
    /// What stands between the tags of each field's element, referring to m_text.
    std::optional<std::array<QStringView, fieldCount>> m_written;
    mutable std::optional<TolerantXml> m_xml; ///< Made when it is first asked for.
    mutable std::unique_ptr<Source> m_source; ///< Made when it is first asked for.
};

} // namespace quillon
