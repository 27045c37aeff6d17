#include "editor/other_titles.h"

#include "editor/editor.h"
#include "pad/pad_document.h"
#include "platform/atomic_file.h"
#include "store/process_state.h"
#include "store/title_folder.h"

#include <QDirIterator>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

/// Whether a word in @p value, but for the first, begins with @p typed.
bool hasWord(const QString &value, const QString &typed)
{
    for (qsizetype at = value.indexOf(typed, 1, Qt::CaseInsensitive); at > 0;
         at = value.indexOf(typed, at + 1, Qt::CaseInsensitive)) {
        if (!value[at - 1].isLetterOrNumber())
            return true;
    }
    return false;
}

QStringList mostFrequentFirst(const QHash<QString, int> &counts)
{
    QStringList values = counts.keys();
    std::ranges::sort(values, {},
                      [&counts](const QString &value) { return std::pair(-counts.value(value), value); });
    return values;
}

} // namespace

OtherTitles::OtherTitles(const Editor &editor, QObject *parent) : QObject(parent)
{
    connect(&editor, &Editor::formLoaded, this, &OtherTitles::forget);
}

OtherTitles::~OtherTitles() = default;

bool OtherTitles::has(FieldId field)
{
    return field <= FieldId::salesPhone;
}

void OtherTitles::read()
{
    if (!mwqnSelSW || std::exchange(m_isRead, true))
        return;
    m_thread = std::jthread([this, reading = ++m_reading, folder = mwqnAppSuppLoc,
                             except = *mwqnSelSW](const std::stop_token &stop) {
        const Values values = valuesIn(folder, except, stop);
        QMetaObject::invokeMethod(this, [this, reading, values] {
            if (reading == m_reading)
                m_values = values;
        });
    });
}

void OtherTitles::forget()
{
    m_thread.request_stop();
    ++m_reading;
    m_isRead = false;
    m_values = {};
}

OtherTitles::Values OtherTitles::valuesIn(const QString &dataFolder, const QString &except,
                                          const std::stop_token &stop)
{
    std::array<QHash<QString, int>, std::tuple_size_v<Values>> counts;
    QDirIterator folders(dataFolder, {u"*"_s + title_folder::extension}, QDir::Dirs | QDir::Hidden);
    while (folders.hasNext() && !stop.stop_requested()) {
        const QString folder = folders.next();
        const auto pad = atomic_file::read(folder + u'/' + title_folder::padFile);
        // One that cannot be read has nothing to offer; the list of titles tells what is wrong with it.
        if (!pad || folders.fileName() == except + title_folder::extension)
            continue;
        const PadDocument document(*pad);
        for (const PadField &field : fields::company()) {
            if (const auto value = document.value(field); value && !value->isEmpty())
                ++counts[size_t(field.id)][*value];
        }
    }
    Values values;
    std::ranges::transform(counts, values.begin(), mostFrequentFirst);
    return values;
}

QStringList OtherTitles::matching(FieldId field, const QString &typed, qsizetype most) const
{
    QStringList front;
    QStringList behind;
    for (const QString &value : m_values[size_t(field)]) {
        if (value == typed)
            continue;
        if (value.startsWith(typed, Qt::CaseInsensitive))
            front.append(value);
        else if (hasWord(value, typed))
            behind.append(value);
    }
    return (front + behind).first(qMin(most, front.size() + behind.size()));
}

} // namespace quillon
