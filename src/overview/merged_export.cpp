#include "overview/merged_export.h"

#include "pad/merged_document.h"
#include "pad/pad_document.h"
#include "pad/pad_form.h"
#include "pad/pad_reader.h"
#include "pad/pad_writer.h"
#include "validation/error_pass.h"
#include "validation/field_rules.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Widgets take every line end for a line feed.
QString comparable(const PadForm &form, FieldId field)
{
    return form.value(field).replace(u"\r\n"_s, u"\n"_s);
}

/// The values that fields have without the author's doing.
class GivenValues
{
public:
    explicit GivenValues(const QByteArray &original)
    {
        // Storing resolves references once more, so that it may take some looks until nothing changes.
        static constexpr int mostLooks = 8;
        QByteArray document = original;
        for (int look = 0; look < mostLooks; ++look) {
            QByteArray next = lookedAt(document);
            if (next == document)
                break;
            document = std::move(next);
        }
    }

    [[nodiscard]] bool contains(FieldId field, const QString &value) const
    {
        return m_values[size_t(field)].contains(value);
    }

private:
    /// Reads, checks and writes @p document as selecting its title does.
    QByteArray lookedAt(const QByteArray &document)
    {
        PadForm form;
        loadPADData(document, form);
        note(form);
        ErrorPass errors;
        field_rules::checkEntries(form, errors);
        note(form);
        return pad_writer::document(form);
    }

    void note(const PadForm &form)
    {
        for (const PadField &field : padFields)
            m_values[size_t(field.id)].insert(comparable(form, field.id));
    }

    std::array<QSet<QString>, fieldCount> m_values;
};

} // namespace

Result<QByteArray> mergedExport(const QByteArray &original, const QByteArray &stored)
{
    PadForm form;
    loadPADData(stored, form);
    const GivenValues given(original);
    FieldValues changed;
    for (const PadField &field : padFields) {
        if (!given.contains(field.id, comparable(form, field.id)))
            changed[size_t(field.id)] = form.value(field.id);
    }
    return mergedDocument(original, changed);
}

} // namespace quillon
