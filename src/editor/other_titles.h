#pragma once

#include "pad/field_catalogue.h"

#include <QObject>
#include <QStringList>

#include <array>
#include <thread>

namespace quillon {

class Editor;

/**
 * What the author's other titles hold in the fields that say who makes, sells and supports a title, for being
 * offered while the author types.
 *
 * It is read in a thread when read() is first called for a title, and kept until another one is opened.
 */
class OtherTitles : public QObject
{
    Q_OBJECT
public:
    /// @p editor must outlive it.
    explicit OtherTitles(const Editor &editor, QObject *parent = nullptr);
    ~OtherTitles() override;

    /// Whether other titles are looked at for @p field.
    static bool has(FieldId field);

    /// Begins to read, unless that has been done for the open title. Gives back at once.
    void read();

    /// At most @p most values of @p field that begin with @p typed, in any case, then those in which another
    /// word does; the more titles have one, the further to the front it is. None that is @p typed itself.
    [[nodiscard]] QStringList matching(FieldId field, const QString &typed, qsizetype most) const;

private:
    /// The values of the fields of fields::company(), each the most frequent first.
    using Values = std::array<QStringList, size_t(FieldId::salesPhone) + 1>;
    static Values valuesIn(const QString &dataFolder, const QString &except, const std::stop_token &stop);
    void forget();

    Values m_values;
    bool m_isRead = false;
    int m_reading = 0; ///< Which reading it is; an earlier one comes too late.
    std::jthread m_thread;
};

} // namespace quillon
